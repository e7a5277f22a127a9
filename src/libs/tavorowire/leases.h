#pragma once

#include <QtGlobal>

#include <optional>
#include <string>

namespace Tavoro::SSProxy::Wire {

/// The first byte of the filters in a write of \c LinkCommand::Lease.
enum class LeaseAction : quint8 {
    Take = 1, ///< Take the lease, or renew it, unless another client holds it.
    Release = 2, ///< End the lease. Without effect if this client does not hold it.
};

constexpr quint16 longestLease = 3600; ///< Seconds for which a device grants a lease.
constexpr std::size_t longestHolderName = 64; ///< Bytes of the name of a holder.

/// The body of a request that takes the lease.
///
/// \code
/// 0  u16      seconds     1 to longestLease
/// 2  UTF-8    holder      1 to longestHolderName bytes without control characters
/// \endcode
struct LeaseRequest {
    quint16 seconds = 0;
    std::string holder;
};
/// Returns the body of a request that takes the lease.
std::string encodeLeaseRequest(const LeaseRequest &request);
/// Reads the body of a request that takes the lease. Returns nothing if it has another length or if
/// the name is not valid; the seconds may be out of range.
std::optional<LeaseRequest> decodeLeaseRequest(const std::string &body);

/// Who holds the lease, as seen by the client that receives it.
enum class LeaseState : quint8 {
    Free = 0, ///< No client holds it.
    Yours = 1, ///< The client holds it.
    Others = 2, ///< Another client holds it.
};

/// The body of each answer about the lease.
///
/// \code
/// 0  u8       state
/// 1  u32      milliseconds until the lease ends; 0 if it is free
/// 5  UTF-8    holder; empty if it is free
/// \endcode
struct Lease {
    LeaseState state = LeaseState::Free;
    quint32 milliseconds = 0;
    std::string holder;
};
/// Returns the body of an answer about the lease.
std::string encodeLease(const Lease &lease);
/// Reads the body of an answer about the lease. Returns nothing if it is not valid.
std::optional<Lease> decodeLease(const std::string &body);

} // namespace Tavoro::SSProxy::Wire
