#pragma once

#include <tavorocontrol/proto/devicebaseinfo.h>
#include <tavorocontrol/proto/export.h>
#include <tavorocontrol/proto/fields.h>

#include <string>

namespace Tavoro::ProtoModel {

/// The identity of a device as it is sent: the fields of \c DeviceBaseInfo, with the bytes as
/// hexadecimal digits.
struct s_DeviceIdentity : DeviceBaseInfo {
    std::string sn; ///< 16 hexadecimal digits, instead of the bytes.
    std::string mac; ///< 12 hexadecimal digits, instead of the bytes.
    TAVORO_IDENTITY_FIELDS(TAVORO_FIELDS)
};

/// Returns the identity as JSON, as it is sent over TCP and in discovery answers. Any thread.
TAVOROPROTO_EXPORT std::string encodeIdentity(const DeviceBaseInfo &info);

/// Reads an identity as encodeIdentity() writes it. Missing keys count as 0 or as empty, and
/// unknown keys are skipped; \c sn and \c mac must be 16 and 12 hexadecimal digits of either case.
/// Returns false, with the reason in \a error and \a info unchanged, if \a body is not a valid
/// identity. Any thread.
TAVOROPROTO_EXPORT bool decodeIdentity(const std::string &body, DeviceBaseInfo &info,
                                       std::string &error);

/// Returns the key that identifies a device at any address: the upper-case hexadecimal digits of
/// its serial number, or of its MAC address if the serial number is all zeros. Empty if both are
/// all zeros. Any thread.
TAVOROPROTO_EXPORT std::string identityKey(const DeviceBaseInfo &info);

} // namespace Tavoro::ProtoModel
