#include "rememberedcalls.h"

#include <QCryptographicHash>

namespace Tavoro::Gate {

namespace {

QByteArray contentOf(const CallRequest &call)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(call.operation.toUtf8());
    hash.addData(QByteArray(1, '\0'));
    hash.addData(call.body);
    return hash.result();
}

bool isKept(const CallRequest &call)
{
    return !call.key.correlation.isEmpty();
}

} // namespace

RememberedCalls::Recall RememberedCalls::arrive(const CallRequest &call)
{
    if (!isKept(call))
        return {};
    const QByteArray content = contentOf(call);
    const auto found = m_calls.constFind(call.key);
    if (found == m_calls.constEnd()) {
        m_calls.insert(call.key, {content, {}});
        return {};
    }
    if (!found->content.isEmpty() && found->content != content)
        return {Kind::Different, {}};
    return find(call.key);
}

RememberedCalls::Recall RememberedCalls::find(const CallKey &key) const
{
    const auto found = m_calls.constFind(key);
    if (found == m_calls.constEnd())
        return {};
    return found->answer ? Recall{Kind::Ended, *found->answer} : Recall{Kind::UnderWay, {}};
}

void RememberedCalls::end(const CallRequest &call, const CallAnswer &answer)
{
    if (!isKept(call))
        return;
    const auto found = m_calls.find(call.key);
    if (found != m_calls.end() && found->answer)
        return;
    if (answer.record.size() > longestRecord) {
        m_calls.remove(call.key);
        return;
    }
    m_calls.insert(call.key, {found == m_calls.end() ? QByteArray() : found->content, answer});
    m_ended.push_back(call.key);
    if (m_ended.size() > mostEnded) {
        m_calls.remove(m_ended.front());
        m_ended.pop_front();
    }
}

} // namespace Tavoro::Gate
