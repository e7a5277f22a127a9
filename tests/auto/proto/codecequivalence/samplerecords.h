#pragma once

#include <tavorocontrol/proto/fields.h>

#include <cstdint>
#include <string>
#include <vector>

/// Records with a field of each type that a field can have.
namespace Sample {

struct Point {
    std::int32_t x = -1;
    std::uint8_t y = 2;
    TAVORO_FIELDS(x, y)
};

struct Identity {
    std::uint8_t id = 7;
    std::int32_t kind = 0;
    TAVORO_FIELDS(id, kind)
};

struct Numbers {
    std::uint8_t u8 = 0;
    std::uint16_t u16 = 0;
    std::uint32_t u32 = 0;
    std::uint64_t u64 = 0;
    std::int8_t i8 = 0;
    std::int16_t i16 = 0;
    std::int32_t i32 = 0;
    std::int64_t i64 = 0;
    bool flag = false;
    TAVORO_FIELDS(u8, u16, u32, u64, i8, i16, i32, i64, flag)
};

struct Lists {
    std::vector<std::int32_t> numbers;
    std::vector<std::uint8_t> bytes;
    std::vector<std::string> words;
    std::vector<bool> flags;
    std::vector<Point> points;
    std::vector<std::vector<std::uint16_t>> grid;
    TAVORO_FIELDS(numbers, bytes, words, flags, points, grid)
};

/// Contains all of them, with an inherited field first and names with common beginnings.
struct Everything : Identity {
    std::string name = "N/A";
    Point point;
    std::string nameLong;
    Numbers numbers;
    bool on = true;
    Lists lists;
    std::vector<Numbers> rows;
    TAVORO_FIELDS(id, name, point, nameLong, numbers, on, lists, rows, kind)
};

} // namespace Sample
