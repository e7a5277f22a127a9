// Sends a file to a device.

#include "commandlist.h"

#include <tavorobizmodel/device.h>
#include <tavorocontrol/file.h>
#include <tavoroctl/arguments/fileplace.h>
#include <tavoroctl/arguments/texts.h>
#include <tavoroctl/session/background.h>
#include <tavoroctl/session/interruption.h>
#include <tavoroctl/transfers/upload.h>

#include <QRegularExpression>

#include <map>
#include <vector>

namespace Tavoro::Ctl {

namespace {

using ProtoModel::File::s_FileInfo;
using ProtoModel::File::s_FileSize;

bool readPixels(const QString &text, s_FileSize &size)
{
    static const QRegularExpression form(QStringLiteral("^([1-9]\\d{0,5})x([1-9]\\d{0,5})$"));
    const QRegularExpressionMatch match = form.match(text);
    size.width = match.captured(1).toInt();
    size.height = match.captured(2).toInt();
    return match.hasMatch();
}

/// Reads the options into the announcement. False with the fault of the command line.
bool readOptions(const QMap<QString, QString> &options, s_FileInfo &info, QString &fault)
{
    FilePlace place;
    const QString type = options.value(QStringLiteral("type"), QStringLiteral("background"));
    if (!readFilePlace(type, options.value(QStringLiteral("id"), QStringLiteral("0")), place,
                       fault))
        return false;
    info.fileType = place.type;
    info.fileId = place.id;
    const QString size = options.value(QStringLiteral("size"));
    if (!size.isNull() && !readPixels(size, info.size))
        fault = Texts::tr("\"%1\" is not WIDTHxHEIGHT").arg(size);
    return fault.isEmpty();
}

/// The device computes the checksum as a CRC-32 and reports it as a signed number.
void announce(const ContentSource &content, const QMap<QString, QString> &options, s_FileInfo &info)
{
    info.general.name = options.value(QStringLiteral("name"), content.fileName()).toStdString();
    info.size.length = content.length();
    info.size.hashSum = static_cast<qint32>(content.checksum());
}

/// A sentence if \a content would take more packets than a client accepts when it fetches the file.
QString faultOfLength(const Tool &tool, const BizModel::Device &device,
                      const ContentSource &content)
{
    const quint64 packetSize = device.deviceBaseInfo().maxPacketSize;
    const quint64 longest = packetSize * tool.session.maxPacketCount();
    if (packetSize == 0 || static_cast<quint64>(content.length()) <= longest)
        return {};
    return Texts::tr("%1 has %2 bytes. The device could not return more than %3: a client takes "
                     "at most %4 packets, and the packets of this device have %5 bytes.")
        .arg(content.name())
        .arg(content.length())
        .arg(longest)
        .arg(tool.session.maxPacketCount())
        .arg(packetSize);
}

/// Finds a free ID, or checks that the given one is free. False with the reason in \a error.
bool choosePlace(const std::shared_ptr<BizModel::Device> &device,
                 const QMap<QString, QString> &options, s_FileInfo &info, QString &error)
{
    constexpr int all = -1;
    std::vector<ProtoModel::File::s_FileDetail> files;
    if (!Control::File(device).readDetails(info.fileType, all, files, error))
        return false;
    std::map<int, QString> names;
    for (const ProtoModel::File::s_FileDetail &file : files)
        names[file.fileId] = QString::fromStdString(file.general.name);
    const QString place = fileTypeName(info.fileType);
    if (options.contains(QStringLiteral("id"))) {
        const auto present = names.find(info.fileId);
        if (present == names.end() || options.contains(QStringLiteral("force")))
            return true;
        error = Texts::tr("The device has the file %1 %2 (\"%3\"). Replace it with --force, "
                          "or leave --id out.")
                    .arg(place)
                    .arg(info.fileId)
                    .arg(present->second);
        return false;
    }
    for (info.fileId = 0; names.count(info.fileId) != 0; ++info.fileId) { }
    if (info.fileId > highestFileNumber)
        error = Texts::tr("The device has no free ID for a file of the type %1.").arg(place);
    return info.fileId <= highestFileNumber;
}

} // namespace

ExitStatus runPush(Tool &tool, const Arguments &arguments)
{
    s_FileInfo info;
    QString fault;
    if (!readOptions(arguments.options, info, fault))
        return refuse(tool, fault);
    const QString path = arguments.words.at(1);
    if (path.isEmpty())
        return refuseEmpty(tool, QStringLiteral("FILE"));
    ContentSource content(path);
    QString error;
    if (!content.open(error))
        return fail(tool, error, Failed);
    announce(content, arguments.options, info);
    ExitStatus status = Done;
    const auto device = openDevice(tool, arguments.words.at(0), status);
    if (!device)
        return status;

    error = faultOfLength(tool, *device, content);
    if (!error.isEmpty())
        return fail(tool, error, Failed);
    if (!choosePlace(device, arguments.options, info, error))
        return fail(tool, error);
    tool.console.streamProgress();
    // The status bar would show a lost answer to the last packet as a failure, but the upload may
    // have succeeded.
    tool.console.showStatusBar(StatusBar::Nothing);
    Upload upload(tool.console, {device, tool.session.channel(*device), tool.timeout}, info);
    const Interruption interruption([&] { upload.cancel(); });
    bool isDone = false;
    runInBackground([&] { isDone = upload.run(content); });
    if (!isDone)
        return upload.isCancelled() ? fail(tool, upload.error(), Interrupted)
                                    : fail(tool, upload.error(), upload.lastExchange());
    if (!tool.console.isJson() && !arguments.options.contains(QStringLiteral("id")))
        tool.console.answer(QString::number(info.fileId));
    return finish(tool,
                  {{QStringLiteral("fileType"), info.fileType},
                   {QStringLiteral("fileId"), info.fileId},
                   {QStringLiteral("name"), QString::fromStdString(info.general.name)},
                   {QStringLiteral("bytes"), info.size.length}});
}

} // namespace Tavoro::Ctl
