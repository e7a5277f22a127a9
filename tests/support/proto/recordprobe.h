#pragma once

#include <tavorocontrol/proto/codec.h>

#include <QByteArray>
#include <QByteArrayList>
#include <QtGlobal>
#include <QtTest>

#include <algorithm>
#include <cstddef>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

/// The text of a record, or of a list of records.
template <class Record>
QByteArray encoded(const Record &record)
{
    std::string text;
    ajson::encodeRecord(record, text);
    return QByteArray::fromStdString(text);
}

/// The record, or list of records, in \a json. The test fails if \a json is not valid.
template <class Record>
Record decoded(const QByteArray &json)
{
    Record record;
    std::string error;
    if (!ajson::decodeRecord(json.toStdString(), record, error))
        QTest::qFail(error.c_str(), __FILE__, __LINE__);
    return record;
}

/// The error text of the codec for \a json; empty if \a json is valid.
template <class Record>
QByteArray decodeError(const QByteArray &json)
{
    Record record;
    std::string error;
    return ajson::decodeRecord(json.toStdString(), record, error)
        ? QByteArray()
        : QByteArray::fromStdString(error);
}

/// The operations of the shared tests on a record whose type they do not know.
struct RecordProbe {
    QByteArray (*defaultText)();
    QByteArray (*fieldTypes)(); ///< In wire order: u8, i32, string, record, list and so on.
    QByteArray (*rewritten)(const QByteArray &json); ///< Decoded and encoded again.
    QByteArray (*rewrittenList)(const QByteArray &json);
    bool (*everyFieldDiffersFromDefault)(const QByteArray &json);
};

namespace RecordProbes {

// clang-format off
inline const char *typeName(const quint8 &)      { return "u8"; }
inline const char *typeName(const quint16 &)     { return "u16"; }
inline const char *typeName(const quint32 &)     { return "u32"; }
inline const char *typeName(const quint64 &)     { return "u64"; }
inline const char *typeName(const qint32 &)      { return "i32"; }
inline const char *typeName(const bool &)        { return "bool"; }
inline const char *typeName(const std::string &) { return "string"; }
template <class T>
const char *typeName(const std::vector<T> &)     { return "list"; }
template <class Record, class = decltype(&Record::fieldList)>
const char *typeName(const Record &)             { return "record"; }
// clang-format on

template <class Value>
bool differs(const Value &value, const Value &other);

/// A list differs when it has elements and no field of an element has its default.
template <class Record>
bool differs(const std::vector<Record> &list, const std::vector<Record> &)
{
    const auto full = [](const Record &element) {
        return differs(element, Record());
    };
    return !list.empty() && std::all_of(list.begin(), list.end(), full);
}

template <class Fields, std::size_t... I>
bool allDiffer(const Fields &fields, const Fields &others, std::index_sequence<I...>)
{
    return (differs(std::get<I>(fields), std::get<I>(others)) && ...);
}

template <class Value, class = void>
constexpr bool isRecord = false;
template <class Value>
constexpr bool isRecord<Value, std::void_t<decltype(&Value::fieldList)>> = true;

/// A record differs when each of its fields does.
template <class Value>
bool differs(const Value &value, const Value &other)
{
    if constexpr (isRecord<Value>) {
        const auto tie = [](const auto &...fields) {
            return std::tie(fields...);
        };
        const auto fields = value.visitFields(tie);
        return allDiffer(fields, other.visitFields(tie),
                         std::make_index_sequence<std::tuple_size_v<decltype(fields)>>());
    } else {
        return value != other;
    }
}

template <class Record>
QByteArray fieldTypes()
{
    return Record().visitFields(
        [](const auto &...fields) { return QByteArrayList{typeName(fields)...}.join(' '); });
}

} // namespace RecordProbes

template <class Record>
constexpr RecordProbe probe()
{
    using List = std::vector<Record>;
    return {
        [] { return encoded(Record()); },
        &RecordProbes::fieldTypes<Record>,
        [](const QByteArray &json) { return encoded(decoded<Record>(json)); },
        [](const QByteArray &json) { return encoded(decoded<List>(json)); },
        [](const QByteArray &json) {
            return RecordProbes::differs(decoded<Record>(json), Record());
        },
    };
}
