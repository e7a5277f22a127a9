#include "interruption.h"

#include <atomic>
#include <csignal>

namespace Tavoro::Ctl {

namespace {

constexpr int signalCheckInterval = 50; ///< Milliseconds between two checks for a signal.
constexpr int signalNumbers[] = {SIGINT, SIGTERM};

// A signal handler may use only lock-free atomics.
static_assert(std::atomic<bool>::is_always_lock_free);
std::atomic<bool> hasSignal = false;

void takeSignal(int number)
{
    hasSignal = true;
    std::signal(number, SIG_DFL);
}

} // namespace

Interruption::Interruption(std::function<void()> interrupted)
{
    hasSignal = false;
    for (const int number : signalNumbers)
        std::signal(number, takeSignal);
    m_look.setInterval(signalCheckInterval);
    QObject::connect(&m_look, &QTimer::timeout, &m_look,
                     [this, interrupted = std::move(interrupted)] {
                         if (!hasSignal)
                             return;
                         m_look.stop();
                         interrupted();
                     });
    m_look.start();
}

Interruption::~Interruption()
{
    for (const int number : signalNumbers)
        std::signal(number, SIG_DFL);
}

bool Interruption::isInterrupted() const
{
    return hasSignal;
}

} // namespace Tavoro::Ctl
