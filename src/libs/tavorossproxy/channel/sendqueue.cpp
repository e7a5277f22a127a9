#include "sendqueue_p.h"

#include <algorithm>

namespace Tavoro::SSProxy::Internal {

void SendQueue::add(quint8 tag, bool isContent)
{
    (isContent ? m_contents : m_records).push_back(tag);
}

std::optional<quint8> SendQueue::take(bool withContents)
{
    auto &tags = m_records.empty() && withContents ? m_contents : m_records;
    if (tags.empty())
        return std::nullopt;
    const quint8 tag = tags.front();
    tags.pop_front();
    return tag;
}

void SendQueue::remove(quint8 tag)
{
    for (auto *const tags : {&m_records, &m_contents})
        tags->erase(std::remove(tags->begin(), tags->end(), tag), tags->end());
}

void SendQueue::clear()
{
    m_records.clear();
    m_contents.clear();
}

} // namespace Tavoro::SSProxy::Internal
