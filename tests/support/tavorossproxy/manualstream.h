#pragma once

#include <tavorossproxy/io/bytestream_p.h>
#include <tavorowire/frameparser.h>

#include <deque>
#include <string>
#include <vector>

/// The device's end of a stream without a network, controlled by a test. All on the loop's thread.
class ManualPeer {
public:
    /// Lets the attempt to connect succeed.
    void accept(const std::string &address = "192.0.2.7");
    void send(std::string_view bytes);
    void send(const Tavoro::SSProxy::Wire::WireHead &head, std::string_view body = {});
    void fail(const QString &reason);
    /// Takes all bytes that the channel has written and writes (true), or leaves them unsent.
    void setReading(bool isReading);
    /// Returns the number of bytes that the channel has written and that were not taken.
    int unsentBytes() const { return int(m_unsent.size()); }
    /// Takes \a count of the unsent bytes.
    void takePart(int count);

    int opened = 0; ///< Attempts to connect.
    QString place; ///< Host and port of attempts; empty until setPeer().
    bool isOpen = false; ///< The channel is connecting or connected.
    std::deque<Tavoro::SSProxy::Wire::FrameEvent> frames; ///< Frames received from the channel.

private:
    friend class ManualStream;
    void takeUnsent();

    Tavoro::SSProxy::Internal::ByteStream::Events *m_events = nullptr;
    bool m_isReading = true;
    QByteArray m_unsent;
    Tavoro::SSProxy::Wire::FrameParser m_parser;
};

/// The channel's end.
class ManualStream final : public Tavoro::SSProxy::Internal::ByteStream {
public:
    explicit ManualStream(ManualPeer &peer) : m_peer(peer) { }
    ~ManualStream() override { close(); }

    void open(Events &events) override;
    void close() override;
    void write(const QByteArray &bytes) override;
    bool setPeer(const QString &host, quint16 port) override;
    qint64 unsentBytes() const override { return m_peer.m_unsent.size(); }

private:
    ManualPeer &m_peer;
};
