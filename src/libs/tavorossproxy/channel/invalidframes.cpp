#include "invalidframes_p.h"

#include <tavorossproxy/logging_p.h>

#include <utility>

namespace Tavoro::SSProxy::Internal {

InvalidFrames::InvalidFrames(EventLoop &loop, std::function<QString()> peerName)
    : m_peerName(std::move(peerName)),
      m_lines(loop, logInterval, [this](quint64 count) { logFurther(count); })
{ }

void InvalidFrames::add(quint16 status)
{
    ++m_count;
    m_lastStatus = status;
    if (m_lines.passes())
        qCWarning(channelLog) << "Frame refused from" << m_peerName() << "status" << status;
}

void InvalidFrames::logFurther(quint64 count) const
{
    qCWarning(channelLog) << "Further frames refused from" << m_peerName() << "number" << count
                          << "last status" << m_lastStatus;
}

} // namespace Tavoro::SSProxy::Internal
