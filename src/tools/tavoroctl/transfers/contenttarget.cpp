#include "contenttarget.h"

#include <tavoroctl/arguments/texts.h>

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <unistd.h> // STDOUT_FILENO

namespace Tavoro::Ctl {

namespace {

/// QSaveFile would replace a device, a FIFO or a socket by a regular file.
bool isReplaceable(const QString &path)
{
    const QFileInfo file(path);
    return !file.exists() || file.isFile() || file.isDir();
}

} // namespace

ContentTarget::ContentTarget(const QString &path) : m_path(path)
{
    if (!isStandardOutput() && isReplaceable(path))
        m_device = std::make_unique<QSaveFile>(path);
    else
        m_device = std::make_unique<QFile>(path);
}

QString ContentTarget::name() const
{
    return isStandardOutput() ? Texts::tr("standard output") : m_path;
}

bool ContentTarget::open(QString &error)
{
    if (openDevice())
        return true;
    error = fault();
    return false;
}

bool ContentTarget::openDevice()
{
    constexpr QIODevice::OpenMode asItArrives = QIODevice::WriteOnly | QIODevice::Unbuffered;
    if (auto *const save = qobject_cast<QSaveFile *>(m_device.get()))
        return save->open(QIODevice::WriteOnly);
    auto &file = static_cast<QFile &>(*m_device);
    return isStandardOutput() ? file.open(STDOUT_FILENO, asItArrives)
                              : file.open(asItArrives | QIODevice::ExistingOnly);
}

bool ContentTarget::write(const std::string &bytes, QString &error)
{
    const char *rest = bytes.data();
    auto length = static_cast<qint64>(bytes.size());
    while (length > 0) {
        // A disk that is nearly full takes a part first and reports the error for the rest.
        const qint64 written = m_device->write(rest, length);
        if (written <= 0) {
            error = fault();
            return false;
        }
        rest += written;
        length -= written;
    }
    return true;
}

bool ContentTarget::commit(QString &error)
{
    auto *const save = qobject_cast<QSaveFile *>(m_device.get());
    if (!save || save->commit())
        return true;
    error = fault();
    return false;
}

QString ContentTarget::fault() const
{
    return Texts::tr("Cannot write %1: %2.").arg(name(), m_device->errorString());
}

} // namespace Tavoro::Ctl
