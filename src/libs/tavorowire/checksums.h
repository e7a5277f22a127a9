#pragma once

#include <QtGlobal>

#include <string_view>

namespace Tavoro::SSProxy::Wire {

/// CRC-16/IBM-SDLC: polynomial 0x1021 reflected, initial value and final inversion 0xFFFF. Of
/// "123456789" it is 0x906E.
quint16 crc16(std::string_view bytes);

/// CRC-32 of zlib: polynomial 0x04C11DB7 reflected, initial value and final inversion 0xFFFFFFFF.
/// Of "123456789" it is 0xCBF43926. \a before is the checksum of the bytes in front of \a bytes.
quint32 crc32(std::string_view bytes, quint32 before = 0);

} // namespace Tavoro::SSProxy::Wire
