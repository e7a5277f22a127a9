#include "snapshot.h"

#include <tavorocontrol/device.h>
#include <tavorocontrol/interface.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/screen.h>
#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/output/jsonline.h>
#include <tavoroctl/output/labels.h>
#include <tavoroctl/output/recordtext.h>
#include <tavoroctl/output/texttable.h>

#include <algorithm>
#include <tuple>

namespace Tavoro::Ctl {

using namespace ProtoModel;

namespace {

QString outputsOf(const ProtoModel::Screen::s_Mosaic &mosaic)
{
    QStringList outputs;
    for (const ProtoModel::Screen::s_MosaicOutput &output : mosaic.outputs)
        outputs += idOf(output.interfaceId);
    return outputs.join(QLatin1Char(' '));
}

QString deviceTable(const ProtoModel::Device::s_DeviceDetail &device)
{
    TextTable table({Texts::tr("DEVICE"), textOf(device.general.name)});
    QStringList powers;
    for (const ProtoModel::Device::s_PowerBody &power : device.powers)
        powers += QStringLiteral("%1: %2").arg(power.powerId).arg(power.status);
    QStringList groups;
    for (const ProtoModel::Device::s_DeviceGroupInfoBody &group : device.groupInfos)
        groups += textOf(group.groupName);
    const QString comma = QStringLiteral(", ");
    table.addRow({Texts::tr("status"), number(device.general.status)});
    table.addRow({Texts::tr("swap"), number(device.swap)});
    table.addRow({Texts::tr("genlock signal"), number(device.genlockSignal.status)});
    table.addRow({Texts::tr("power supplies"), powers.join(comma)});
    table.addRow({Texts::tr("cards"), number(static_cast<qint64>(device.subcards.size()))});
    table.addRow({Texts::tr("groups"), groups.join(comma)});
    return table.text();
}

QString tableOf(const std::vector<ProtoModel::Interface::s_InterfaceDetail> &interfaces)
{
    TextTable table(Texts::tr("INTERFACE TYPE NAME TIMING DEPTH HDCP"));
    for (const ProtoModel::Interface::s_InterfaceDetail &interface : interfaces)
        table.addRow({idOf(interface.interfaceId), number(interface.general.type),
                      textOf(interface.general.name), timingOf(interface.actualTiming),
                      number(interface.colorDepths.actualColorDepth),
                      number(interface.HDCP.enable)});
    return table.text();
}

QString tableOf(const std::vector<ProtoModel::Screen::s_ScreenFullDetail> &screens)
{
    TextTable table(Texts::tr("SCREEN NAME WINDOW FREEZE FTB T-BAR OUTPUTS"));
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
    TextTable table(Texts::tr("LAYER SCREEN SCENE TYPE Z NAME SOURCE WINDOW OPACITY"));
    for (const ProtoModel::Layer::s_LayerFullDetail &layer : layers) {
        table.addRow({number(layer.layerIdenti.layerId), idOf(layer.layerIdenti),
                      sceneOf(layer.layerIdenti.sceneType), number(layer.layerIdenti.layerType),
                      number(layer.zorder), textOf(layer.general.name),
                      sourceOf(layer.source.general), rectangle(layer.window),
                      number(layer.opacity)});
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
    return formatHead() + R"("device":)" + recordText(device) + R"(,"interfaces":)"
        + recordText(interfaces) + R"(,"screens":)" + recordText(screens) + R"(,"layers":)"
        + recordText(layers) + '}';
}

QString Snapshot::tables() const
{
    const QString gap = QStringLiteral("\n");
    return deviceTable(device) + gap + tableOf(interfaces) + gap + tableOf(screens) + gap
        + tableOf(layers);
}

} // namespace Tavoro::Ctl
