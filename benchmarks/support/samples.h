#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

namespace Bench {

/// Durations in microseconds.
class Samples {
public:
    /// Adds the duration of \a work.
    template <class Work>
    void add(Work &&work)
    {
        const auto start = std::chrono::steady_clock::now();
        work();
        addSince(start);
    }
    /// Adds the time from \a start until now.
    void addSince(std::chrono::steady_clock::time_point start)
    {
        const std::chrono::duration<double, std::micro> taken =
            std::chrono::steady_clock::now() - start;
        m_values.push_back(taken.count());
    }
    std::size_t count() const { return m_values.size(); }
    /// The smallest duration that \a share of the samples do not exceed; \a share is from 0 to 1.
    double percentile(double share) const
    {
        std::vector<double> values = m_values;
        const auto index = static_cast<std::size_t>(share * static_cast<double>(values.size() - 1));
        const auto at = values.begin() + static_cast<std::ptrdiff_t>(index);
        std::nth_element(values.begin(), at, values.end());
        return *at;
    }

private:
    std::vector<double> m_values;
};

} // namespace Bench
