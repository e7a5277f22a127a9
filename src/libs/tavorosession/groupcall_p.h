#pragma once

#include "callresult_p.h"

#include <tavorosession/groupoutcome.h>

#include <QFutureInterface>

#include <chrono>
#include <memory>
#include <optional>

namespace Tavoro::SessionInternal {

/// Collects the outcomes of the calls of a group. On the session's thread.
class GroupCall {
public:
    explicit GroupCall(std::size_t count) : m_missing(count)
    {
        m_outcome.outcomes.resize(count);
        m_promise.reportStarted();
        finishIfComplete();
    }

    QFuture<GroupOutcome> future() { return m_promise.future(); }

    void add(std::size_t index, const Outcome &outcome, const CallResult &result)
    {
        m_outcome.outcomes[index] = outcome;
        if (result.firstSent) {
            m_first = std::min(m_first.value_or(*result.firstSent), *result.firstSent);
            m_last = std::max(m_last.value_or(*result.firstSent), *result.firstSent);
        }
        --m_missing;
        finishIfComplete();
    }

private:
    using TimePoint = std::chrono::steady_clock::time_point;

    void finishIfComplete()
    {
        if (m_missing > 0)
            return;
        if (m_first)
            m_outcome.spread =
                std::chrono::duration_cast<std::chrono::microseconds>(*m_last - *m_first);
        m_promise.reportResult(m_outcome);
        m_promise.reportFinished();
    }

    std::size_t m_missing;
    GroupOutcome m_outcome;
    std::optional<TimePoint> m_first;
    std::optional<TimePoint> m_last;
    QFutureInterface<GroupOutcome> m_promise;
};

} // namespace Tavoro::SessionInternal
