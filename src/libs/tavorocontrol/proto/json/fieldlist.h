#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace ajson {

/// The names of a record's fields, as views into the text that declares them.
///
/// Commas, white space or both separate the names. The text is parsed at compile time, so the list
/// of a record needs no initialisation.
class FieldList {
public:
    static constexpr std::size_t maxSize = 64;

    constexpr explicit FieldList(const char *text) noexcept
    {
        while (*text != '\0') {
            const char *const begin = text;
            while (!isSeparator(*text) && *text != '\0')
                ++text;
            if (text != begin)
                append(begin, static_cast<std::size_t>(text - begin));
            while (isSeparator(*text))
                ++text;
        }
    }

    /// Number of names in the text. If it is more than \c maxSize, the list holds only the first
    /// ones.
    constexpr std::size_t size() const noexcept { return m_size; }
    constexpr std::string_view operator[](std::size_t i) const noexcept { return m_names[i]; }

    constexpr bool hasRepeatedName() const noexcept
    {
        for (std::size_t i = 1; i < m_size && i < maxSize; ++i) {
            for (std::size_t j = 0; j < i; ++j) {
                if (m_names[i] == m_names[j])
                    return true;
            }
        }
        return false;
    }

private:
    static constexpr bool isSeparator(char c) noexcept
    {
        return c == ',' || c == ' ' || c == '\t' || c == '\n' || c == '\f' || c == '\r';
    }

    constexpr void append(const char *name, std::size_t length) noexcept
    {
        if (m_size < maxSize)
            m_names[m_size] = std::string_view(name, length);
        ++m_size;
    }

    std::array<std::string_view, maxSize> m_names{};
    std::size_t m_size = 0;
};

} // namespace ajson
