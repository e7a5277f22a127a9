#pragma once

#include <QElapsedTimer>

#include <utility>

namespace Tavoro::Ctl {

/// Limits how often a transfer shows its progress: with each percent, and five times a second.
class ProgressPace {
public:
    /// Whether a transfer at \a percent shows its progress now.
    bool mayShow(int percent)
    {
        constexpr int pause = 200; // Milliseconds.
        if (std::exchange(m_percent, percent) == percent && !m_shown.hasExpired(pause))
            return false;
        m_shown.start();
        return true;
    }

private:
    int m_percent = -1;
    QElapsedTimer m_shown;
};

} // namespace Tavoro::Ctl
