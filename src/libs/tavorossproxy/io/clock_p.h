#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace Tavoro::SSProxy::Internal {

/// Longest timeout or pause; longer ones could overflow the clock.
constexpr std::chrono::hours maxDuration(24);

/// The clock of timeouts and pauses. Any thread.
class Clock {
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    virtual ~Clock() = default;
    virtual TimePoint now() const = 0;
    /// Waits until \a condition is notified or \a deadline is reached; may also return early.
    virtual void waitUntil(std::condition_variable &condition, std::unique_lock<std::mutex> &lock,
                           TimePoint deadline) = 0;
};

class SteadyClock final : public Clock {
public:
    TimePoint now() const override { return std::chrono::steady_clock::now(); }
    void waitUntil(std::condition_variable &condition, std::unique_lock<std::mutex> &lock,
                   TimePoint deadline) override
    {
        condition.wait_until(lock, deadline);
    }
};

} // namespace Tavoro::SSProxy::Internal
