// Lists the files on a device.

#include "commandlist.h"

#include <tavorocontrol/file.h>
#include <tavoroctl/arguments/fileplace.h>
#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/output/labels.h>
#include <tavoroctl/output/recordtext.h>
#include <tavoroctl/output/texttable.h>

namespace Tavoro::Ctl {

namespace {

constexpr int wildcard = -1;

QString tableOf(const std::vector<ProtoModel::File::s_FileDetail> &files)
{
    TextTable table(Texts::tr("TYPE ID NAME BYTES HASH PIXELS"));
    for (const ProtoModel::File::s_FileDetail &file : files) {
        const ProtoModel::File::s_FileSize &size = file.size;
        const QString pixels =
            size.width == 0 ? QString() : QStringLiteral("%1x%2").arg(size.width).arg(size.height);
        const QString hash =
            QStringLiteral("%1").arg(static_cast<quint32>(size.hashSum), 8, 16, QLatin1Char('0'));
        table.addRow({fileTypeName(file.fileType), number(file.fileId), textOf(file.general.name),
                      number(size.length), hash, pixels});
    }
    return table.text();
}

} // namespace

ExitStatus runFiles(Tool &tool, const Arguments &arguments)
{
    FilePlace place{wildcard, 0};
    QString fault;
    if (arguments.words.size() > 1
        && !readFilePlace(arguments.words.at(1), QStringLiteral("0"), place, fault))
        return refuse(tool, fault);
    ExitStatus status = Done;
    const auto device = openDevice(tool, arguments.words.at(0), status);
    if (!device)
        return status;
    std::vector<ProtoModel::File::s_FileDetail> files;
    QString error;
    if (!Control::File(device).readDetails(place.type, wildcard, files, error))
        return fail(tool, error);
    show(tool, recordText(files), tableOf(files));
    return Done;
}

} // namespace Tavoro::Ctl
