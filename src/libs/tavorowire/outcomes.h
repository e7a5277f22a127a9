#pragma once

#include <QtGlobal>

#include <optional>
#include <string>

namespace Tavoro::SSProxy::Wire {

/// Identifies a connection of a client at the device.
///
/// \code
/// 0  8 bytes  client      random; the same for all connections of a channel
/// 8  u32      number      of the connection; increases with each connection
/// \endcode
struct ConnectionId {
    std::string client; ///< 8 bytes.
    quint32 number = 0; ///< Of the connection, from 1.
};
/// Returns the body of an identity request.
std::string encodeConnectionId(const ConnectionId &id);
/// Returns nothing if \a body has another length: clients need not identify their connections.
std::optional<ConnectionId> decodeConnectionId(const std::string &body);

/// Identifies a request: the one with \c number that was sent over \c connection. Its bytes are
/// those of the connection and a u32.
struct RequestId {
    ConnectionId connection;
    quint32 number = 0;
};
/// Returns the body of a request for an outcome.
std::string encodeRequestId(const RequestId &id);
/// Returns nothing if \a body has another length.
std::optional<RequestId> decodeRequestId(const std::string &body);

/// What a device knows about a request: the first byte of the answer. The second byte is the
/// status.
enum class OutcomeState : quint8 {
    Unknown = 0, ///< The device does not remember the request.
    NotArrived = 1, ///< Not carried out, and will not be.
    UnderWay = 2, ///< Arrived, and not answered yet.
    Done = 3, ///< Answered with the status, even if the answer was lost.
};

} // namespace Tavoro::SSProxy::Wire
