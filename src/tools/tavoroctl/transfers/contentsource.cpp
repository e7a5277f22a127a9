#include "contentsource.h"

#include <tavoroctl/arguments/texts.h>
#include <tavorowire/checksums.h>

#include <QFileInfo>
#include <QTemporaryFile>

#include <limits>

#include <unistd.h> // STDIN_FILENO

namespace Tavoro::Ctl {

QString ContentSource::name() const
{
    return isStandardInput() ? Texts::tr("standard input") : m_path;
}

QString ContentSource::fileName() const
{
    return isStandardInput() ? QStringLiteral("stdin") : QFileInfo(m_path).fileName();
}

bool ContentSource::open(QString &error)
{
    auto file = std::make_unique<QFile>(m_path);
    const bool isOpen = isStandardInput() ? file->open(STDIN_FILENO, QIODevice::ReadOnly)
                                          : file->open(QIODevice::ReadOnly);
    if (!isOpen) {
        error = fault(*file);
        return false;
    }
    if (file->isSequential()) {
        auto copy = std::make_unique<QTemporaryFile>();
        if (!copy->open()) {
            error = fault(*copy);
            return false;
        }
        if (!measure(*file, copy.get(), error))
            return false;
        m_content = std::move(copy);
    } else {
        if (!measure(*file, nullptr, error))
            return false;
        m_content = std::move(file);
    }
    if (m_content->seek(0))
        return true;
    error = fault(*m_content);
    return false;
}

bool ContentSource::measure(QFile &from, QFile *copy, QString &error)
{
    constexpr qint64 most = 1 << 20;
    constexpr qint64 longest = std::numeric_limits<qint32>::max();
    qint64 length = 0;
    QByteArray piece;
    while (!(piece = from.read(most)).isEmpty()) {
        m_checksum = SSProxy::Wire::crc32(
            {piece.constData(), static_cast<std::size_t>(piece.size())}, m_checksum);
        length += piece.size();
        if (length > longest) {
            error =
                Texts::tr("%1 is too long: a file has at most %2 bytes.").arg(name()).arg(longest);
            return false;
        }
        if (copy && copy->write(piece) != piece.size()) {
            error = fault(*copy);
            return false;
        }
    }
    if (from.error() != QFile::NoError) {
        error = fault(from);
        return false;
    }
    m_length = static_cast<qint32>(length);
    return true;
}

QString ContentSource::fault(const QFile &file) const
{
    return Texts::tr("Cannot read %1: %2.").arg(name(), file.errorString());
}

} // namespace Tavoro::Ctl
