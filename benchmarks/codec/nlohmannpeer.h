#pragma once

#include "recordtree.h"

#include <nlohmann/json.hpp>

namespace Peer {

/// nlohmann-json: reads by events into the records, writes from its tree.
class Nlohmann {
public:
    template <class Value>
    void decode(const std::string &text, Value &value)
    {
        Handler handler(value);
        Json::sax_parse(text, &handler);
    }

    template <class Value>
    std::string encode(const Value &value)
    {
        return tree(value).dump(-1, ' ', true);
    }

private:
    using Json = nlohmann::ordered_json;

    struct Handler : EventSink {
        using EventSink::EventSink;
        bool null() { return true; }
        bool boolean(bool value) { return number(value); }
        bool number_integer(std::int64_t value) { return number(value); }
        bool number_unsigned(std::uint64_t value)
        {
            return number(static_cast<std::int64_t>(value));
        }
        bool number_float(double value, const std::string &)
        {
            return number(static_cast<std::int64_t>(value));
        }
        bool string(std::string &value) { return text(value.data(), value.size()); }
        bool binary(Json::binary_t &) { return false; }
        bool start_object(std::size_t) { return open(); }
        bool key(std::string &value) { return EventSink::key(value.data(), value.size()); }
        bool end_object() { return close(); }
        bool start_array(std::size_t) { return open(); }
        bool end_array() { return close(); }
        bool parse_error(std::size_t, const std::string &, const nlohmann::detail::exception &)
        {
            return false;
        }
    };

    template <class Value>
    static Json tree(const Value &value)
    {
        if constexpr (ajson::IsVector<Value>::value) {
            Json array = Json::array();
            array.get_ref<Json::array_t &>().reserve(value.size());
            for (const auto &element : value)
                array.push_back(tree(element));
            return array;
        } else if constexpr (ajson::HasFields<Value>::value) {
            return object(value, typename ajson::RecordFields<Value>::Indices());
        } else if constexpr (std::is_same_v<Value, bool>) {
            return static_cast<int>(value);
        } else {
            return value;
        }
    }

    template <class Record, std::size_t... I>
    static Json object(const Record &record, std::index_sequence<I...>)
    {
        using Fields = ajson::RecordFields<Record>;
        Json json = Json::object();
        Json::object_t &members = json.get_ref<Json::object_t &>();
        members.reserve(sizeof...(I));
        record.visitFields(
            [&members](const auto &...values) { // Keys differ, so there is no search for each.
                (..., members.Container::emplace_back(std::string(Fields::list[I]), tree(values)));
            });
        return json;
    }
};

} // namespace Peer
