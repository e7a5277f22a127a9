#include <tavorowire/identity.h>

#include <tavorocontrol/proto/codec.h>
#include <tavorocontrol/proto/deviceidentity.h>
#include <tavorocontrol/proto/hexdigits.h>

namespace Tavoro::SSProxy::Wire {

namespace {

/// Copies the fields that are the same in both forms of the identity.
template <class From, class To>
void copyPlainFields(const From &from, To &to)
{
    to.protocolVersion = from.protocolVersion;
    to.modelId = from.modelId;
    to.hardwareVersion = from.hardwareVersion;
    to.firmwareVersion = from.firmwareVersion;
    to.tcpPort = from.tcpPort;
    to.slotCount = from.slotCount;
    to.backupPort = from.backupPort;
    to.maxPacketSize = from.maxPacketSize;
    to.name = from.name;
    to.slotModels = from.slotModels;
    to.features = from.features;
    to.startTime = from.startTime;
    to.configTime = from.configTime;
    to.controlState = from.controlState;
    to.ip = from.ip;
    to.hostName = from.hostName;
    to.extension = from.extension;
}

} // namespace

std::string encodeIdentity(const ProtoModel::DeviceBaseInfo &info)
{
    ProtoModel::s_DeviceIdentity identity;
    copyPlainFields(info, identity);
    identity.sn = ProtoModel::hexDigits(info.sn);
    identity.mac = ProtoModel::hexDigits(info.mac);
    std::string body;
    ajson::encodeRecord(identity, body);
    return body;
}

bool decodeIdentity(const std::string &body, ProtoModel::DeviceBaseInfo &info, std::string &error)
{
    ProtoModel::s_DeviceIdentity identity;
    if (!ajson::decodeRecord(body, identity, error))
        return false;
    ProtoModel::DeviceBaseInfo decoded;
    copyPlainFields(identity, decoded);
    if (!ProtoModel::bytesOfHexDigits(identity.sn, decoded.sn)) {
        error = "the serial number is not 16 hexadecimal digits";
        return false;
    }
    if (!ProtoModel::bytesOfHexDigits(identity.mac, decoded.mac)) {
        error = "the MAC address is not 12 hexadecimal digits";
        return false;
    }
    info = std::move(decoded);
    return true;
}

std::string identityKey(const ProtoModel::DeviceBaseInfo &info)
{
    if (info.sn != decltype(info.sn){})
        return ProtoModel::hexDigits(info.sn);
    if (info.mac != decltype(info.mac){})
        return ProtoModel::hexDigits(info.mac);
    return {};
}

} // namespace Tavoro::SSProxy::Wire
