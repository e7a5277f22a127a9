#include "plainwriter.h"

#include <cstdio>

namespace PlainWriter {

namespace {

// The states of a UTF-8 decoder as a table: which bytes are allowed, and the state after them.
struct Step {
    int state;
    int first;
    int last;
    int next; // 0 means that a code point is complete
    int payload; // mask of the bits that the byte adds
};

// clang-format off
constexpr Step steps[] = {
//   state  first  last  next  payload
    {0,     0x00,  0x7F, 0,    0x7F},
    {0,     0xC2,  0xDF, 1,    0x1F},
    {0,     0xE0,  0xE0, 4,    0x0F},
    {0,     0xE1,  0xEC, 2,    0x0F},
    {0,     0xED,  0xED, 5,    0x0F},
    {0,     0xEE,  0xEF, 2,    0x0F},
    {0,     0xF0,  0xF0, 6,    0x07},
    {0,     0xF1,  0xF3, 3,    0x07},
    {0,     0xF4,  0xF4, 7,    0x07},
    {1,     0x80,  0xBF, 0,    0x3F}, // one more
    {2,     0x80,  0xBF, 1,    0x3F}, // two more
    {3,     0x80,  0xBF, 2,    0x3F}, // three more
    {4,     0xA0,  0xBF, 1,    0x3F}, // not overlong
    {5,     0x80,  0x9F, 1,    0x3F}, // no surrogate
    {6,     0x90,  0xBF, 2,    0x3F}, // not overlong
    {7,     0x80,  0x8F, 2,    0x3F}, // not beyond U+10FFFF
};
// clang-format on

const Step *findStep(int state, int byte)
{
    for (const Step &step : steps) {
        if (step.state == state && byte >= step.first && byte <= step.last)
            return &step;
    }
    return nullptr;
}

std::string escape(unsigned unit)
{
    char text[7];
    std::snprintf(text, sizeof text, "\\u%04X", unit & 0xFFFF);
    return text;
}

std::string written(unsigned codePoint)
{
    const std::string plain("\b\t\n\f\r\"\\");
    const std::string letters("btnfr\"\\");
    if (codePoint < 0x80) {
        const std::size_t found = plain.find(static_cast<char>(codePoint));
        if (found != std::string::npos)
            return std::string("\\") + letters[found];
    }
    if (codePoint > 0xFFFF)
        return escape(codePoint >> 16) + escape(codePoint);
    if (codePoint < 32 || codePoint > 126)
        return escape(codePoint);
    return std::string(1, static_cast<char>(codePoint));
}

} // namespace

std::string text(const std::string &value)
{
    std::string content;
    int state = 0;
    unsigned codePoint = 0;
    for (const char c : value) {
        const int byte = static_cast<unsigned char>(c);
        const Step *step = findStep(state, byte);
        if (!step || byte == 0)
            break;
        codePoint = codePoint << 6 | static_cast<unsigned>(byte & step->payload);
        state = step->next;
        if (state == 0) {
            content += written(codePoint);
            codePoint = 0;
        }
    }
    return '"' + content + '"';
}

} // namespace PlainWriter
