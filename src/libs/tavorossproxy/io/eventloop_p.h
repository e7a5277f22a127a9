#pragma once

#include "clock_p.h"

#include <functional>
#include <memory>

namespace Tavoro::SSProxy::Internal {

/// The thread on which channels connect, send and receive, and its clock.
///
/// | member                                  | thread       |
/// |-----------------------------------------|--------------|
/// | clock, isCurrentThread, post            | any          |
/// | announceCall, postAt, attach, detach    | the loop's   |
/// | connections                             | the loop's   |
class EventLoop {
public:
    /// An object that works on the thread.
    class Client {
    public:
        /// The thread ends after this call.
        virtual void loopEnding() = 0;

    protected:
        ~Client() = default;
    };

    virtual ~EventLoop() = default;

    virtual Clock &clock() = 0;
    virtual bool isCurrentThread() const = 0;
    /// Runs \a call on the thread, in the order of the calls. Returns false if the thread has
    /// ended.
    virtual bool post(std::function<void()> call) = 0;

    /// Announces that a caller has received its answer and may post its next request soon.
    virtual void announceCall() { }
    /// Runs \a call at \a time.
    virtual void postAt(Clock::TimePoint time, std::function<void()> call) = 0;
    /// Keeps \a client alive until it is detached, and calls its loopEnding() if the thread ends
    /// before.
    virtual void attach(std::shared_ptr<Client> client) = 0;
    virtual void detach(const Client *client) = 0;

    int connections = 0; ///< Channels that have a connection or are connecting.
};

} // namespace Tavoro::SSProxy::Internal
