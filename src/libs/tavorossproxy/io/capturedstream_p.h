#pragma once

#include "bytestream_p.h"

#include <tavorowire/capture.h>

#include <QElapsedTimer>
#include <QFile>

#include <memory>
#include <mutex>

namespace Tavoro::SSProxy::Internal {

/// The file of a capture. Any thread.
class CaptureFile {
public:
    explicit CaptureFile(const QString &path) : m_file(path) { m_clock.start(); }

    /// False with a sentence in \a error.
    bool open(QString &error);
    void close();
    /// A number for one more channel.
    int addChannel();
    void write(int channel, Wire::CaptureEvent event, std::string_view bytes = {});

    /// The one that runs; null when none does.
    static std::shared_ptr<CaptureFile> running();

private:
    std::mutex m_mutex; // guards what follows
    QFile m_file;
    QElapsedTimer m_clock;
    int m_channels = 0;
};

/// A stream whose bytes go to a capture as well.
class CapturedStream final : public ByteStream, private ByteStream::Events {
public:
    CapturedStream(std::unique_ptr<ByteStream> stream, std::shared_ptr<CaptureFile> file);

    void open(ByteStream::Events &events) override;
    void close() override;
    void write(const QByteArray &bytes) override;
    bool setPeer(const QString &host, quint16 port) override;
    qint64 unsentBytes() const override { return m_stream->unsentBytes(); }

private:
    void streamOpened(const std::string &peerAddress) override;
    void streamReceived(std::string_view bytes) override;
    void streamDrained() override { m_events->streamDrained(); }
    void streamClosed(const QString &reason) override;
    void noteEnd(Wire::CaptureEvent event, std::string_view reason = {});

    const std::unique_ptr<ByteStream> m_stream;
    const std::shared_ptr<CaptureFile> m_file;
    const int m_channel;
    ByteStream::Events *m_events = nullptr;
    bool m_isOpen = false; ///< The capture holds an open without its end.
};

} // namespace Tavoro::SSProxy::Internal
