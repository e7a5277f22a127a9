#pragma once

#include "plainreader.h"

/// What the codec writes, composed from strings, character by character.
namespace PlainWriter {

std::string text(const std::string &value);

template <class Value>
std::string text(const std::vector<Value> &vector);

template <class Value>
std::string text(const Value &value)
{
    if constexpr (std::is_arithmetic_v<Value>) {
        return std::to_string(value);
    } else {
        const std::vector<std::string> names = plainFieldList(Value::fieldList());
        std::string object;
        std::size_t index = 0;
        value.visitFields([&](const auto &...members) {
            (..., (object += ",\"" + names[index++] + "\":" + text(members)));
        });
        object[0] = '{';
        return object + '}';
    }
}

template <class Value>
std::string text(const std::vector<Value> &vector)
{
    std::string array;
    for (std::size_t i = 0; i < vector.size(); ++i) {
        const Value value = vector[i];
        array += (i == 0 ? "" : ",") + text(value);
    }
    return '[' + array + ']';
}

} // namespace PlainWriter
