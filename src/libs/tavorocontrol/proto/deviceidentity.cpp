#include <tavorocontrol/proto/deviceidentity.h>

#include <tavorocontrol/proto/codec.h>
#include <tavorocontrol/proto/hexdigits.h>

#include <utility>

namespace Tavoro::ProtoModel {

std::string encodeIdentity(const DeviceBaseInfo &info)
{
    s_DeviceIdentity identity;
    static_cast<DeviceBaseInfo &>(identity) = info;
    identity.sn = hexDigits(info.sn);
    identity.mac = hexDigits(info.mac);
    std::string body;
    ajson::encodeRecord(identity, body);
    return body;
}

bool decodeIdentity(const std::string &body, DeviceBaseInfo &info, std::string &error)
{
    s_DeviceIdentity identity;
    if (!ajson::decodeRecord(body, identity, error))
        return false;
    DeviceBaseInfo &decoded = identity;
    if (!parseHexDigits(identity.sn, decoded.sn)) {
        error = QT_TRANSLATE_NOOP("Tavoro::ProtoModel",
                                  "the serial number is not 16 hexadecimal digits");
        return false;
    }
    if (!parseHexDigits(identity.mac, decoded.mac)) {
        error =
            QT_TRANSLATE_NOOP("Tavoro::ProtoModel", "the MAC address is not 12 hexadecimal digits");
        return false;
    }
    info = std::move(decoded);
    return true;
}

std::string identityKey(const DeviceBaseInfo &info)
{
    if (info.sn != decltype(info.sn){})
        return hexDigits(info.sn);
    if (info.mac != decltype(info.mac){})
        return hexDigits(info.mac);
    return {};
}

} // namespace Tavoro::ProtoModel
