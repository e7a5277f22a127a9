#include "waitingcalls.h"

#include <algorithm>
#include <iterator>

namespace Tavoro::Gate {

namespace {

using Entries = std::deque<WaitingCalls::Entry>;

template <class Condition>
void eraseIf(Entries &entries, Condition condition)
{
    entries.erase(std::remove_if(entries.begin(), entries.end(), condition), entries.end());
}

const QDeadlineTimer forever(QDeadlineTimer::Forever);

} // namespace

QDeadlineTimer WaitingCalls::patienceFor(const CallRequest &call)
{
    return std::min(call.deadline, QDeadlineTimer(longestWait));
}

void WaitingCalls::append(const CallRequest &call)
{
    m_entries.push_back({call, false, m_isPatient ? patienceFor(call) : forever});
}

void WaitingCalls::putBack(const CallRequest &call, bool isDoubtful)
{
    m_entries.push_front({call, isDoubtful, m_isPatient ? patienceFor(call) : forever});
}

WaitingCalls::Entry WaitingCalls::takeFirst()
{
    Entry first = m_entries.front();
    m_entries.pop_front();
    return first;
}

void WaitingCalls::remove(const CallKey &key)
{
    eraseIf(m_entries, [&](const Entry &each) { return each.call.key == key; });
}

std::optional<CallRequest> WaitingCalls::find(const QString &topic,
                                              const QByteArray &correlation) const
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(), [&](const Entry &each) {
        return each.call.key.answerTopic == topic && each.call.key.correlation == correlation;
    });
    return found == m_entries.end() ? std::nullopt : std::make_optional(found->call);
}

void WaitingCalls::doubt(const CallKey &key)
{
    if (key.correlation.isEmpty())
        return remove(key);
    for (Entry &entry : m_entries)
        entry.isDoubtful = entry.isDoubtful || entry.call.key == key;
}

void WaitingCalls::doubtAll()
{
    eraseIf(m_entries, [](const Entry &each) { return each.call.key.correlation.isEmpty(); });
    for (Entry &entry : m_entries)
        entry.isDoubtful = true;
}

void WaitingCalls::confirm(const CallKey &key)
{
    for (Entry &entry : m_entries) {
        if (entry.call.key == key)
            entry = {entry.call, false, QDeadlineTimer(longestWait)};
    }
}

void WaitingCalls::startPatience()
{
    m_isPatient = true;
    for (Entry &entry : m_entries)
        entry.patience = patienceFor(entry.call);
}

void WaitingCalls::endPatience()
{
    m_isPatient = false;
    for (Entry &entry : m_entries) {
        if (!entry.patience.hasExpired())
            entry.patience = forever;
    }
}

std::vector<WaitingCalls::Entry> WaitingCalls::unclear() const
{
    std::vector<Entry> entries;
    std::copy_if(m_entries.begin(), m_entries.end(), std::back_inserter(entries),
                 [](const Entry &each) { return each.isDoubtful || each.patience.hasExpired(); });
    return entries;
}

} // namespace Tavoro::Gate
