#pragma once

#include "bytestream_p.h"
#include "capturefile_p.h"

#include <memory>

namespace Tavoro::SSProxy::Internal {

/// A stream that also writes what it sends and receives to a capture.
class CapturingStream final : public ByteStream, private ByteStream::Events {
public:
    CapturingStream(std::unique_ptr<ByteStream> stream, std::shared_ptr<CaptureFile> file);

    void open(ByteStream::Events &events) override;
    void close() override;
    void write(const QByteArray &bytes) override;
    bool setPeer(const QString &host, quint16 port) override;
    qint64 unsentBytes() const override { return m_stream->unsentBytes(); }

private:
    void streamOpened(const std::string &peerAddress) override;
    void streamReceived(std::string_view bytes) override;
    void streamBatchEnded() override { m_events->streamBatchEnded(); }
    void streamDrained() override { m_events->streamDrained(); }
    void streamClosed(const QString &reason) override;
    void noteEnd(Wire::CaptureEvent event, std::string_view reason = {});

    const std::unique_ptr<ByteStream> m_stream;
    const std::shared_ptr<CaptureFile> m_file;
    const int m_channel;
    ByteStream::Events *m_events = nullptr;
    bool m_isOpen = false; ///< The capture holds the opening of the connection but not its end.
};

} // namespace Tavoro::SSProxy::Internal
