#include "storedrecord.h"

namespace Tavoro::Sim {

namespace {

constexpr unsigned firstOfTwo = 0x80; ///< The first character that takes two bytes in UTF-8.
constexpr unsigned zero = 0x100; ///< Stands for the byte 0, at which the codec ends a text.

} // namespace

void bytesToCharacters(std::string &text)
{
    std::string expanded;
    for (const char byte : text) {
        const unsigned character = byte == 0 ? zero : static_cast<unsigned char>(byte);
        if (character < firstOfTwo) {
            expanded += byte;
        } else {
            expanded += static_cast<char>(0xC0 | character >> 6);
            expanded += static_cast<char>(0x80 | (character & 0x3F));
        }
    }
    text = std::move(expanded);
}

void charactersToBytes(std::string &text)
{
    std::string joined;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned character = static_cast<unsigned char>(text[i]);
        if (character >= firstOfTwo && i + 1 < text.size())
            character = (character & 0x1F) << 6 | (static_cast<unsigned char>(text[++i]) & 0x3F);
        joined += static_cast<char>(character);
    }
    text = std::move(joined);
}

} // namespace Tavoro::Sim
