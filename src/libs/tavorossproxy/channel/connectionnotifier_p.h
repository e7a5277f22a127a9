#pragma once

#include <tavorossproxy/networkchannel.h>

#include <functional>
#include <utility>

namespace Tavoro::SSProxy::Internal {

class ChannelLink;
class ChannelReadiness;

/// Reports the state of a channel's connection to the application's handler. On the loop's thread.
class ConnectionNotifier {
public:
    using Handler = std::function<void(const ConnectionState &)>;

    explicit ConnectionNotifier(const ChannelReadiness &readiness) : m_readiness(readiness) { }

    /// \a handler may be empty.
    void setHandler(Handler handler) { m_handler = std::move(handler); }
    /// Calls the handler. \a link is null after its end.
    void notify(const ChannelLink *link) const;

private:
    ConnectionState state(const ChannelLink *link) const;

    const ChannelReadiness &m_readiness;
    Handler m_handler;
};

} // namespace Tavoro::SSProxy::Internal
