// Sends a file to a device: the announcement, then the content in pieces of the channel's size.

#include "commandlist.h"

#include <tavorobizmodel/device.h>
#include <tavorocontrol/file.h>
#include <tavoroctl/arguments/fileplace.h>
#include <tavoroctl/session/background.h>
#include <tavoroctl/session/interruption.h>
#include <tavorowire/checksums.h>

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <atomic>
#include <limits>

namespace Tavoro::Ctl {

namespace {

using ProtoModel::File::s_FileInfo;
using ProtoModel::File::s_FileSize;

/// Fills in length and hash sum, as the device works it out: a CRC-32, told as a signed number.
bool measure(QFile &content, s_FileSize &size, QString &error)
{
    if (content.size() > std::numeric_limits<qint32>::max()) {
        error = QStringLiteral("%1 is longer than a device takes.").arg(content.fileName());
        return false;
    }
    constexpr qint64 most = 1 << 20;
    quint32 sum = 0;
    qint64 length = 0;
    QByteArray piece;
    while (!(piece = content.read(most)).isEmpty()) {
        sum =
            SSProxy::Wire::crc32({piece.constData(), static_cast<std::size_t>(piece.size())}, sum);
        length += piece.size();
    }
    if (content.error() != QFile::NoError || !content.seek(0)) {
        error =
            QStringLiteral("%1 cannot be read: %2").arg(content.fileName(), content.errorString());
        return false;
    }
    size.length = static_cast<qint32>(length);
    size.hashSum = static_cast<qint32>(sum);
    return true;
}

bool readSize(const QString &text, s_FileSize &size)
{
    static const QRegularExpression form(QStringLiteral("^([1-9]\\d{0,5})x([1-9]\\d{0,5})$"));
    const QRegularExpressionMatch match = form.match(text);
    size.width = match.captured(1).toInt();
    size.height = match.captured(2).toInt();
    return match.hasMatch();
}

/// What \a arguments say of the file; false with what is wrong in \a fault.
bool readInfo(const Arguments &arguments, s_FileInfo &info, QString &fault)
{
    const auto &options = arguments.options;
    FilePlace place;
    const QString type = options.value(QStringLiteral("type"), QStringLiteral("background"));
    if (!readFilePlace(type, options.value(QStringLiteral("id"), QStringLiteral("0")), place,
                       fault))
        return false;
    info.fileType = place.type;
    info.fileId = place.id;
    const QString fileName = QFileInfo(arguments.words.at(1)).fileName();
    info.general.name = options.value(QStringLiteral("name"), fileName).toStdString();
    const QString size = options.value(QStringLiteral("size"));
    if (!size.isNull() && !readSize(size, info.size))
        fault = QStringLiteral("\"%1\" is not WIDTHxHEIGHT").arg(size);
    return fault.isEmpty();
}

class Upload {
public:
    Upload(Tool &tool, const std::shared_ptr<BizModel::Device> &device, const s_FileInfo &info)
        : m_console(tool.console), m_target(device), m_info(info)
    {
        constexpr quint32 most = 1 << 20; // Of a device that takes any length, or says so.
        const quint32 limit = device->deviceBaseInfo().maxPacketSize;
        m_pieceLength = limit == 0 ? most : std::min(limit, most);
    }

    void cancel() { m_isCancelled = true; }

    bool run(QFile &content)
    {
        if (!m_target.importFile({m_info}, error))
            return false;
        const auto length = static_cast<quint32>(m_info.size.length);
        const quint32 count = std::max(1u, (length + m_pieceLength - 1) / m_pieceLength);
        for (quint32 i = 0; i < count; ++i) {
            if (m_isCancelled) {
                error = QStringLiteral("Interrupted.");
                return false;
            }
            const std::string piece = content.read(m_pieceLength).toStdString();
            const auto type = static_cast<BizModel::Enum::File::FileType>(m_info.fileType);
            if (!m_target.writeFileBinary(piece, type, m_info.fileId, count, i, error, false))
                return false;
            const auto percent = static_cast<int>((i + 1) * quint64{100} / count);
            if (std::exchange(m_percent, percent) != percent)
                m_console.progress(percent, QString::fromStdString(m_info.general.name));
        }
        return true;
    }

    QString error;

private:
    Console &m_console;
    Control::File m_target;
    const s_FileInfo m_info;
    quint32 m_pieceLength = 0;
    int m_percent = -1;
    std::atomic<bool> m_isCancelled = false;
};

} // namespace

ExitStatus runPush(Tool &tool, const Arguments &arguments)
{
    s_FileInfo info;
    QString fault;
    if (!readInfo(arguments, info, fault))
        return refuse(tool, fault);
    const QString path = arguments.words.at(1);
    if (path.isEmpty())
        return refuseEmpty(tool, QStringLiteral("FILE"));
    QFile content(path);
    if (!content.open(QIODevice::ReadOnly))
        return fail(
            tool,
            QStringLiteral("%1 cannot be read: %2").arg(content.fileName(), content.errorString()));
    QString error;
    if (!measure(content, info.size, error))
        return fail(tool, error);
    ExitStatus status = Done;
    const auto device = openDevice(tool, arguments.words.at(0), status);
    if (!device)
        return status;

    Upload upload(tool, device, info);
    const Interruption interruption([&] { upload.cancel(); });
    bool isDone = false;
    runInBackground([&] { isDone = upload.run(content); });
    return isDone ? Done : fail(tool, upload.error);
}

} // namespace Tavoro::Ctl
