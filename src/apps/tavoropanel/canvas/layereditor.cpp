#include "layereditor.h"

#include "layergeometry.h"
#include "screenitem.h"

#include <tavoropanel/messages/messages.h>
#include <tavoropanel/selection/selection.h>
#include <tavoropanel/undo/changes.h>

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/layer.h>
#include <tavorocontrol/layer.h>
#include <tavorosession/devicesession.h>

#include <algorithm>

namespace Tavoro::Panel {

using namespace ProtoModel::Layer;

LayerEditor::LayerEditor(Selection &selection, Messages &messages, Changes &changes,
                         QObject *parent)
    : QObject(parent), m_selection(selection), m_messages(messages), m_changes(changes)
{ }

bool LayerEditor::canEdit(const LayerItem &layer)
{
    const DeviceSession *const device = m_selection.device();
    if (!device)
        return false;
    if (m_selection.canWrite())
        return true;
    const QString reason = device->isControlledByOthers()
        ? tr("%1 cannot be changed: another client controls the device.")
        : tr("%1 cannot be changed: the device is not connected.");
    m_messages.report(Severity::Warning, reason.arg(layer.face().name), device->name());
    return false;
}

/// One key for each layer and property.
QString LayerEditor::keyOf(const char *property, const LayerItem &layer) const
{
    const s_LayerIdentity &id = layer.id();
    return QStringLiteral("%1/%2/%3/%4/%5/%6/%7")
        .arg(m_selection.device()->address(), QLatin1String(property))
        .arg(id.screenType)
        .arg(id.screenId)
        .arg(id.sceneType)
        .arg(id.layerType)
        .arg(id.layerId);
}

/// Passes the outcome of a call on to the item that shows its value. Returns false if the item
/// shows what the device holds, since the device did not accept the value.
template <class Value>
bool LayerEditor::follow(LayerItem &layer, ShownValue<Value> &value, quint64 number,
                         const Outcome &outcome)
{
    // What became of an old value may be known only when the layer has a newer one.
    const bool isOutdated = outcome.kind() == Outcome::Unknown && !value.isLast(number);
    if (outcome.isReplaced() || isOutdated)
        return true;
    DeviceSession *const device = m_selection.device();
    if (!outcome || !device) {
        value.follow();
        layer.show();
        return false;
    }
    if (value.isLast(number)) {
        device->modelUpdate().then(&layer, [&layer, &value, number](bool) {
            value.followAfter(number);
            layer.show();
        });
    }
    return true;
}

void LayerEditor::setWindow(LayerItem &layer, const QRect &window)
{
    DeviceSession *const device = m_selection.device();
    if (!device || window == layer.window())
        return;
    const quint64 number = layer.shownWindow().send(window);
    layer.show();
    const s_LayerWindow record{layer.id(), toRecord(window)};
    m_changes.callLatest(keyOf("window", layer), *device, &Control::Layer::writeWindow, {record})
        .then(&layer, [this, &layer, number](const Outcome &outcome) {
            if (!follow(layer, layer.shownWindow(), number, outcome))
                Q_EMIT windowFailed(&layer);
        });
}

void LayerEditor::finishWindow(const LayerItem &layer)
{
    if (m_selection.device())
        m_changes.finish(keyOf("window", layer));
}

void LayerEditor::setOpacity(LayerItem &layer, int percent)
{
    DeviceSession *const device = m_selection.device();
    percent = std::clamp(percent, 0, 100);
    if (!device || percent == layer.opacityPercent())
        return;
    const quint64 number = layer.shownOpacity().send(percent);
    layer.show();
    const s_LayerOpacity record{layer.id(), percent};
    m_changes.callLatest(keyOf("opacity", layer), *device, &Control::Layer::writeOpacity, {record})
        .then(&layer, [this, &layer, number](const Outcome &outcome) {
            follow(layer, layer.shownOpacity(), number, outcome);
        });
}

void LayerEditor::finishOpacity(const LayerItem &layer)
{
    if (m_selection.device())
        m_changes.finish(keyOf("opacity", layer));
}

void LayerEditor::setSource(const LayerItem &layer, const s_SourceGeneral &source)
{
    DeviceSession *const session = m_selection.device();
    const auto device = session ? session->device() : nullptr;
    const auto object = device ? device->findLayer(layer.id()).lock() : nullptr;
    if (!object)
        return;
    s_LayerSource record{layer.id(), object->detail().source};
    record.source.general = source;
    m_changes.call(*session, &Control::Layer::writeSource, {record});
}

void LayerEditor::restack(const ScreenItem &screen, const LayerItem &layer, StackingMove move)
{
    DeviceSession *const session = m_selection.device();
    const auto device = session ? session->device() : nullptr;
    if (!device || layer.isLocked())
        return;
    std::vector<s_LayerIdentity> ids;
    std::vector<int> positions;
    int moved = 0;
    const auto layers = screen.layers();
    for (const LayerItem *const other : layers) {
        const auto object = device->findLayer(other->id()).lock();
        if (!object || other->isLocked())
            continue;
        if (other == &layer)
            moved = static_cast<int>(ids.size());
        ids.push_back(other->id());
        positions.push_back(object->detail().zorder);
    }
    std::vector<s_LayerZorder> records;
    for (const StackingChange &change : restacked(positions, moved, move))
        records.push_back({ids[static_cast<std::size_t>(change.index)], change.position});
    if (!records.empty())
        m_changes.call(*session, &Control::Layer::writeZOrder, records);
}

} // namespace Tavoro::Panel
