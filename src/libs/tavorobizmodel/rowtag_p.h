#pragma once

namespace Tavoro::BizModel::RowFormat {

/// The first byte of a value in a row. The characters are written to files: never change one.
enum class Tag : char {
    None = 0, ///< Ends a record.
    True = 't',
    False = 'f',
    Number = 'u',
    Negative = 'n',
    Bytes = 'b',
    List = 'l',
    Record = 'r',
};

} // namespace Tavoro::BizModel::RowFormat
