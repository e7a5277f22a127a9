#include <tavorowire/checksums.h>

#include <libdeflate.h>

#include <array>

namespace Tavoro::SSProxy::Wire {

namespace {

constexpr std::array<quint16, 256> crc16Table()
{
    std::array<quint16, 256> table{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        unsigned value = byte;
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1) ? value >> 1 ^ 0x8408 : value >> 1;
        table[byte] = static_cast<quint16>(value);
    }
    return table;
}

} // namespace

quint16 crc16(std::string_view bytes)
{
    static constexpr auto table = crc16Table();
    unsigned value = 0xFFFF;
    for (const char byte : bytes)
        value = value >> 8 ^ table[(value ^ static_cast<quint8>(byte)) & 0xFF];
    return static_cast<quint16>(~value);
}

quint32 crc32(std::string_view bytes, quint32 before)
{
    return bytes.empty() ? before : libdeflate_crc32(before, bytes.data(), bytes.size());
}

} // namespace Tavoro::SSProxy::Wire
