#include "modelupdates_p.h"

#include <algorithm>
#include <utility>

namespace Tavoro::SessionInternal {

namespace {

void finish(QFutureInterface<bool> promise, bool isComplete)
{
    promise.reportResult(isComplete);
    promise.reportFinished();
}

} // namespace

PendingCall<bool> ModelUpdates::wait(quint64 noted)
{
    QFutureInterface<bool> promise;
    promise.reportStarted();
    PendingCall<bool> pending(promise.future());
    m_waiting.push_back({noted, std::move(promise)});
    if (!m_needsReading)
        finishUpToDate(true);
    return pending;
}

void ModelUpdates::followed(quint64 noted, bool isComplete)
{
    if (!isComplete)
        return lost(noted);
    m_applied = std::max(m_applied, noted);
    if (m_awaited && m_applied >= *m_awaited)
        readingEnded(true);
    else if (!m_needsReading)
        finishUpToDate(true);
}

void ModelUpdates::lost(quint64 noted)
{
    m_needsReading = true;
    readingStarted(noted);
}

void ModelUpdates::readingStarted(quint64 noted)
{
    m_outdated.reset();
    m_awaited.reset();
    m_nextReading = std::max(m_nextReading, noted);
}

void ModelUpdates::readingEnded(bool isComplete)
{
    m_awaited = std::exchange(m_outdated, std::nullopt);
    if (isComplete && m_awaited && m_applied < *m_awaited)
        return; // until followed()
    m_awaited.reset();
    m_needsReading = false;
    m_applied = std::max(m_applied, m_nextReading);
    finishUpToDate(isComplete);
}

void ModelUpdates::finishUpToDate(bool isComplete)
{
    const auto later =
        std::stable_partition(m_waiting.begin(), m_waiting.end(),
                              [this](const Waiting &each) { return each.noted > m_applied; });
    std::list<Waiting> upToDate;
    upToDate.splice(upToDate.end(), m_waiting, later, m_waiting.end());
    for (const Waiting &each : upToDate)
        finish(each.promise, isComplete);
}

void ModelUpdates::endAll()
{
    for (const Waiting &each : std::exchange(m_waiting, {}))
        finish(each.promise, false);
}

} // namespace Tavoro::SessionInternal
