#include "snapshot.h"

#include "texttable.h"

#include <tavorocontrol/device.h>
#include <tavorocontrol/interface.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/proto/codec.h>
#include <tavorocontrol/screen.h>

#include <algorithm>
#include <tuple>

namespace Tavoro::Ctl {

using namespace ProtoModel;

namespace {

template <class Record>
std::string encoded(const Record &record)
{
    std::string text;
    ajson::encodeRecord(record, text);
    return text;
}

QString textOf(const std::string &text)
{
    return QString::fromStdString(text);
}

QString number(qint64 value)
{
    return QString::number(value);
}

QString idOf(const s_InterfaceID &id)
{
    return QStringLiteral("%1.%2.%3").arg(id.slotId).arg(id.connectorId).arg(id.splitId);
}

QString idOf(const s_ScreenId &id)
{
    return QStringLiteral("%1 (type %2)").arg(id.screenId).arg(id.screenType);
}

QString rectangle(const ProtoModel::Screen::s_Rect &rect)
{
    return QStringLiteral("%1x%2 at %3,%4")
        .arg(rect.width)
        .arg(rect.height)
        .arg(rect.x)
        .arg(rect.y);
}

QString timingOf(const s_TimingDetailBody &timing)
{
    if (timing.horizontal.addTime == 0)
        return QStringLiteral("no signal");
    return QStringLiteral("%1x%2%3%4")
        .arg(timing.horizontal.addTime)
        .arg(timing.vertical.addTime)
        .arg(timing.interlaced != 0 ? QLatin1Char('i') : QLatin1Char('p'))
        .arg(timing.refresh);
}

QString sceneOf(qint32 sceneType)
{
    switch (sceneType) {
    case 2:
        return QStringLiteral("preview");
    case 4:
        return QStringLiteral("programme");
    default:
        return number(sceneType);
    }
}

QString outputsOf(const ProtoModel::Screen::s_Mosaic &mosaic)
{
    QStringList outputs;
    for (const ProtoModel::Screen::s_MosaicOutput &output : mosaic.outputs)
        outputs += idOf(output.interfaceId);
    return outputs.join(QLatin1Char(' '));
}

QString deviceTable(const ProtoModel::Device::s_DeviceDetail &device)
{
    TextTable table({QStringLiteral("DEVICE"), textOf(device.general.name)});
    QStringList powers;
    for (const ProtoModel::Device::s_PowerBody &power : device.powers)
        powers += QStringLiteral("%1: %2").arg(power.powerId).arg(power.status);
    QStringList groups;
    for (const ProtoModel::Device::s_DeviceGroupInfoBody &group : device.groupInfos)
        groups += textOf(group.groupName);
    const QString comma = QStringLiteral(", ");
    table.addRow({QStringLiteral("status"), number(device.general.status)});
    table.addRow({QStringLiteral("swap"), number(device.swap)});
    table.addRow({QStringLiteral("genlock signal"), number(device.genlockSignal.status)});
    table.addRow({QStringLiteral("power supplies"), powers.join(comma)});
    table.addRow({QStringLiteral("cards"), number(static_cast<qint64>(device.subcards.size()))});
    table.addRow({QStringLiteral("groups"), groups.join(comma)});
    return table.text();
}

QStringList headings(const char *words)
{
    return QString::fromLatin1(words).split(QLatin1Char(' '));
}

QString tableOf(const std::vector<ProtoModel::Interface::s_InterfaceDetail> &interfaces)
{
    TextTable table(headings("INTERFACE TYPE NAME TIMING DEPTH HDCP"));
    for (const ProtoModel::Interface::s_InterfaceDetail &interface : interfaces)
        table.addRow({idOf(interface.interfaceId), number(interface.general.type),
                      textOf(interface.general.name), timingOf(interface.actualTiming),
                      number(interface.colorDepths.actualColorDepth),
                      number(interface.HDCP.enable)});
    return table.text();
}

QString tableOf(const std::vector<ProtoModel::Screen::s_ScreenFullDetail> &screens)
{
    TextTable table(headings("SCREEN NAME WINDOW FREEZE FTB T-BAR OUTPUTS"));
    for (const ProtoModel::Screen::s_ScreenFullDetail &screen : screens)
        table.addRow({idOf(screen), textOf(screen.general.name), rectangle(screen.mosaic.window),
                      number(screen.freeze), number(screen.FTB.enable), number(screen.tbar.percent),
                      outputsOf(screen.mosaic)});
    return table.text();
}

/// Each scene as it is stacked, lowest layer first.
QString tableOf(std::vector<ProtoModel::Layer::s_LayerFullDetail> layers)
{
    const auto placeOf = [](const ProtoModel::Layer::s_LayerFullDetail &layer) {
        const ProtoModel::Layer::s_LayerIdentity &id = layer.layerIdenti;
        return std::make_tuple(id.screenType, id.screenId, id.sceneType, layer.zorder);
    };
    std::stable_sort(layers.begin(), layers.end(),
                     [&](const auto &a, const auto &b) { return placeOf(a) < placeOf(b); });
    TextTable table(headings("LAYER SCREEN SCENE TYPE Z NAME SOURCE WINDOW OPACITY"));
    for (const ProtoModel::Layer::s_LayerFullDetail &layer : layers) {
        const ProtoModel::Layer::s_SourceGeneral &source = layer.source.general;
        table.addRow({number(layer.layerIdenti.layerId), idOf(layer.layerIdenti),
                      sceneOf(layer.layerIdenti.sceneType), number(layer.layerIdenti.layerType),
                      number(layer.zorder), textOf(layer.general.name),
                      QStringLiteral("%1:%2").arg(source.type).arg(source.id),
                      rectangle(layer.window), number(layer.opacity)});
    }
    return table.text();
}

} // namespace

bool Snapshot::read(const std::weak_ptr<BizModel::Device> &from, QString &error)
{
    return Control::Device(from, nullptr).readDetails(device, error)
        && Control::Interface(from, nullptr).readDetails(0, -1, interfaces, error)
        && Control::Screen(from, nullptr).readDetails(-1, 0, -1, screens, error)
        && Control::Layer(from, nullptr).readDetails(-1, -1, -1, -1, layers, error);
}

std::string Snapshot::json() const
{
    return R"({"device":)" + encoded(device) + R"(,"interfaces":)" + encoded(interfaces)
        + R"(,"screens":)" + encoded(screens) + R"(,"layers":)" + encoded(layers) + '}';
}

QString Snapshot::tables() const
{
    const QString gap = QStringLiteral("\n");
    return deviceTable(device) + gap + tableOf(interfaces) + gap + tableOf(screens) + gap
        + tableOf(layers);
}

} // namespace Tavoro::Ctl
