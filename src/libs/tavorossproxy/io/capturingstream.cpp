#include "capturingstream_p.h"

namespace Tavoro::SSProxy::Internal {

using Wire::CaptureEvent;

CapturingStream::CapturingStream(std::unique_ptr<ByteStream> stream,
                                 std::shared_ptr<CaptureFile> file)
    : m_stream(std::move(stream)), m_file(std::move(file)), m_channel(m_file->addChannel())
{ }

void CapturingStream::open(ByteStream::Events &events)
{
    m_events = &events;
    m_stream->open(*this);
}

void CapturingStream::close()
{
    noteEnd(CaptureEvent::Close);
    m_stream->close();
}

void CapturingStream::write(const QByteArray &bytes)
{
    m_file->write(m_channel, CaptureEvent::Sent,
                  {bytes.constData(), static_cast<std::size_t>(bytes.size())});
    m_stream->write(bytes);
}

bool CapturingStream::setPeer(const QString &host, quint16 port)
{
    return m_stream->setPeer(host, port);
}

void CapturingStream::streamOpened(const std::string &peerAddress)
{
    m_isOpen = true;
    m_file->write(m_channel, CaptureEvent::Open, peerAddress);
    m_events->streamOpened(peerAddress);
}

void CapturingStream::streamReceived(std::string_view bytes)
{
    m_file->write(m_channel, CaptureEvent::Received, bytes);
    m_events->streamReceived(bytes);
}

void CapturingStream::streamClosed(const QString &reason)
{
    noteEnd(CaptureEvent::Lost, reason.toStdString());
    m_events->streamClosed(reason);
}

void CapturingStream::noteEnd(CaptureEvent event, std::string_view reason)
{
    if (m_isOpen)
        m_file->write(m_channel, event, reason);
    m_isOpen = false;
}

} // namespace Tavoro::SSProxy::Internal
