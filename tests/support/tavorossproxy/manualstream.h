#pragma once

#include <tavorossproxy/io/bytestream_p.h>
#include <tavorowire/frameparser.h>

#include <deque>
#include <string>
#include <vector>

/// The other end of a stream without a network, in the hand of a test. All on the loop's thread.
class ManualPeer {
public:
    /// Lets the attempt to connect succeed.
    void accept(const std::string &address = "192.0.2.7");
    void send(std::string_view bytes);
    void send(const Tavoro::SSProxy::Wire::WireHead &head, std::string_view body = {});
    void fail(const QString &reason);
    /// Takes what the channel has written from now on at once (true), or leaves it unsent.
    void setReading(bool isReading);
    /// Takes so many bytes of what is unsent.
    void takePart(int count);

    int opened = 0; ///< Attempts to connect.
    QString place; ///< Where attempts go: host and port; empty until the channel is told.
    bool isOpen = false; ///< The channel has an attempt or a connection.
    std::deque<Tavoro::SSProxy::Wire::FrameEvent> frames; ///< What has come from the channel.

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
