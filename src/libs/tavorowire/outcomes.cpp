#include <tavorowire/outcomes.h>

#include <tavorowire/littleendian.h>

namespace Tavoro::SSProxy::Wire {

namespace {

constexpr std::size_t clientSize = 8;
constexpr std::size_t connectionSize = clientSize + sizeof(quint32);
constexpr std::size_t requestSize = connectionSize + sizeof(quint32);

} // namespace

std::string encodeConnectionId(const ConnectionId &id)
{
    return id.client + bytesOf(id.number);
}

std::optional<ConnectionId> decodeConnectionId(const std::string &body)
{
    if (body.size() != connectionSize)
        return std::nullopt;
    return ConnectionId{body.substr(0, clientSize), numberAt<quint32>(body, clientSize)};
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
                     numberAt<quint32>(body, connectionSize)};
}

} // namespace Tavoro::SSProxy::Wire
