#pragma once

/// For as long as it lives, timed waits of threads named "SaveFile" run out as soon as they begin:
/// the ten seconds of the writer would make a slow test.
///
/// Linux only. Elsewhere, and under ThreadSanitizer, which has waits of its own, nothing changes.
class FastClock {
public:
    FastClock();
    ~FastClock();
    FastClock(const FastClock &) = delete;
    FastClock &operator=(const FastClock &) = delete;

    /// False where it changes nothing.
    static bool isPossible();
    int waitsThatRanOut() const;
};
