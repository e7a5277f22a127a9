#pragma once

#include <QtGlobal>

#include <optional>
#include <string>

namespace Tavoro::SSProxy::Wire {

/// Identifies a connection of a client to the device.
///
/// \code
/// 0  8 bytes  client      random; the same for all connections of a channel
/// 8  u32      number      of the connection; increases with each connection
/// \endcode
struct ConnectionId {
    std::string client; ///< 8 bytes.
    quint32 number = 0; ///< Number of the connection, from 1.
};
/// Returns the body of an identity request.
std::string encodeConnectionId(const ConnectionId &id);
/// Reads the body of an identity request. Returns nothing if \a body has another length: clients
/// need not identify their connections.
std::optional<ConnectionId> decodeConnectionId(const std::string &body);

/// Identifies the request with \c number that was sent over \c connection. Encoded as the bytes of
/// the connection and a u32.
struct RequestId {
    ConnectionId connection;
    quint32 number = 0;
};
/// Returns the body of a request for an outcome.
std::string encodeRequestId(const RequestId &id);
/// Reads the body of a request for an outcome. Returns nothing if \a body has another length.
std::optional<RequestId> decodeRequestId(const std::string &body);

/// What a device knows about a request: the first byte of the answer. The second byte is the
/// status.
enum class OutcomeState : quint8 {
    Unknown = 0, ///< The device does not remember the request.
    NotArrived = 1, ///< The request was not carried out, and will not be.
    UnderWay = 2, ///< The request has arrived and is not answered yet.
    Done = 3, ///< The request was answered with the status; the client may not have received it.
};

} // namespace Tavoro::SSProxy::Wire
