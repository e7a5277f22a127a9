#include "modeltree.h"

#include "jsonline.h"
#include "labels.h"
#include "texttable.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavoroctl/arguments/fileplace.h>
#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/output/recordtext.h>

#include <algorithm>
#include <vector>

namespace Tavoro::Ctl {

namespace {

constexpr qint32 input = 1; ///< Type of an interface; all other types are outputs.

QString indented(const QString &text, int depth)
{
    QString lines;
    for (const QString &line : text.trimmed().split(QLatin1Char('\n')))
        lines += QStringLiteral("  ").repeated(depth) + line + QLatin1Char('\n');
    return lines;
}

/// \a table under its heading; empty for a table without rows.
QString branch(const QString &heading, const TextTable &table, int depth = 1)
{
    const QString text = table.text();
    return text.isEmpty() ? text : indented(heading, depth) + indented(text, depth + 1);
}

QString cardBranch(const ProtoModel::Device::s_DeviceDetail &device)
{
    TextTable table;
    for (const ProtoModel::Device::s_subcardBody &card : device.subcards)
        table.addRow({Texts::tr("slot %1").arg(card.slotId),
                      modelName(static_cast<quint32>(card.modelId)),
                      Texts::tr("%1 connectors").arg(card.connectors.size()),
                      card.online != 0 ? Texts::tr("online") : Texts::tr("offline")});
    return branch(Texts::tr("cards"), table);
}

QString powerBranch(const ProtoModel::Device::s_DeviceDetail &device)
{
    TextTable table;
    for (const ProtoModel::Device::s_PowerBody &power : device.powers)
        table.addRow(
            {number(power.powerId), power.status != 0 ? Texts::tr("works") : Texts::tr("fails")});
    return branch(Texts::tr("power supplies"), table);
}

QString groupBranch(const ProtoModel::Device::s_DeviceDetail &device)
{
    TextTable table;
    for (const ProtoModel::Device::s_DeviceGroupInfoBody &group : device.groupInfos)
        table.addRow({textOf(group.groupId), textOf(group.groupName)});
    return branch(Texts::tr("groups"), table);
}

QString interfaceBranch(const BizModel::Device &device, const QString &heading, bool inputs)
{
    TextTable table;
    for (const auto &weak : device.interfaces()) {
        const auto interface = weak.lock();
        if (!interface || (interface->detail().general.type == input) != inputs)
            continue;
        const auto detail = interface->detail();
        const auto screen = interface->screen().lock();
        table.addRow({idOf(detail.interfaceId), textOf(detail.general.name),
                      timingOf(detail.actualTiming),
                      screen ? Texts::tr("on screen %1").arg(idOf(screen->detail())) : QString()});
    }
    return branch(heading, table);
}

QString sourceName(const BizModel::Layer &layer)
{
    const auto interface = layer.source().lock();
    if (!interface)
        return sourceOf(layer.detail().source.general);
    const auto detail = interface->detail();
    return idOf(detail.interfaceId) + QLatin1Char(' ') + textOf(detail.general.name);
}

/// The layers of one scene as they are stacked, lowest first.
QString sceneBranch(const BizModel::Screen &screen, qint32 sceneType)
{
    std::vector<std::shared_ptr<BizModel::Layer>> layers;
    for (const auto &weak : screen.layers()) {
        const auto layer = weak.lock();
        if (layer && layer->identity().sceneType == sceneType)
            layers.push_back(layer);
    }
    std::stable_sort(layers.begin(), layers.end(), [](const auto &a, const auto &b) {
        return a->detail().zorder < b->detail().zorder;
    });
    TextTable table;
    for (const auto &layer : layers) {
        const auto detail = layer->detail();
        table.addRow({Texts::tr("layer %1").arg(detail.layerIdenti.layerId),
                      QStringLiteral("z %1").arg(detail.zorder), textOf(detail.general.name),
                      sourceName(*layer), rectangle(detail.window),
                      Texts::tr("opacity %1").arg(detail.opacity)});
    }
    return branch(sceneOf(sceneType), table, 2);
}

QString screenBranch(const BizModel::Screen &screen)
{
    constexpr qint32 preview = 2;
    constexpr qint32 programme = 4;
    const auto detail = screen.detail();
    QStringList words{Texts::tr("screen %1").arg(idOf(detail)), textOf(detail.general.name),
                      rectangle(detail.mosaic.window)};
    if (detail.freeze != 0)
        words += Texts::tr("frozen");
    if (detail.FTB.enable != 0)
        words += Texts::tr("faded to black");
    return indented(words.join(QStringLiteral("  ")), 1) + sceneBranch(screen, preview)
        + sceneBranch(screen, programme);
}

QString fileBranch(const BizModel::Device &device)
{
    TextTable table;
    for (const auto &weak : device.files()) {
        const auto file = weak.lock();
        if (!file)
            continue;
        const auto detail = file->detail();
        table.addRow({fileTypeName(detail.fileType), number(detail.fileId),
                      textOf(detail.general.name), Texts::tr("%1 bytes").arg(detail.size.length)});
    }
    return branch(Texts::tr("files"), table);
}

template <class Object>
std::string encodedList(const QList<std::weak_ptr<Object>> &objects)
{
    std::string list;
    for (const auto &weak : objects) {
        if (const auto object = weak.lock())
            list += (list.empty() ? "" : ",") + recordText(object->detail());
    }
    return '[' + list + ']';
}

constexpr int allScreens = 0x1E; ///< A bit for each kind.

} // namespace

QString modelTree(const BizModel::Device &device)
{
    const auto detail = device.deviceDetail();
    QString tree = Texts::tr("%1  %2  MAC %3  serial number %4  model %5  %6")
                       .arg(textOf(detail.general.name), device.IPAddress(), device.MAC(),
                            device.sn(), modelName(device.modelId()),
                            device.isOnline() ? Texts::tr("online") : Texts::tr("offline"));
    tree += QLatin1Char('\n') + cardBranch(detail) + powerBranch(detail) + groupBranch(detail);
    tree += interfaceBranch(device, Texts::tr("inputs"), true);
    tree += interfaceBranch(device, Texts::tr("outputs"), false);
    for (const auto &weak : device.screens(allScreens)) {
        if (const auto screen = weak.lock())
            tree += screenBranch(*screen);
    }
    return tree + fileBranch(device);
}

std::string modelJson(const BizModel::Device &device)
{
    return formatHead() + R"("device":)" + recordText(device.deviceDetail()) + R"(,"interfaces":)"
        + encodedList(device.interfaces()) + R"(,"screens":)"
        + encodedList(device.screens(allScreens)) + R"(,"layers":)" + encodedList(device.layers())
        + R"(,"files":)" + encodedList(device.files()) + '}';
}

} // namespace Tavoro::Ctl
