#pragma once

#include <sched.h>
#include <thread>

namespace Bench {

/// Keeps the calling thread on one processor until the end of the scope, and with it the threads
/// and processes that it starts meanwhile, for good. Without this, the system moves the two ends of
/// a connection between sharing a processor and waking an idle one, and durations differ by a
/// factor of four from run to run.
class OnProcessor {
public:
    /// \a number counts from 0; a machine with fewer processors uses the last one.
    explicit OnProcessor(unsigned number)
    {
        ::sched_getaffinity(0, sizeof m_before, &m_before);
        const unsigned count = std::thread::hardware_concurrency();
        cpu_set_t set;
        CPU_ZERO(&set);
        CPU_SET(number < count ? number : count - 1, &set);
        ::sched_setaffinity(0, sizeof set, &set);
    }
    ~OnProcessor() { ::sched_setaffinity(0, sizeof m_before, &m_before); }
    OnProcessor(const OnProcessor &) = delete;
    OnProcessor &operator=(const OnProcessor &) = delete;

private:
    cpu_set_t m_before;
};

} // namespace Bench
