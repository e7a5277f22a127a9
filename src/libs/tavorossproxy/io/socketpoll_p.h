#pragma once

#include <QtGlobal>

#include <memory>
#include <unordered_map>

QT_BEGIN_NAMESPACE
class QSocketNotifier;
QT_END_NAMESPACE

namespace Tavoro::SSProxy::Internal {

/// Watches the sockets of one thread. Qt's notifiers cost time for each socket whenever the thread
/// waits; here Qt watches only one descriptor, that of an epoll set, so that idle connections cost
/// nothing.
///
/// | member                     | thread            |
/// |----------------------------|-------------------|
/// | ofThisThread, add, remove  | the watching one  |
/// | watchFor                   | any               |
class SocketPoll {
public:
    class Watcher {
    public:
        /// Something has happened to the socket: bytes have arrived, it accepts further bytes, or
        /// the connection has ended. May also be called without a reason.
        virtual void socketReady() = 0;

    protected:
        ~Watcher() = default;
    };

    /// Returns the object of the calling thread, which needs a Qt event loop. It exists as long as
    /// it is referenced.
    static std::shared_ptr<SocketPoll> ofThisThread();

    SocketPoll();
    ~SocketPoll();
    SocketPoll(const SocketPoll &) = delete;
    SocketPoll &operator=(const SocketPoll &) = delete;

    /// Calls \a watcher when \a descriptor is ready. Initially only the end of its connection
    /// counts, see watchFor().
    void add(int descriptor, Watcher &watcher);
    void remove(int descriptor);
    /// Sets what \a descriptor, which was added, is watched for besides the end of its connection.
    void watchFor(int descriptor, bool arrivingBytes, bool roomForBytes) const;

private:
    void dispatch();

    const int m_epoll;
    QSocketNotifier *const m_notifier; ///< Deleted later: the object may end while it notifies.
    std::unordered_map<int, Watcher *> m_watchers; ///< By descriptor.
};

} // namespace Tavoro::SSProxy::Internal
