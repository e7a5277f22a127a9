#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

namespace Tavoro::SessionInternal {

/// Whether a call may be sent: one thread waits for the decision of another. Any thread.
class SendDecision {
public:
    /// The first decision counts.
    void decide(bool maySend)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_state == State::Open)
            m_state = maySend ? State::Send : State::Refuse;
        m_decided.notify_all();
    }

    /// Blocks until there is a decision, and returns it. After \a time the call may not be sent.
    bool await(std::chrono::milliseconds time)
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        const auto isDecided = [this] {
            return m_state != State::Open;
        };
        if (!m_decided.wait_for(lock, time, isDecided))
            m_state = State::Refuse;
        return m_state == State::Send;
    }

private:
    enum class State {
        Open,
        Send,
        Refuse
    };

    std::mutex m_mutex;
    std::condition_variable m_decided;
    State m_state = State::Open; // guarded by m_mutex
};

} // namespace Tavoro::SessionInternal
