#include <tavorowire/outcomes.h>

#include <cstring>

namespace Tavoro::SSProxy::Wire {

namespace {

constexpr std::size_t clientSize = 8;
constexpr std::size_t connectionSize = clientSize + sizeof(quint32);
constexpr std::size_t requestSize = connectionSize + sizeof(quint32);

/// The host has the wire's byte order.
std::string bytesOf(quint32 number)
{
    std::string bytes(sizeof number, '\0');
    std::memcpy(bytes.data(), &number, sizeof number);
    return bytes;
}

quint32 numberAt(const std::string &bytes, std::size_t position)
{
    quint32 number = 0;
    std::memcpy(&number, bytes.data() + position, sizeof number);
    return number;
}

} // namespace

std::string encodeConnectionId(const ConnectionId &id)
{
    return id.client + bytesOf(id.number);
}

std::optional<ConnectionId> decodeConnectionId(const std::string &body)
{
    if (body.size() != connectionSize)
        return std::nullopt;
    return ConnectionId{body.substr(0, clientSize), numberAt(body, clientSize)};
}

std::string encodeRequestId(const RequestId &id)
{
    return encodeConnectionId(id.connection) + bytesOf(id.number);
}

std::optional<RequestId> decodeRequestId(const std::string &body)
{
    if (body.size() != requestSize)
        return std::nullopt;
    return RequestId{*decodeConnectionId(body.substr(0, connectionSize)),
                     numberAt(body, connectionSize)};
}

} // namespace Tavoro::SSProxy::Wire
