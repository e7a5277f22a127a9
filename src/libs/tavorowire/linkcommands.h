#pragma once

#include <tavorowire/wirehead.h>

namespace Tavoro::SSProxy::Wire {

/// Codes that are between a client and a device alone and no commands of the device: what travels
/// under them is in docs/wire.md.
enum class LinkCommand : quint16 {
    Control = 0x0101, ///< Who holds control: read, written, and reported to those it concerns.
    Outcome = 0x0102, ///< What became of an earlier request: read.
};

inline void setCode(WireHead &head, LinkCommand command)
{
    head.BC = static_cast<quint8>(static_cast<quint16>(command) >> 8);
    head.FC = static_cast<quint8>(static_cast<quint16>(command) & 0xFF);
}

inline bool hasCode(const WireHead &head, LinkCommand command)
{
    return head.code() == static_cast<quint16>(command);
}

/// What a device tells a client in \c controlState of its identity and in the first argument of a
/// control report.
enum class ControlState : quint8 {
    Yours = 0, ///< The client holds control, or would get it by its first write.
    Others = 1, ///< Another client holds it.
};

} // namespace Tavoro::SSProxy::Wire
