#pragma once

#include <tavorowire/wirehead.h>

namespace Tavoro::SSProxy::Wire {

/// Codes of requests that concern the link between client and device. They are not commands of the
/// device. docs/wire.md describes their bodies.
enum class LinkCommand : quint16 {
    Control = 0x0101, ///< Which client holds control. Can be read, written and reported.
    Outcome = 0x0102, ///< The outcome of an earlier request. Can be read.
    Lease = 0x0103, ///< Which client holds the lease. Can be read and written.
};

/// Sets the command code of a head.
inline void setCode(WireHead &head, LinkCommand command)
{
    head.BC = static_cast<quint8>(static_cast<quint16>(command) >> 8);
    head.FC = static_cast<quint8>(static_cast<quint16>(command) & 0xFF);
}

/// Returns true if a head has the command code.
inline bool hasCode(const WireHead &head, LinkCommand command)
{
    return head.code() == static_cast<quint16>(command);
}

/// Who holds control, as seen by the client that receives it: value of \c controlState in an
/// identity, and of the first argument byte of a control report.
enum class ControlState : quint8 {
    Yours = 0, ///< The client holds control, or gets it with its next write.
    Others = 1, ///< Another client holds it.
};

} // namespace Tavoro::SSProxy::Wire
