#include "connectionnotifier_p.h"

#include "channellink_p.h"
#include "channelreadiness_p.h"

#include <optional>

namespace Tavoro::SSProxy::Internal {

void ConnectionNotifier::notify(const ChannelLink *link) const
{
    if (m_handler)
        m_handler(state(link));
}

ConnectionState ConnectionNotifier::state(const ChannelLink *link) const
{
    ConnectionState state;
    state.connections = m_readiness.connections();
    if (link && link->isReady()) {
        state.phase = ConnectionState::Phase::Ready;
        return state;
    }
    const auto pause = link ? link->timeToNextAttempt() : std::nullopt;
    state.phase = pause ? ConnectionState::Phase::Pausing
        : link          ? ConnectionState::Phase::Connecting
                        : ConnectionState::Phase::Stopped;
    state.pause = pause.value_or(state.pause);
    state.reason = m_readiness.reason();
    return state;
}

} // namespace Tavoro::SSProxy::Internal
