// Fetches a file from a device.

#include "commandlist.h"

#include <tavoroctl/arguments/fileplace.h>
#include <tavoroctl/session/background.h>
#include <tavoroctl/session/interruption.h>
#include <tavoroctl/transfers/download.h>

namespace Tavoro::Ctl {

namespace {

/// Reads what the device's record says of the file. Succeeds without a record: the fetch itself
/// reports a missing file.
bool readSize(const std::shared_ptr<BizModel::Device> &device, const FilePlace &place,
              ProtoModel::File::s_FileSize &size, QString &error)
{
    std::vector<ProtoModel::File::s_FileDetail> files;
    if (!Control::File(device).readDetails(place.type, place.id, files, error))
        return false;
    if (!files.empty())
        size = files.front().size;
    return true;
}

/// The content itself may be the output.
ExitStatus finishPull(Tool &tool, const FilePlace &place, const ContentTarget &target)
{
    if (target.isStandardOutput())
        return Done;
    return finish(tool,
                  {{QStringLiteral("fileType"), place.type},
                   {QStringLiteral("fileId"), place.id},
                   {QStringLiteral("file"), target.name()}});
}

} // namespace

ExitStatus runPull(Tool &tool, const Arguments &arguments)
{
    FilePlace place;
    QString fault;
    if (!readFilePlace(arguments.words.at(1), arguments.words.at(2), place, fault))
        return refuse(tool, fault);
    const QString path = arguments.words.at(3);
    if (path.isEmpty())
        return refuseEmpty(tool, QStringLiteral("FILE"));
    ExitStatus status = Done;
    tool.session.acceptAnyPacketCount(); // Download limits them by the announced length.
    const auto device = openDevice(tool, arguments.words.at(0), status);
    if (!device)
        return status;
    QString error;
    ProtoModel::File::s_FileSize size;
    if (!readSize(device, place, size, error))
        return fail(tool, error);
    ContentTarget target(path);
    if (!target.open(error))
        return fail(tool, error, Failed);
    if (!target.isStandardOutput())
        tool.console.streamProgress();

    Download download(tool.console, device, target, size);
    const Interruption interruption([&] { download.cancel(); });
    runInBackground([&] { download.run(place); });
    error = download.error();
    if (!error.isEmpty() && target.hasFailed())
        return fail(tool, error, target.isStandardOutput() ? OutputFailed : Failed);
    if (!error.isEmpty())
        return interruption.isInterrupted() ? fail(tool, error, Interrupted)
                                            : fail(tool, error, download.lastExchange());
    // A signal that arrived with the last packet counts too.
    if (interruption.isInterrupted())
        return fail(tool, QStringLiteral("Interrupted."), Interrupted);
    return target.commit(error) ? finishPull(tool, place, target) : fail(tool, error, Failed);
}

} // namespace Tavoro::Ctl
