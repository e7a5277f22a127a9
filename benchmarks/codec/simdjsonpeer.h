#pragma once

#include "recordtree.h"

#include <simdjson.h>

namespace Peer {

/// simdjson: on-demand parsing into the records, keys expected in order, input padded before the
/// measurement. It has no writer.
class SimdJson {
public:
    template <class Value>
    void decode(const simdjson::padded_string &text, Value &value)
    {
        simdjson::ondemand::document document;
        if (m_parser.iterate(text).get(document))
            return;
        if constexpr (ajson::IsVector<Value>::value) {
            simdjson::ondemand::array array;
            if (!document.get_array().get(array))
                read(array, value);
        } else {
            simdjson::ondemand::object object;
            if (!document.get_object().get(object))
                read(object, value, typename ajson::RecordFields<Value>::Indices());
        }
    }

private:
    template <class Element>
    static void read(simdjson::ondemand::array array, std::vector<Element> &vector)
    {
        for (auto element : array) {
            simdjson::ondemand::value value;
            if (!std::move(element).get(value))
                read(value, vector.emplace_back());
        }
    }

    template <class Value>
    static void read(simdjson::ondemand::value json, Value &value)
    {
        if constexpr (ajson::IsVector<Value>::value) {
            simdjson::ondemand::array array;
            if (!json.get_array().get(array))
                read(array, value);
        } else if constexpr (ajson::HasFields<Value>::value) {
            simdjson::ondemand::object object;
            if (!json.get_object().get(object))
                read(object, value, typename ajson::RecordFields<Value>::Indices());
        } else if constexpr (std::is_same_v<Value, std::string>) {
            std::string_view text;
            if (!json.get_string().get(text))
                value.assign(text);
        } else {
            std::int64_t number;
            if (!json.get_int64().get(number))
                value = static_cast<Value>(number);
        }
    }

    template <class Record, std::size_t... I>
    static void read(simdjson::ondemand::object &object, Record &record, std::index_sequence<I...>)
    {
        const auto readField = [&object](std::string_view name, auto &member) {
            simdjson::ondemand::value value;
            if (!object.find_field(name).get(value))
                read(value, member);
        };
        record.visitFields([&](auto &...members) {
            (..., readField(ajson::RecordFields<Record>::list[I], members));
        });
    }

    simdjson::ondemand::parser m_parser;
};

} // namespace Peer
