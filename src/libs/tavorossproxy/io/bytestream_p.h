#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <string>
#include <string_view>

namespace Tavoro::SSProxy::Internal {

/// One connection at a time to one peer, as a channel sees it. Calls and events are on the thread
/// of the channel's loop; the stream is destroyed there too.
class ByteStream {
public:
    class Events {
    public:
        virtual void streamOpened(const std::string &peerAddress) = 0;
        virtual void streamReceived(std::string_view bytes) = 0;
        /// All that was written has left for the network.
        virtual void streamDrained() = 0;
        virtual void streamClosed(const QString &reason) = 0;

    protected:
        ~Events() = default;
    };

    virtual ~ByteStream() = default;

    /// Begins to connect. streamOpened() or streamClosed() follows, not from within the call.
    virtual void open(Events &events) = 0;
    /// Ends the connection or the attempt. No event follows.
    virtual void close() = 0;
    virtual void write(const QByteArray &bytes) = 0;
    /// Where the next open() connects to. False when that is so already.
    virtual bool setPeer(const QString &host, quint16 port) = 0;
    /// Bytes that were written and have not left yet.
    virtual qint64 unsentBytes() const = 0;
};

} // namespace Tavoro::SSProxy::Internal
