#pragma once

#include <tavorocontrol/proto/fields.h>
#include <tavorocontrol/proto/recordcodec.h>

#include <cstdint>
#include <string>
#include <vector>

/// Records with a field of every kind.
namespace CodecRecords {

struct Inner {
    std::int32_t a = 1;
    std::int32_t b = 2;
    TAVORO_FIELDS(a, b)
};

struct Base {
    std::uint8_t id = 9;
};

struct Outer : Base {
    std::int32_t unlisted = 5;
    std::string name = "N/A";
    Inner x;
    std::vector<Inner> list;
    std::vector<std::uint8_t> numbers;
    std::vector<std::string> words;
    std::vector<bool> flags;
    std::vector<std::vector<std::int32_t>> rows;
    std::int32_t last = -1;
    TAVORO_FIELDS(id, name, x, list, numbers, words, flags, rows, last)
};

} // namespace CodecRecords

TAVORO_CODEC(CodecRecords::Inner)
TAVORO_CODEC(CodecRecords::Outer)
