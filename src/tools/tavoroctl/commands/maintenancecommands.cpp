// Self check, versions and restart of a device.

#include "commandlist.h"

#include <tavorocontrol/auxiliary.h>
#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/output/labels.h>
#include <tavoroctl/output/recordtext.h>
#include <tavoroctl/output/texttable.h>

namespace Tavoro::Ctl {

using namespace ProtoModel::Auxiliary;

namespace {

QString selfCheckTable(const s_DeviceSelfCheckDetail &detail)
{
    TextTable table(Texts::tr("SLOT TYPE MODEL MEASUREMENT VALUE MIN MAX STATE"));
    for (const s_SelfCheckPart &part : detail.parts) {
        for (const s_SelfCheckItem &item : part.section)
            table.addRow({number(part.slotId), number(part.type), modelName(part.modelId),
                          textOf(item.name), textOf(item.value), textOf(item.min), textOf(item.max),
                          item.state == 0 ? Texts::tr("good") : Texts::tr("faulty")});
    }
    return table.text();
}

int countFaults(const s_DeviceSelfCheckDetail &detail)
{
    int faults = 0;
    for (const s_SelfCheckPart &part : detail.parts) {
        for (const s_SelfCheckItem &item : part.section)
            faults += item.state == 0 ? 0 : 1;
    }
    return faults;
}

QString versionTable(const s_DeviceVersion &version)
{
    TextTable table(Texts::tr("SLOT TYPE MODEL SECTION VERSION"));
    table.addRow({Texts::tr("device"), {}, {}, {}, textOf(version.version)});
    for (const s_VersionPart &part : version.parts) {
        table.addRow({number(part.slotId),
                      number(part.type),
                      modelName(part.modelId),
                      {},
                      textOf(part.version)});
        for (const s_VersionSection &section : part.section)
            table.addRow({{},
                          {},
                          {},
                          QStringLiteral("%1 %2").arg(section.code).arg(textOf(section.brief)),
                          textOf(section.version)});
    }
    return table.text();
}

} // namespace

ExitStatus runSelfCheck(Tool &tool, const Arguments &arguments)
{
    ExitStatus status = Done;
    const auto device = openDevice(tool, arguments.words.at(0), status);
    if (!device)
        return status;
    s_DeviceSelfCheckDetail detail;
    QString error;
    if (!Control::Auxiliary(device).readDeviceSelfCheckDetail(detail, error))
        return fail(tool, error);
    show(tool, recordText(detail), selfCheckTable(detail));
    const int faults = countFaults(detail);
    return faults == 0
        ? Done
        : fail(tool, Texts::tr("The self check reports a fault in %1.").arg(faults), Failed);
}

ExitStatus runVersion(Tool &tool, const Arguments &arguments)
{
    ExitStatus status = Done;
    const auto device = openDevice(tool, arguments.words.at(0), status);
    if (!device)
        return status;
    s_DeviceVersion version;
    QString error;
    if (!Control::Auxiliary(device).readDeviceVersion(version, error))
        return fail(tool, error);
    show(tool, recordText(version), versionTable(version));
    return Done;
}

ExitStatus runReboot(Tool &tool, const Arguments &arguments)
{
    constexpr qint32 restart = 0; // 1 would shut the device down.
    return carryOut(tool, arguments.words.at(0), [&](const auto &device, QString &error) {
        return Control::Auxiliary(device).writeRestartShutdown({restart}, error);
    });
}

} // namespace Tavoro::Ctl
