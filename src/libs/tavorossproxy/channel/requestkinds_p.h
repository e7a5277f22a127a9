#pragma once

#include <tavorossproxy/devicecommand.h>
#include <tavorowire/wirehead.h>

#include <QtGlobal>

namespace Tavoro::SSProxy::Internal {

/// A request can have this type.
inline bool isRequestType(quint8 type)
{
    return type >= quint8(CommandType::Read) && type <= quint8(CommandType::BinaryWrite);
}

inline bool isRead(const Wire::WireHead &request)
{
    return request.type == quint8(CommandType::Read)
        || request.type == quint8(CommandType::BinaryRead);
}

/// The request carries a packet of a file.
inline bool isContent(const Wire::WireHead &request)
{
    return request.type == quint8(CommandType::BinaryWrite);
}

/// The device may keep the answer to \a request and send it packet by packet.
inline bool mayBeSplitRead(const Wire::WireHead &request)
{
    constexpr quint8 linkCommands = 0x01; // base code; their answers are short
    return isRead(request) && request.BC != linkCommands;
}

/// The device collects the packets of a split write.
inline bool isSplitWrite(const Wire::WireHead &request)
{
    return request.type == quint8(CommandType::Write) && request.totalCount > 1;
}

/// No packet of the body follows the one with \a head.
inline bool isLastPacket(const Wire::WireHead &head)
{
    return quint64(head.sendCount) + 1 >= head.totalCount;
}

/// The device carries a write out when it has received this packet.
inline bool isDecisiveWrite(const Wire::WireHead &request)
{
    const bool isWrite = request.type == quint8(CommandType::Write)
        || request.type == quint8(CommandType::BinaryWrite);
    return isWrite && isLastPacket(request);
}

} // namespace Tavoro::SSProxy::Internal
