#pragma once

#include "fleet.h"

#include <atomic>
#include <thread>
#include <vector>

/// Threads that operate the devices of a fleet until this object is destroyed.
class Operators {
public:
    struct Counts {
        std::atomic<int> done{0};
        std::atomic<int> failed{0}; ///< Failed with an error text.
        std::atomic<int> silent{0}; ///< Failed without an error text.
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
