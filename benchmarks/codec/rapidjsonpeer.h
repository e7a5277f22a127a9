#pragma once

#include "recordtree.h"

#define RAPIDJSON_SSE2
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace Peer {

/// RapidJSON: reads by events into the records, writes with its writer.
class RapidJson {
public:
    template <class Value>
    void decode(const std::string &text, Value &value)
    {
        Handler handler(value);
        rapidjson::StringStream stream(text.c_str());
        m_reader.Parse(stream, handler);
    }

    template <class Value>
    std::string_view encode(const Value &value)
    {
        m_buffer.Clear();
        m_writer.Reset(m_buffer);
        write(value);
        return {m_buffer.GetString(), m_buffer.GetSize()};
    }

private:
    struct Handler : EventSink {
        using EventSink::EventSink;
        bool Null() { return true; }
        bool Bool(bool value) { return number(value); }
        bool Int(int value) { return number(value); }
        bool Uint(unsigned value) { return number(value); }
        bool Int64(std::int64_t value) { return number(value); }
        bool Uint64(std::uint64_t value) { return number(static_cast<std::int64_t>(value)); }
        bool Double(double value) { return number(static_cast<std::int64_t>(value)); }
        bool RawNumber(const char *, unsigned, bool) { return false; }
        bool String(const char *string, unsigned length, bool) { return text(string, length); }
        bool Key(const char *string, unsigned length, bool) { return key(string, length); }
        bool StartObject() { return open(); }
        bool EndObject(unsigned) { return close(); }
        bool StartArray() { return open(); }
        bool EndArray(unsigned) { return close(); }
    };

    template <class Value>
    void write(const Value &value)
    {
        if constexpr (ajson::IsVector<Value>::value) {
            m_writer.StartArray();
            for (const auto &element : value)
                write(element);
            m_writer.EndArray();
        } else if constexpr (ajson::HasFields<Value>::value) {
            writeFields(value, typename ajson::RecordFields<Value>::Indices());
        } else if constexpr (std::is_same_v<Value, std::string>) {
            m_writer.String(value.data(), static_cast<unsigned>(value.size()));
        } else if constexpr (std::is_unsigned_v<Value>) {
            m_writer.Uint(value);
        } else {
            m_writer.Int(value);
        }
    }

    template <class Record, std::size_t... I>
    void writeFields(const Record &record, std::index_sequence<I...>)
    {
        using Fields = ajson::RecordFields<Record>;
        m_writer.StartObject();
        record.visitFields([this](const auto &...members) {
            (...,
             (m_writer.Key(Fields::list[I].data(), static_cast<unsigned>(Fields::list[I].size())),
              write(members)));
        });
        m_writer.EndObject();
    }

    rapidjson::Reader m_reader;
    rapidjson::StringBuffer m_buffer;
    rapidjson::Writer<rapidjson::StringBuffer> m_writer{m_buffer};
};

} // namespace Peer
