#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

/// The bytes of one run, read piece by piece from the start. After the end it returns zeros and
/// empty texts.
class Input {
public:
    Input(const std::uint8_t *data, std::size_t size)
        : m_rest(reinterpret_cast<const char *>(data), size)
    { }

    bool isEmpty() const { return m_rest.empty(); }

    std::uint8_t byte()
    {
        const std::string_view taken = bytes(1);
        return taken.empty() ? std::uint8_t(0) : static_cast<std::uint8_t>(taken.front());
    }
    std::uint16_t number()
    {
        const unsigned high = byte();
        return static_cast<std::uint16_t>(high << 8 | byte());
    }
    bool flag() { return (byte() & 1) != 0; }
    /// A text after its length.
    std::string_view text() { return bytes(number()); }
    std::string_view rest() { return bytes(m_rest.size()); }

private:
    std::string_view bytes(std::size_t count)
    {
        const std::string_view taken = m_rest.substr(0, count);
        m_rest.remove_prefix(taken.size());
        return taken;
    }

    std::string_view m_rest;
};
