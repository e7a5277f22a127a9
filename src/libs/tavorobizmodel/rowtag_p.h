#pragma once

namespace Tavoro::BizModel::RowFormat {

/// What a value of a row begins with. The characters stand in files: never change one.
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
