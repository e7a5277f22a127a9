#pragma once

#include "clock_p.h"

#include <functional>
#include <memory>

namespace Tavoro::SSProxy::Internal {

/// The thread on which channels connect, send and receive, and its time.
class ChannelLoop {
public:
    /// Somebody who lives on the thread.
    class User {
    public:
        /// The thread ends with this call.
        virtual void loopEnding() = 0;

    protected:
        ~User() = default;
    };

    virtual ~ChannelLoop() = default;

    // Any thread.
    virtual Clock &clock() = 0;
    virtual bool isCurrentThread() const = 0;
    /// Runs \a call on the thread, in the order of the calls. False when the thread has ended.
    virtual bool post(std::function<void()> call) = 0;

    // On the thread only.
    /// Says that somebody has got an answer and may post the next request at once.
    virtual void expectCall() { }
    /// Runs \a call when \a time has come.
    virtual void postAt(Clock::TimePoint time, std::function<void()> call) = 0;
    int connections = 0; ///< That channels have or try to make.
    virtual void attach(std::shared_ptr<User> user) = 0;
    virtual void detach(const User *user) = 0;
};

} // namespace Tavoro::SSProxy::Internal
