#pragma once

#include <tavorossproxy/io/callqueue_p.h>
#include <tavorossproxy/io/eventloop_p.h>

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <set>

/// An event loop and a clock on the caller's own thread: while a request waits, the loop runs
/// posted calls, then lets the device act, and advances the time once the device has nothing left
/// to do.
class ScriptedLoop final : public Tavoro::SSProxy::Internal::EventLoop,
                           public Tavoro::SSProxy::Internal::Clock {
public:
    using TimePoint = Tavoro::SSProxy::Internal::Clock::TimePoint;

    /// \a act runs the device's next action and returns false if there is nothing left to do.
    explicit ScriptedLoop(std::function<bool()> act) : m_act(std::move(act)) { }

    Tavoro::SSProxy::Internal::Clock &clock() override { return *this; }
    bool isCurrentThread() const override { return m_isRunning; }
    bool post(std::function<void()> call) override { return m_calls.add(std::move(call)); }
    void postAt(TimePoint time, std::function<void()> call) override
    {
        m_timed.emplace(time, std::move(call));
    }
    void attach(std::shared_ptr<Client> client) override { m_clients.insert(std::move(client)); }
    void detach(const Client *client) override
    {
        for (auto it = m_clients.begin(); it != m_clients.end();)
            it = it->get() == client ? m_clients.erase(it) : std::next(it);
    }

    TimePoint now() const override { return m_now; }
    void waitUntil(std::condition_variable &, std::unique_lock<std::mutex> &lock,
                   TimePoint deadline) override
    {
        lock.unlock();
        run();
        if (!m_act())
            advanceTo(std::min(deadline, nextTime(deadline)));
        run();
        lock.lock();
    }

    /// Runs posted calls until none is left.
    void run()
    {
        m_isRunning = true;
        m_calls.run();
        m_isRunning = false;
    }

    void advanceTo(TimePoint time)
    {
        while (!m_timed.empty() && m_timed.begin()->first <= time) {
            auto next = m_timed.extract(m_timed.begin());
            m_now = std::max(m_now, next.key());
            m_calls.add(std::move(next.mapped()));
            run();
        }
        m_now = std::max(m_now, time);
    }

private:
    TimePoint nextTime(TimePoint otherwise) const
    {
        return m_timed.empty() ? otherwise : m_timed.begin()->first;
    }

    const std::function<bool()> m_act;
    std::mutex m_mutex; // guards m_calls, as CallQueue requires
    Tavoro::SSProxy::Internal::CallQueue m_calls{m_mutex};
    std::multimap<TimePoint, std::function<void()>> m_timed;
    std::set<std::shared_ptr<Client>> m_clients;
    bool m_isRunning = false;
    TimePoint m_now{std::chrono::hours(1)};
};
