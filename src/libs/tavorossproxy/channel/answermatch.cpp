#include "answermatch_p.h"

#include "requestkinds_p.h"

#include <tavorossproxy/channelstatus.h>

#include <cstring>

namespace Tavoro::SSProxy::Internal {

namespace {

/// The answer contains the packet that was requested.
bool isRightPacket(const Wire::WireHead &request, const Wire::WireHead &answer)
{
    return answer.sendCount == request.sendCount
        && (request.sendCount == 0 || answer.totalCount == request.totalCount);
}

} // namespace

/// Tags and streams are reused after some time, and numbers are not.
bool isAnswerTo(const Wire::WireHead &request, const Wire::WireHead &answer)
{
    return answer.number == request.number && answer.stream == request.stream;
}

Wire::WireHead asSinglePacket(Wire::WireHead answer)
{
    if (answer.totalCount == 0 && answer.sendCount == 0)
        answer.totalCount = 1;
    return answer;
}

quint16 mismatch(const Wire::WireHead &request, const Wire::WireHead &answer,
                 quint32 maxPacketCount)
{
    if (answer.code() != request.code()
        || std::memcmp(answer.arg2, request.arg2, sizeof answer.arg2) != 0)
        return WrongAnswerCode;
    if (answer.type != request.type)
        return WrongType;
    if (isRead(request) && answer.status == 0 && !isRightPacket(request, answer))
        return WrongLength;
    if (answer.status == 0 && answer.totalCount == 0)
        return WrongLength; // an index without a count
    return answer.totalCount > maxPacketCount ? WrongLength : 0;
}

} // namespace Tavoro::SSProxy::Internal
