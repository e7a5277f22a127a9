#pragma once

#include <tavorossproxy/io/callqueue_p.h>
#include <tavorossproxy/io/eventloop_p.h>

#include <atomic>
#include <condition_variable>
#include <map>
#include <mutex>
#include <set>
#include <thread>
#include <vector>

/// An event loop and a clock that a test controls: the test's own thread is the channels' thread,
/// and time advances only when the test says so.
class ManualLoop final : public Tavoro::SSProxy::Internal::EventLoop,
                         public Tavoro::SSProxy::Internal::Clock {
public:
    using TimePoint = Tavoro::SSProxy::Internal::Clock::TimePoint;

    Tavoro::SSProxy::Internal::Clock &clock() override { return *this; }
    bool isCurrentThread() const override { return std::this_thread::get_id() == m_owner; }
    bool post(std::function<void()> call) override;
    void postAt(TimePoint time, std::function<void()> call) override;
    void attach(std::shared_ptr<Client> client) override { m_clients.insert(std::move(client)); }
    void detach(const Client *client) override;

    TimePoint now() const override;
    void waitUntil(std::condition_variable &condition, std::unique_lock<std::mutex> &lock,
                   TimePoint deadline) override;

    /// Runs posted calls until none is left.
    void run() { m_calls.run(); }
    /// Runs posted calls, and waits for more, until \a isReached. Returns false after too long a
    /// time.
    template <class Condition>
    bool runUntil(Condition isReached)
    {
        for (run(); !isReached(); run()) {
            if (!waitForCalls())
                return false;
        }
        return true;
    }
    /// Makes runUntil() check its condition again. Any thread.
    void wake();

    /// Advances the time, runs each timed call at its time, and wakes the threads that wait for it.
    void advance(std::chrono::milliseconds time);
    /// Waits until \a count threads wait for an answer or for a time.
    void awaitWaiting(std::size_t count);

    /// Ends the loop, as when the channels' thread ends.
    void end();

private:
    struct Waiter {
        std::condition_variable *condition;
        std::mutex *mutex;
    };

    bool waitForCalls();
    void setTime(TimePoint time);

    const std::thread::id m_owner = std::this_thread::get_id();
    std::set<std::shared_ptr<Client>> m_clients;
    std::multimap<TimePoint, std::function<void()>> m_timed;

    mutable std::mutex m_mutex; // guards what follows
    std::condition_variable m_changed;
    Tavoro::SSProxy::Internal::CallQueue m_calls{m_mutex};
    std::multimap<std::thread::id, Waiter> m_waiting;
    bool m_isWoken = false;
    TimePoint m_now{std::chrono::hours(1)};
};
