#pragma once

#include <functional>

/// During its lifetime, timed waits of threads named "SaveFile" time out at once. Otherwise a test
/// would take the ten seconds of the writer.
///
/// Linux only. Has no effect elsewhere, nor under ThreadSanitizer, which has its own waits.
class FastClock {
public:
    FastClock();
    ~FastClock();
    FastClock(const FastClock &) = delete;
    FastClock &operator=(const FastClock &) = delete;

    /// False where it has no effect.
    static bool isPossible();
    int waitsThatRanOut() const;
};

/// Calls functions when a thread named "SaveFile" next goes to sleep. \a before runs while its
/// mutex is unlocked, so other threads can notify it. \a during runs while its mutex is locked, so
/// other threads have to wait until it sleeps. Works only if FastClock::isPossible().
class NextSleep {
public:
    NextSleep(std::function<void()> before, std::function<void()> during);
    ~NextSleep();
    NextSleep(const NextSleep &) = delete;
    NextSleep &operator=(const NextSleep &) = delete;

    const std::function<void()> before;
    const std::function<void()> during;
};
