#include "interruption.h"

#include <atomic>
#include <csignal>

namespace Tavoro::Ctl {

namespace {

constexpr int lookInterval = 50; ///< Milliseconds.
constexpr int signalNumbers[] = {SIGINT, SIGTERM};

// All that a handler of signals may touch.
static_assert(std::atomic<bool>::is_always_lock_free);
std::atomic<bool> signalHasCome = false;

void takeSignal(int number)
{
    signalHasCome = true;
    std::signal(number, SIG_DFL);
}

} // namespace

Interruption::Interruption(std::function<void()> tell)
{
    signalHasCome = false;
    for (const int number : signalNumbers)
        std::signal(number, takeSignal);
    m_look.setInterval(lookInterval);
    QObject::connect(&m_look, &QTimer::timeout, &m_look, [this, tell = std::move(tell)] {
        if (!signalHasCome)
            return;
        m_look.stop();
        tell();
    });
    m_look.start();
}

Interruption::~Interruption()
{
    for (const int number : signalNumbers)
        std::signal(number, SIG_DFL);
}

bool Interruption::hasCome() const
{
    return signalHasCome;
}

} // namespace Tavoro::Ctl
