// What became of a request: the part of ChannelCore that asks the device.

#include "channelcore_p.h"
#include "commands_p.h"

#include <tavorowire/outcomes.h>

namespace Tavoro::SSProxy::Internal {

RequestOutcome ChannelCore::requestOutcome(quint8 lables)
{
    RequestOutcome outcome;
    if (lables == 0)
        return outcome; // the tags of a split write are those of its packets
    const auto sent = m_exchanges.lastSent(lables);
    if (!sent) {
        outcome.state = RequestOutcome::NotArrived; // it never left
        return outcome;
    }
    auto request = makeLinkRequest(CommandType::Read, Wire::LinkCommand::Outcome);
    request.body() = Wire::encodeRequestId(*sent);
    const auto response = exchange(request);
    const std::string &body = response->body();
    outcome.status = response->status;
    if (outcome.status != 0 || body.size() != 2
        || static_cast<quint8>(body[0]) > quint8(Wire::OutcomeState::Done))
        return outcome;
    outcome.state = static_cast<RequestOutcome::State>(body[0]);
    outcome.status = static_cast<quint8>(body[1]);
    return outcome;
}

} // namespace Tavoro::SSProxy::Internal
