#pragma once

#include <QtGlobal>

#include <cstring>
#include <string>
#include <type_traits>

namespace Tavoro::SSProxy::Wire {

static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "the host has the wire's byte order");

/// Returns the bytes of \a number, as on the wire.
template <class Number>
std::string bytesOf(Number number)
{
    static_assert(std::is_unsigned_v<Number>);
    std::string bytes(sizeof number, '\0');
    std::memcpy(bytes.data(), &number, sizeof number);
    return bytes;
}

/// Returns the number at \a position, which \a bytes must contain.
template <class Number>
Number numberAt(const std::string &bytes, std::size_t position)
{
    static_assert(std::is_unsigned_v<Number>);
    Number number = 0;
    std::memcpy(&number, bytes.data() + position, sizeof number);
    return number;
}

} // namespace Tavoro::SSProxy::Wire
