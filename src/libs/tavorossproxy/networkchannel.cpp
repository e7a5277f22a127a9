#include <tavorossproxy/networkchannel.h>

namespace Tavoro::SSProxy {

namespace {

DeviceLease leaseNotSent()
{
    DeviceLease lease;
    lease.status = NotInitialized;
    return lease;
}

} // namespace

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

DeviceLease NetworkChannel::readLease()
{
    return leaseNotSent();
}

DeviceLease NetworkChannel::takeLease(const QString &, std::chrono::seconds)
{
    return leaseNotSent();
}

DeviceLease NetworkChannel::releaseLease()
{
    return leaseNotSent();
}

void NetworkChannel::setConnectionHandler(std::function<void(const ConnectionState &)>) { }

} // namespace Tavoro::SSProxy
