#pragma once

#include "fleet.h"

#include <atomic>
#include <thread>
#include <vector>

/// Threads that operate the devices of a fleet until they are destroyed.
class Operators {
public:
    struct Counts {
        std::atomic<int> done{0};
        std::atomic<int> failed{0}; ///< With their reason in words.
        std::atomic<int> silent{0}; ///< Without.
    };

    Operators(const Fleet &fleet, int count, unsigned seed, Counts &counts);
    ~Operators();
    Operators(const Operators &) = delete;
    Operators &operator=(const Operators &) = delete;

private:
    void operate(const Fleet &fleet, unsigned seed);

    Counts &m_counts;
    std::atomic<bool> m_isOver{false};
    std::vector<std::thread> m_threads;
};
