#pragma once

#include <tavorossproxy/exchangewatch.h>
#include <tavorossproxy/export.h>

#include <chrono>
#include <functional>

namespace Tavoro::SSProxy {

/// Announces the writes of the thread that creates it before they are sent, until it is destroyed.
/// So a program can note the identity of a request where another program finds it. If the first one
/// fails, the other one asks the device with NetworkChannel::outcomeOf() what became of the
/// request.
///
/// \code
/// const RequestAnnouncement announcement([&](const RequestIdentity &id, auto) {
///     return journal.write(id);
/// });
/// screen.writeTake({effect}, error);
/// \endcode
///
/// Reads are not announced. Of a split write the last packet is: the device carries the write out
/// with it. Channels over a network announce their requests. If a thread has several announcements,
/// the newest one counts. Belongs to one thread.
class TAVOROSSPROXY_EXPORT RequestAnnouncement {
public:
    /// Gets the identity that a request will have, on the thread that has made it. Returns true to
    /// send the request. May block, but not longer than \a time: the timeout of the request has
    /// begun. If it returns false, the request ends as InvalidRequest and is never sent; so does a
    /// request whose connection was lost in the meantime, as Disconnected.
    using Handler = std::function<bool(const RequestIdentity &id, std::chrono::milliseconds time)>;

    /// Announces requests to \a handler.
    explicit RequestAnnouncement(Handler handler);
    ~RequestAnnouncement();
    RequestAnnouncement(const RequestAnnouncement &) = delete;
    RequestAnnouncement &operator=(const RequestAnnouncement &) = delete;

    /// For channels: true if writes of the calling thread are announced.
    static bool isWanted();
    /// For channels: announces a request of the calling thread. Returns true if it may be sent.
    static bool announce(const RequestIdentity &id, std::chrono::milliseconds time);

private:
    RequestAnnouncement *const m_outer;
    const Handler m_handler;
};

} // namespace Tavoro::SSProxy
