#include <tavorossproxy/networkchannel.h>

namespace Tavoro::SSProxy {

NetworkChannel::NetworkChannel() = default;
NetworkChannel::~NetworkChannel() = default;

RequestOutcome NetworkChannel::outcomeOf(const RequestIdentity &)
{
    return {};
}

bool NetworkChannel::readControlHolder(QString &)
{
    return false;
}

void NetworkChannel::setConnectionHandler(std::function<void(const ConnectionState &)>) { }

} // namespace Tavoro::SSProxy
