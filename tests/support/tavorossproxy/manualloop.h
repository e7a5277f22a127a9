#pragma once

#include <tavorossproxy/io/channelloop_p.h>
#include <tavorossproxy/io/postedcalls_p.h>

#include <atomic>
#include <condition_variable>
#include <map>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

/// A channel's thread and clock in the hand of a test: the test's own thread is the channels', and
/// time stands still until the test moves it.
class ManualLoop final : public Tavoro::SSProxy::Internal::ChannelLoop,
                         public Tavoro::SSProxy::Internal::Clock {
public:
    using TimePoint = Tavoro::SSProxy::Internal::Clock::TimePoint;

    Tavoro::SSProxy::Internal::Clock &clock() override { return *this; }
    bool isCurrentThread() const override { return std::this_thread::get_id() == m_owner; }
    bool post(std::function<void()> call) override;
    void postAt(TimePoint time, std::function<void()> call) override;
    void attach(std::shared_ptr<User> user) override { m_users.insert(std::move(user)); }
    void detach(const User *user) override;

    TimePoint now() const override;
    void waitUntil(std::condition_variable &condition, std::unique_lock<std::mutex> &lock,
                   TimePoint deadline) override;

    /// Runs what was posted until nothing is left.
    void run() { m_calls.run(); }
    /// Runs what is posted, waiting for more, until \a isReached; false when that takes too long.
    template <class Condition>
    bool runUntil(Condition isReached)
    {
        for (run(); !isReached(); run()) {
            if (!waitForCalls())
                return false;
        }
        return true;
    }
    /// Makes runUntil() look at its condition again. Any thread.
    void wake();

    /// Moves the time on, running what is due at its time, and wakes those who wait for it.
    void advance(std::chrono::milliseconds time);
    /// Waits until so many threads wait for an answer or for the time.
    void awaitWaiting(std::size_t count);

    /// Ends the thread for the channels.
    void end();

private:
    struct Waiter {
        std::condition_variable *condition;
        std::mutex *mutex;
    };

    bool waitForCalls();
    void setTime(TimePoint time);

    const std::thread::id m_owner = std::this_thread::get_id();
    std::set<std::shared_ptr<User>> m_users;
    std::multimap<TimePoint, std::function<void()>> m_timed;

    mutable std::mutex m_mutex; // guards what follows
    std::condition_variable m_changed;
    Tavoro::SSProxy::Internal::PostedCalls m_calls{m_mutex};
    std::multimap<std::thread::id, Waiter> m_waiting;
    bool m_isWoken = false;
    TimePoint m_now{std::chrono::hours(1)};
};
