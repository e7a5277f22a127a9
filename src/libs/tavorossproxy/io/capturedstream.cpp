#include "capturedstream_p.h"

#include <tavorossproxy/logging_p.h>

namespace Tavoro::SSProxy::Internal {

using Wire::CaptureEvent;

bool CaptureFile::open(QString &error)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const QByteArray heading = QByteArray::fromStdString(Wire::captureHeading());
    if (m_file.open(QIODevice::WriteOnly) && m_file.write(heading) == heading.size()
        && m_file.flush())
        return true;
    error = QStringLiteral("%1: %2").arg(m_file.fileName(), m_file.errorString());
    return false;
}

void CaptureFile::close()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_file.close();
}

int CaptureFile::addChannel()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return ++m_channels;
}

/// Each line is there at once: a capture is wanted most of all of what crashed.
void CaptureFile::write(int channel, CaptureEvent event, std::string_view bytes)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (!m_file.isOpen())
        return;
    const std::string line =
        Wire::encodeCaptureLine(channel, m_clock.nsecsElapsed() / 1000, event, bytes);
    const auto length = static_cast<qint64>(line.size());
    if (m_file.write(line.data(), length) == length && m_file.flush())
        return;
    qCWarning(channelLog, "The capture %s ends here: %s", qUtf8Printable(m_file.fileName()),
              qUtf8Printable(m_file.errorString()));
    m_file.close();
}

CapturedStream::CapturedStream(std::unique_ptr<ByteStream> stream,
                               std::shared_ptr<CaptureFile> file)
    : m_stream(std::move(stream)), m_file(std::move(file)), m_channel(m_file->addChannel())
{ }

void CapturedStream::open(ByteStream::Events &events)
{
    m_events = &events;
    m_stream->open(*this);
}

void CapturedStream::close()
{
    noteEnd(CaptureEvent::Close);
    m_stream->close();
}

void CapturedStream::write(const QByteArray &bytes)
{
    m_file->write(m_channel, CaptureEvent::Sent,
                  {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    m_stream->write(bytes);
}

bool CapturedStream::setPeer(const QString &host, quint16 port)
{
    return m_stream->setPeer(host, port);
}

void CapturedStream::streamOpened(const std::string &peerAddress)
{
    m_isOpen = true;
    m_file->write(m_channel, CaptureEvent::Open, peerAddress);
    m_events->streamOpened(peerAddress);
}

void CapturedStream::streamReceived(std::string_view bytes)
{
    m_file->write(m_channel, CaptureEvent::Received, bytes);
    m_events->streamReceived(bytes);
}

void CapturedStream::streamClosed(const QString &reason)
{
    noteEnd(CaptureEvent::Lost, reason.toStdString());
    m_events->streamClosed(reason);
}

void CapturedStream::noteEnd(CaptureEvent event, std::string_view reason)
{
    if (m_isOpen)
        m_file->write(m_channel, event, reason);
    m_isOpen = false;
}

} // namespace Tavoro::SSProxy::Internal
