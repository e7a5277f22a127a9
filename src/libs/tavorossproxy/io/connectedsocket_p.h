#pragma once

#include "bytestream_p.h"
#include "clock_p.h"
#include "socketpoll_p.h"
#include "wakeup_p.h"

#include <QByteArray>

#include <atomic>
#include <deque>
#include <memory>
#include <mutex>

namespace Tavoro::SSProxy::Internal {

/// The socket of an established connection. The loop's thread watches it, and any thread may send.
/// A caller that waits for its answer may receive on its own thread: no other thread has to wake up
/// for the exchange then. No call but awaitBytes() blocks.
///
/// | member                          | thread                                           |
/// |---------------------------------|--------------------------------------------------|
/// | constructor, end, sendWaiting   | the loop's                                       |
/// | receive, send, the states       | any                                              |
/// | beginReading ... endReading     | any, one at a time                               |
class ConnectedSocket {
public:
    /// Takes over \a descriptor. \a watcher is called on this thread, \a events on each thread that
    /// receives; both until end().
    ConnectedSocket(int descriptor, SocketPoll::Watcher &watcher, ByteStream::Events &events);
    ~ConnectedSocket();
    ConnectedSocket(const ConnectedSocket &) = delete;
    ConnectedSocket &operator=(const ConnectedSocket &) = delete;

    /// Ends the connection. A thread that receives or waits returns. No event follows.
    void end();
    /// Sends waiting bytes, as many as the system takes. Returns true if some were waiting and none
    /// is left.
    bool sendWaiting();

    /// Sends \a bytes. Those that the system does not take at once wait for sendWaiting().
    void send(const QByteArray &bytes);
    qint64 unsentBytes() const { return m_unsent; }

    enum class Received {
        Bytes,
        Nothing,
        End ///< The connection has ended; error() is the reason.
    };
    /// Passes the bytes that have arrived, or a part of them, to the events.
    Received receive();
    /// The error that has ended the connection; 0 if the peer has closed it.
    int error() const { return m_error; }

    /// From here on the caller receives, and the loop's thread does not wake up for arriving bytes.
    void beginReading() { watchFor(m_isReadByLoop, false); }
    void endReading() { watchFor(m_isReadByLoop, true); }
    /// Waits until bytes have arrived, the connection has ended, \a wakeUp, which is that of the
    /// calling thread, was woken, or \a deadline is reached.
    void awaitBytes(const WakeUp &wakeUp, Clock::TimePoint deadline) const;

private:
    qint64 sendNow(const char *bytes, qint64 count);
    void watchFor(bool &what, bool isWanted);

    const int m_descriptor;
    std::atomic<int> m_error{0};

    std::mutex m_receiveMutex; // held while a thread receives, so that bytes keep their order
    ByteStream::Events *m_events; ///< Guarded by m_receiveMutex; null after the end.

    std::mutex m_sendMutex;
    std::deque<QByteArray> m_waiting; ///< Guarded by m_sendMutex.
    qint64 m_sentOfFirst = 0; ///< Guarded by m_sendMutex.
    std::atomic<qint64> m_unsent{0};

    std::mutex m_watchMutex; // guards what follows
    std::shared_ptr<SocketPoll> m_poll; ///< Null after the end.
    bool m_isReadByLoop = true;
    bool m_awaitsRoom = false;
};

} // namespace Tavoro::SSProxy::Internal
