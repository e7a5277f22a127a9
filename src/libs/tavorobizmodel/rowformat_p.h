#pragma once

// The format of one row of the store: a record of a device as bytes.
//
//     row      = version record       ; version is 01
//     record   = "r" *(name value) 00
//     name     = length 1*byte        ; length is one byte, 1 to 255; as in TAVORO_FIELDS
//     value    = "t" / "f"            ; true, false
//              / "u" varint           ; an integer of 0 or more
//              / "n" varint           ; a negative integer: -1 is 0, -2 is 1
//              / "b" varint *byte     ; text or bytes: their length, then the bytes as they are
//              / "l" varint *value    ; a list: the count of its values, then the values
//              / record
//     varint   = seven bits per byte, the lowest first; bit 7 is set in every byte but the last
//
// The format is lossless: text is stored as bytes, valid UTF-8 or not. The names come from the
// field lists of the records. A new field needs no new version: a reader skips unknown names, and a
// missing field keeps its default. An integer can be read into every type that it fits.
//
// The version changes when these rules change, never with the records.

#include "rowreader_p.h"
#include "rowwriter_p.h"

#include <tavorocontrol/proto/json/fieldlist.h>
#include <tavorocontrol/proto/signalbodies.h>

#include <QByteArray>
#include <QtGlobal>

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace Tavoro::BizModel::RowFormat {

constexpr char version = 1;

/// Calls \a visit with name and member of each stored field: the fields that are sent, and the
/// pixels of a crop, which the model computes.
template <class Record, class Visitor>
void visitStoredFields(Record &record, const Visitor &visit)
{
    using Plain = std::remove_const_t<Record>;
    static constexpr ajson::FieldList names{Plain::fieldList()};
    record.visitFields([&visit](auto &...members) {
        std::size_t field = 0;
        (..., visit(names[field++], members));
    });
    if constexpr (std::is_same_v<Plain, ProtoModel::s_CropBody>)
        visit(std::string_view("rect"), record.rect);
}

// One overload per kind of value; all other types are records.

inline void write(RowWriter &writer, bool value)
{
    writer.putTag(value ? Tag::True : Tag::False);
}

template <class Integer>
std::enable_if_t<std::is_integral_v<Integer>> write(RowWriter &writer, Integer value)
{
    if constexpr (std::is_signed_v<Integer>) {
        if (value < 0) {
            writer.putNumber(Tag::Negative,
                             static_cast<quint64>(-(static_cast<qint64>(value) + 1)));
            return;
        }
    }
    writer.putNumber(Tag::Number, static_cast<quint64>(value));
}

inline void write(RowWriter &writer, const std::string &text)
{
    writer.putBytes(text.data(), text.size());
}

template <std::size_t size>
void write(RowWriter &writer, const std::array<quint8, size> &bytes)
{
    writer.putBytes(reinterpret_cast<const char *>(bytes.data()), size);
}

template <class Record>
std::enable_if_t<std::is_class_v<Record>> write(RowWriter &writer, const Record &record);

template <class Value>
void write(RowWriter &writer, const std::vector<Value> &list)
{
    writer.putNumber(Tag::List, list.size());
    for (const Value &value : list)
        write(writer, value);
}

template <class Record>
std::enable_if_t<std::is_class_v<Record>> write(RowWriter &writer, const Record &record)
{
    writer.putTag(Tag::Record);
    visitStoredFields(record, [&writer](std::string_view name, const auto &member) {
        writer.putName(name);
        write(writer, member);
    });
    writer.endRecord();
}

// The readers for the same kinds. They return false if the bytes are not such a value.

inline bool read(RowReader &reader, bool &value)
{
    const auto tag = reader.takeTag();
    value = tag == Tag::True;
    return tag == Tag::True || tag == Tag::False;
}

template <class Integer>
std::enable_if_t<std::is_integral_v<Integer>, bool> read(RowReader &reader, Integer &value)
{
    const auto tag = reader.takeTag();
    quint64 number = 0;
    if (!reader.takeVarint(number))
        return false;
    constexpr auto greatest = static_cast<quint64>(std::numeric_limits<Integer>::max());
    if (number > greatest)
        return false;
    value = static_cast<Integer>(number);
    if (tag == Tag::Negative && std::is_signed_v<Integer>)
        value = static_cast<Integer>(~number);
    else if (tag != Tag::Number)
        return false;
    return true;
}

inline bool read(RowReader &reader, std::string &text)
{
    std::string_view bytes;
    if (!reader.takeBytes(bytes))
        return false;
    text = bytes;
    return true;
}

template <std::size_t size>
bool read(RowReader &reader, std::array<quint8, size> &bytes)
{
    std::string_view stored;
    if (!reader.takeBytes(stored) || stored.size() != size)
        return false;
    std::copy(stored.begin(), stored.end(), bytes.begin());
    return true;
}

template <class Record>
std::enable_if_t<std::is_class_v<Record>, bool> read(RowReader &reader, Record &record);

template <class Value>
bool read(RowReader &reader, std::vector<Value> &list)
{
    quint64 count = 0;
    if (reader.takeTag() != Tag::List || !reader.takeVarint(count))
        return false;
    list.clear();
    for (quint64 i = 0; i < count; ++i) {
        if (!read(reader, list.emplace_back()))
            return false;
    }
    return true;
}

template <class Record>
std::enable_if_t<std::is_class_v<Record>, bool> read(RowReader &reader, Record &record)
{
    if (reader.takeTag() != Tag::Record)
        return false;
    std::string_view name;
    bool isSound = true;
    while (isSound && reader.takeName(name)) {
        bool isKnown = false;
        visitStoredFields(record, [&](std::string_view field, auto &member) {
            if (isKnown || field != name)
                return;
            isKnown = true;
            isSound = read(reader, member);
        });
        isSound = isSound && (isKnown || reader.skipValue());
    }
    return isSound && reader.isSound();
}

/// Returns \a record as a row.
template <class Record>
QByteArray encode(const Record &record)
{
    RowWriter writer;
    writer.putTag(static_cast<Tag>(version));
    write(writer, record);
    return writer.bytes();
}

/// Reads a row into \a record, which should be new: fields that are not in the row keep their
/// values. Returns false if the bytes are not a row of such a record; \a record may then hold a
/// part of it.
template <class Record>
bool decode(const QByteArray &row, Record &record)
{
    RowReader reader(row);
    return reader.takeTag() == static_cast<Tag>(version) && read(reader, record) && reader.atEnd();
}

} // namespace Tavoro::BizModel::RowFormat
