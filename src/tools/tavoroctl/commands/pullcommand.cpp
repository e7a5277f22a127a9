// Fetches a file of a device, packet by packet.

#include "commandlist.h"

#include <tavorocontrol/file.h>
#include <tavoroctl/arguments/fileplace.h>
#include <tavoroctl/session/background.h>
#include <tavoroctl/session/interruption.h>
#include <tavorowire/checksums.h>

#include <QFileInfo>
#include <QSaveFile>

namespace Tavoro::Ctl {

namespace {

QString writeFault(const QSaveFile &target)
{
    return QStringLiteral("%1 cannot be written: %2").arg(target.fileName(), target.errorString());
}

/// What the device says of the content; length and hash sum 0 are not checked.
bool readSize(const std::shared_ptr<BizModel::Device> &device, const FilePlace &place,
              ProtoModel::File::s_FileSize &size, QString &error)
{
    std::vector<ProtoModel::File::s_FileDetail> files;
    if (!Control::File(device).readDetails(place.type, place.id, files, error))
        return false;
    if (!files.empty())
        size = files.front().size;
    return true; // That the file is not there is told when it is fetched.
}

/// Writes what arrives, until something goes wrong.
class Download {
public:
    Download(Console &console, Control::File &source, QSaveFile &target)
        : m_console(console),
          m_source(source),
          m_target(target),
          m_name(QFileInfo(target.fileName()).fileName())
    { }

    void run(const FilePlace &place)
    {
        m_source.readBinary(
            place.type, place.id,
            [this](bool ok, double share, const std::string &data, QString &reason) {
                if (ok)
                    write(share, data);
                else
                    stop(reason);
            });
    }

    /// Why it ended early, or what is wrong with what has come; empty when all of it is written.
    QString error(const ProtoModel::File::s_FileSize &size) const
    {
        if (!m_error.isEmpty())
            return m_error;
        if (size.length != 0 && size.length != m_length)
            return QStringLiteral("%1 bytes have come, but the device tells of %2.")
                .arg(m_length)
                .arg(size.length);
        if (size.hashSum != 0 && static_cast<quint32>(size.hashSum) != m_hashSum)
            return QStringLiteral("What has come has another hash sum than the device tells.");
        return {};
    }

private:
    void write(double share, const std::string &data)
    {
        if (!writeAll(data.data(), static_cast<qint64>(data.size()))) {
            stop(writeFault(m_target));
            m_source.setCancelledState(true);
        }
        m_length += static_cast<qint64>(data.size());
        m_hashSum = SSProxy::Wire::crc32(data, m_hashSum);
        const int percent = static_cast<int>(share * 100);
        if (std::exchange(m_percent, percent) != percent)
            m_console.progress(percent, m_name);
    }

    /// A disk that is nearly full takes a part, and only then tells why not the rest.
    bool writeAll(const char *data, qint64 length)
    {
        while (length > 0) {
            const qint64 written = m_target.write(data, length);
            if (written <= 0)
                return false;
            data += written;
            length -= written;
        }
        return true;
    }

    /// The first reason is the one: what comes after it follows from it.
    void stop(const QString &reason)
    {
        if (m_error.isEmpty())
            m_error = reason;
    }

    Console &m_console;
    Control::File &m_source;
    QSaveFile &m_target;
    const QString m_name;
    qint64 m_length = 0;
    quint32 m_hashSum = 0;
    int m_percent = -1;
    QString m_error;
};

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
    const auto device = openDevice(tool, arguments.words.at(0), status);
    if (!device)
        return status;
    QString error;
    ProtoModel::File::s_FileSize size;
    if (!readSize(device, place, size, error))
        return fail(tool, error);
    // Nothing stands under its name before commit(), and nothing is left without it.
    QSaveFile target(path);
    if (!target.open(QIODevice::WriteOnly))
        return fail(tool, writeFault(target));

    Control::File source(device);
    const Interruption interruption([&] { source.setCancelledState(true); });
    Download download(tool.console, source, target);
    runInBackground([&] { download.run(place); });
    error = download.error(size);
    if (!error.isEmpty())
        return fail(tool, error);
    // A signal that came with the last packet counts too.
    if (interruption.hasCome())
        return fail(tool, QStringLiteral("Interrupted."));
    return target.commit() ? Done : fail(tool, writeFault(target));
}

} // namespace Tavoro::Ctl
