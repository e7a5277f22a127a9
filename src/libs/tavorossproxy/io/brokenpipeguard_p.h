#pragma once

#include <csignal>
#include <ctime>

namespace Tavoro::SSProxy::Internal {

/// As long as it exists, a write of this thread to a pipe without a reader fails, and does not end
/// the process by a signal. Leaves the application's handling of the signal as it is.
class BrokenPipeGuard {
public:
    BrokenPipeGuard()
    {
        sigset_t pending;
        sigpending(&pending);
        m_wasPending = sigismember(&pending, SIGPIPE) == 1;
        sigemptyset(&m_signal);
        sigaddset(&m_signal, SIGPIPE);
        pthread_sigmask(SIG_BLOCK, &m_signal, &m_before);
    }

    ~BrokenPipeGuard()
    {
        const timespec noTime{};
        while (!m_wasPending && sigtimedwait(&m_signal, nullptr, &noTime) == SIGPIPE) { }
        pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
    }

    BrokenPipeGuard(const BrokenPipeGuard &) = delete;
    BrokenPipeGuard &operator=(const BrokenPipeGuard &) = delete;

private:
    sigset_t m_signal;
    sigset_t m_before;
    bool m_wasPending = false;
};

} // namespace Tavoro::SSProxy::Internal
