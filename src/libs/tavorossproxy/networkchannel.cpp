#include <tavorossproxy/networkchannel.h>

namespace Tavoro::SSProxy {

NetworkChannel::NetworkChannel() = default;
NetworkChannel::~NetworkChannel() = default;

} // namespace Tavoro::SSProxy
