#pragma once

#include <functional>

/// During its lifetime, timed waits of threads named "SaveFile" time out at once: the ten seconds
/// of the writer would make a slow test.
///
/// Linux only. Has no effect elsewhere, and under ThreadSanitizer, which has waits of its own.
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

/// Acts when a thread named "SaveFile" next goes to sleep: \a before while it is still awake and
/// may be called, \a during when whatever wakes it waits until it sleeps. Where FastClock is
/// possible.
class NextSleep {
public:
    NextSleep(std::function<void()> before, std::function<void()> during);
    ~NextSleep();
    NextSleep(const NextSleep &) = delete;
    NextSleep &operator=(const NextSleep &) = delete;

    const std::function<void()> before;
    const std::function<void()> during;
};
