#pragma once

#include <QtGlobal>

#include <optional>
#include <string>

namespace Tavoro::SSProxy::Wire {

/// How a device tells a client's connections apart from each other and from those of others.
///
/// \code
/// 0  8 bytes  client      any; the same for all connections of a channel
/// 8  u32      number      of the connection, higher than those before
/// \endcode
struct ConnectionId {
    std::string client; ///< Of 8 bytes.
    quint32 number = 0;
};
/// The body of an identity request.
std::string encodeConnectionId(const ConnectionId &id);
/// Nothing when \a body is no such thing, as that of clients that do not tell.
std::optional<ConnectionId> decodeConnectionId(const std::string &body);

/// Which request an outcome is asked for: the one that was sent with \c number over \c connection.
/// Its bytes are those of the connection and a u32.
struct RequestId {
    ConnectionId connection;
    quint32 number = 0;
};
std::string encodeRequestId(const RequestId &id);
std::optional<RequestId> decodeRequestId(const std::string &body);

/// What a device knows of a request: the first byte of the answer. The second is the status.
enum class OutcomeState : quint8 {
    Unknown = 0, ///< The device does not remember so far back.
    NotArrived = 1, ///< It has not come, and will not come any more.
    UnderWay = 2, ///< It has come, and is not done.
    Done = 3, ///< It was answered with the status, whether the answer arrived or not.
};

} // namespace Tavoro::SSProxy::Wire
