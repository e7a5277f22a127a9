#include "outcomequery_p.h"

#include "commands_p.h"

namespace Tavoro::SSProxy::Internal {

RequestOutcome queryOutcome(DeviceChannel &channel, const Wire::RequestId &id)
{
    const auto request = makeLinkRequest(CommandType::Read, Wire::LinkCommand::Outcome);
    request->body() = Wire::encodeRequestId(id);
    const auto response = channel.sendSyncRequest(request);
    const std::string &body = response->body();
    RequestOutcome outcome;
    outcome.status = response->status;
    if (outcome.status != 0 || body.size() != 2
        || static_cast<quint8>(body[0]) > quint8(Wire::OutcomeState::Done))
        return outcome;
    outcome.state = static_cast<RequestOutcome::State>(body[0]);
    outcome.status = static_cast<quint8>(body[1]);
    return outcome;
}

} // namespace Tavoro::SSProxy::Internal
