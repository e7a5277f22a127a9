#pragma once

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <memory>
#include <string>
#include <string_view>

namespace Tavoro::SSProxy::Internal {

class ConnectedSocket;

/// A stream of bytes to a peer, with one connection at a time. It is used, emits its events and is
/// destroyed on the loop's thread, except for what socket() allows other threads.
class ByteStream {
public:
    class Events {
    public:
        virtual void streamOpened(const std::string &peerAddress) = 0;
        /// Called on the thread that receives, see socket(); one thread at a time. No callback to
        /// the application may be made from here.
        virtual void streamReceived(std::string_view bytes) = 0;
        /// The loop's thread has received bytes and holds no lock any more.
        virtual void streamBatchEnded() = 0;
        /// The system has taken all bytes that were written.
        virtual void streamDrained() = 0;
        /// The connection was lost, or the attempt has failed.
        virtual void streamClosed(const QString &reason) = 0;

    protected:
        ~Events() = default;
    };

    virtual ~ByteStream() = default;

    /// Begins to connect. streamOpened() or streamClosed() follows, after the call has returned.
    virtual void open(Events &events) = 0;
    /// Ends the connection or the attempt. No event follows.
    virtual void close() = 0;
    /// Never blocks. Bytes that the system does not take at once wait in the stream.
    virtual void write(const QByteArray &bytes) = 0;
    /// Sets where the next open() connects to. Returns false if that is unchanged.
    virtual bool setPeer(const QString &host, quint16 port) = 0;
    /// Returns how many written bytes the system has not taken yet.
    virtual qint64 unsentBytes() const = 0;
    /// Returns the socket of the open connection, by which other threads send and receive. Null if
    /// only the loop's thread can do so.
    virtual std::shared_ptr<ConnectedSocket> socket() const { return nullptr; }
};

} // namespace Tavoro::SSProxy::Internal
