#include "capturefile_p.h"

#include "brokenpipeguard_p.h"
#include <tavorossproxy/logging_p.h>
#include <tavorowire/captureformats.h>

#include <QDateTime>

namespace Tavoro::SSProxy::Internal {

CaptureFile::CaptureFile(const QString &path)
    : m_file(path),
      m_encoder(Wire::captureEncoderFor(path, QDateTime::currentMSecsSinceEpoch() * 1000))
{
    m_clock.start();
}

bool CaptureFile::open(QString &error)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const BrokenPipeGuard guard;
    const QByteArray heading = QByteArray::fromStdString(m_encoder->heading());
    if (m_file.open(QIODevice::WriteOnly) && m_file.write(heading) == heading.size()
        && m_file.flush())
        return true;
    error = QStringLiteral("%1: %2").arg(m_file.fileName(), m_file.errorString());
    return false;
}

void CaptureFile::close()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const BrokenPipeGuard guard;
    m_file.close();
}

int CaptureFile::addChannel()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return ++m_channels;
}

/// Each event is flushed, so that the capture of a process that crashes is complete.
void CaptureFile::write(int channel, Wire::CaptureEvent event, std::string_view bytes)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_file.isOpen())
        return;
    const BrokenPipeGuard guard; // The file may be a pipe whose reader has ended.
    const std::string encoded =
        m_encoder->encode(channel, m_clock.nsecsElapsed() / 1000, event, bytes);
    const auto length = static_cast<qint64>(encoded.size());
    if (m_file.write(encoded.data(), length) == length && m_file.flush())
        return;
    qCWarning(channelLog, "The capture %s ends here: %s", qUtf8Printable(m_file.fileName()),
              qUtf8Printable(m_file.errorString()));
    m_file.close();
}

} // namespace Tavoro::SSProxy::Internal
