#pragma once

// Access to records for the other libraries: a table of fields for those that report events,
// visitors for the rest. The key literals come from the records' own lists, parsed at compile time.

#include <tavorocontrol/proto/json/recordfields.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Peer {

enum class FieldKind {
    Boolean,
    Number,
    Text,
    Record,
    Vector
};

/// Stores events in a value of one type.
struct Type {
    FieldKind kind;
    void (*setNumber)(void *value, std::int64_t number);
    const struct Field *fields;
    std::size_t fieldCount;
    void *(*append)(void *vector);
    const Type *element;
};

struct Field {
    std::string_view name;
    const Type *type;
    std::ptrdiff_t offset;
};

template <class Value>
const Type *typeOf();

template <class Value>
void setNumber(void *value, std::int64_t number)
{
    *static_cast<Value *>(value) = static_cast<Value>(number);
}

template <class Vector>
void *append(void *vector)
{
    return &static_cast<Vector *>(vector)->emplace_back();
}

template <class Record, std::size_t... I>
std::vector<Field> fieldsOf(std::index_sequence<I...>)
{
    Record record;
    const auto offset = [&record](const auto &member) {
        return reinterpret_cast<const char *>(&member) - reinterpret_cast<const char *>(&record);
    };
    return record.visitFields([&](auto &...members) {
        return std::vector<Field>{Field{ajson::RecordFields<Record>::list[I],
                                        typeOf<std::decay_t<decltype(members)>>(),
                                        offset(members)}...};
    });
}

template <class Value>
Type makeType()
{
    if constexpr (ajson::IsVector<Value>::value) {
        return {FieldKind::Vector, nullptr,
                nullptr,           0,
                append<Value>,     typeOf<typename Value::value_type>()};
    } else if constexpr (ajson::HasFields<Value>::value) {
        static const std::vector<Field> fields =
            fieldsOf<Value>(typename ajson::RecordFields<Value>::Indices());
        return {FieldKind::Record, nullptr, fields.data(), fields.size(), nullptr, nullptr};
    } else if constexpr (std::is_same_v<Value, std::string>) {
        return {FieldKind::Text, nullptr, nullptr, 0, nullptr, nullptr};
    } else {
        return {FieldKind::Number, setNumber<Value>, nullptr, 0, nullptr, nullptr};
    }
}

template <class Value>
const Type *typeOf()
{
    static const Type type = makeType<Value>();
    return &type;
}

/// Stores parse events in a record or a vector of records.
class EventSink {
public:
    template <class Value>
    explicit EventSink(Value &value) : m_slot{typeOf<Value>(), &value}
    {
        m_open.reserve(16);
    }

    bool number(std::int64_t number)
    {
        if (const Slot slot = nextSlot(); slot.type)
            slot.type->setNumber(slot.value, number);
        return true;
    }

    bool text(const char *text, std::size_t length)
    {
        if (const Slot slot = nextSlot(); slot.type)
            static_cast<std::string *>(slot.value)->assign(text, length);
        return true;
    }

    bool open()
    {
        m_open.push_back({nextSlot(), 0});
        return true;
    }

    bool close()
    {
        m_open.pop_back();
        return true;
    }

    // Keys mostly come in the order of the fields, so the search begins after the last one.
    bool key(const char *text, std::size_t length)
    {
        Container &record = m_open.back();
        const std::string_view name(text, length);
        for (std::size_t tries = 0; tries < record.slot.type->fieldCount; ++tries) {
            if (record.next == record.slot.type->fieldCount)
                record.next = 0;
            const Field &field = record.slot.type->fields[record.next++];
            if (field.name == name) {
                m_slot = {field.type, static_cast<char *>(record.slot.value) + field.offset};
                return true;
            }
        }
        m_slot = {nullptr, nullptr};
        return true;
    }

private:
    struct Slot {
        const Type *type;
        void *value;
    };

    struct Container {
        Slot slot;
        std::size_t next;
    };

    Slot nextSlot()
    {
        if (m_open.empty() || m_open.back().slot.type->kind != FieldKind::Vector)
            return m_slot;
        const Slot vector = m_open.back().slot;
        return {vector.type->element, vector.type->append(vector.value)};
    }

    Slot m_slot;
    std::vector<Container> m_open;
};

} // namespace Peer
