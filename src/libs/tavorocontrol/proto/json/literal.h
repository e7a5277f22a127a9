#pragma once

// Constant texts, joined at compile time.

#include <array>
#include <cstddef>
#include <cstring>

namespace ajson {

/// A text without characters.
struct NoText {
    static constexpr std::size_t size = 0;
    static constexpr std::array<char, 0> text{};
};

template <char Character>
struct Symbol {
    static constexpr std::size_t size = 1;
    static constexpr std::array<char, 1> text{Character};
};

/// The texts one after the other, followed by \a Padding NULs.
template <std::size_t Padding, class... Texts>
constexpr auto joined()
{
    std::array<char, (Texts::size + ... + Padding)> text{};
    std::size_t at = 0;
    const auto append = [&](const auto &part) {
        for (const char c : part)
            text[at++] = c;
    };
    (..., append(Texts::text));
    return text;
}

template <class... Texts>
struct Joined {
    static constexpr std::size_t size = (Texts::size + ... + 0);
    static constexpr std::array<char, size> text = joined<0, Texts...>();
};

} // namespace ajson
