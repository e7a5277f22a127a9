#pragma once

#include <QtGlobal>

#include <string_view>

namespace Tavoro::SSProxy::Wire {

/// Returns the CRC-16/IBM-SDLC of \a bytes: polynomial 0x1021 reflected, initial value and final
/// exclusive or 0xFFFF. The checksum of "123456789" is 0x906E.
quint16 crc16(std::string_view bytes);

/// Returns the CRC-32 of zlib: polynomial 0x04C11DB7 reflected, initial value and final exclusive
/// or 0xFFFFFFFF. The checksum of "123456789" is 0xCBF43926. To continue a checksum, pass that of
/// the preceding bytes as \a before.
quint32 crc32(std::string_view bytes, quint32 before = 0);

} // namespace Tavoro::SSProxy::Wire
