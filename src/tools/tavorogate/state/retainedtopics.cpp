#include "retainedtopics.h"

#include <QCryptographicHash>

namespace Tavoro::Gate {

namespace {

/// Empty for an empty payload, which clears a topic.
QByteArray hashOf(const QByteArray &payload)
{
    return payload.isEmpty() ? QByteArray()
                             : QCryptographicHash::hash(payload, QCryptographicHash::Sha1);
}

} // namespace

void RetainedTopics::setTopics(StateKind kind, const std::vector<StateTopic> &topics)
{
    for (auto each = m_records.begin(); each != m_records.end();) {
        if (each->kind != kind) {
            ++each;
            continue;
        }
        markChanged(each.key());
        each = m_records.erase(each);
    }
    for (const StateTopic &topic : topics) {
        m_records.insert(topic.name, {kind, topic.record});
        markChanged(topic.name);
    }
}

void RetainedTopics::markChanged(const QString &name)
{
    if (m_isChanged.contains(name))
        return;
    m_isChanged.insert(name);
    m_changed.push_back(name);
}

void RetainedTopics::forgetBroker()
{
    m_held.clear();
    for (auto each = m_records.constBegin(); each != m_records.constEnd(); ++each)
        markChanged(each.key());
}

void RetainedTopics::setHeld(const QString &name, const QByteArray &payload)
{
    if (payload.isEmpty())
        m_held.remove(name);
    else
        m_held.insert(name, hashOf(payload));
    markChanged(name);
}

std::optional<std::pair<QString, QByteArray>> RetainedTopics::takeDifference()
{
    while (!m_changed.empty()) {
        const QString name = m_changed.front();
        m_changed.pop_front();
        m_isChanged.remove(name);
        const auto record = m_records.constFind(name);
        const QByteArray payload = record == m_records.constEnd() ? QByteArray() : record->make();
        const QByteArray hash = hashOf(payload);
        if (m_held.value(name) == hash)
            continue;
        if (hash.isEmpty())
            m_held.remove(name);
        else
            m_held.insert(name, hash);
        return std::make_pair(name, payload);
    }
    return {};
}

} // namespace Tavoro::Gate
