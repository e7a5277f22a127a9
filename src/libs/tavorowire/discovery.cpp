#include <tavorowire/discovery.h>

#include <tavorocontrol/proto/deviceidentity.h>

namespace Tavoro::SSProxy::Wire {

namespace {

constexpr std::string_view requestPrefix = "reqKELVORIN:";
constexpr std::string_view answerPrefix = "rspKELVORIN:";

bool begins(std::string_view datagram, std::string_view prefix)
{
    return datagram.substr(0, prefix.size()) == prefix;
}

} // namespace

QByteArray encodeDiscoveryRequest()
{
    return {requestPrefix.data(), static_cast<int>(requestPrefix.size())};
}

bool isDiscoveryRequest(std::string_view datagram)
{
    return begins(datagram, requestPrefix);
}

QByteArray encodeDiscoveryAnswer(ProtoModel::DeviceBaseInfo info)
{
    info.slotModels.clear(); // the list of a large chassis would not fit into a datagram
    return QByteArray::fromStdString(std::string(answerPrefix) + ProtoModel::encodeIdentity(info));
}

bool decodeDiscoveryAnswer(std::string_view datagram, ProtoModel::DeviceBaseInfo &info,
                           std::string &error)
{
    if (!begins(datagram, answerPrefix)) {
        error = "it is not a discovery answer";
        return false;
    }
    ProtoModel::DeviceBaseInfo decoded;
    if (!ProtoModel::decodeIdentity(std::string(datagram.substr(answerPrefix.size())), decoded,
                                    error))
        return false;
    if (decoded.tcpPort == 0) {
        error = "its port is 0";
        return false;
    }
    info = std::move(decoded);
    return true;
}

} // namespace Tavoro::SSProxy::Wire
