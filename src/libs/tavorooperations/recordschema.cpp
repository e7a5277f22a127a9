// A definition is made from the fields of the record and from its default as the encoder writes it:
//
//   bool         {"type": "integer", "enum": [0, 1], "default": ...}
//   integer      {"type": "integer", "minimum": ..., "maximum": ..., "default": ...}
//   std::string  {"type": "string", "default": ...}
//   std::vector  {"type": "array", "items": ..., "default": []}
//   record       {"$ref": "#/$defs/..."}

#include "recordnames_p.h"

#include <tavorooperations/schema.h>

#include <tavorocontrol/proto/recordcodec.h>

#include <limits>
#include <type_traits>
#include <utility>
#include <vector>

namespace Tavoro::Operations {

namespace {

using Internal::nameOf;

constexpr char head[] =
    "{\n"
    "  \"$schema\": \"https://json-schema.org/draft/2020-12/schema\",\n"
    "  \"$id\": \"records.json\",\n"
    "  \"title\": \"Records that command bodies hold\",\n"
    "  \"description\": \"One definition per record. A sender writes every key, in the order of "
    "'required'. A receiver reads the keys in any order, skips unknown keys, and gives a missing "
    "key its 'default'.\",\n"
    "  \"$defs\": {\n";

template <class Value>
std::string encoded(const Value &value)
{
    std::string text;
    ajson::encodeRecord(value, text);
    return text;
}

/// The members of the schema of a type, without braces.
template <class Value>
std::string typeMembers()
{
    if constexpr (std::is_same_v<Value, bool>) {
        return R"("type": "integer", "enum": [0, 1])";
    } else if constexpr (std::is_integral_v<Value>) {
        using Limits = std::numeric_limits<Value>;
        return R"("type": "integer", "minimum": )" + std::to_string(Limits::min())
            + R"(, "maximum": )" + std::to_string(Limits::max());
    } else if constexpr (std::is_same_v<Value, std::string>) {
        return R"("type": "string")";
    } else if constexpr (ajson::IsVector<Value>::value) {
        return R"("type": "array", "items": {)" + typeMembers<typename Value::value_type>() + "}";
    } else {
        return R"("$ref": "#/$defs/)" + nameOf<Value>() + '"';
    }
}

/// Empty where the definition of the member's own record has the same default.
template <class Member>
std::string defaultMember(const Member &member)
{
    const std::string text = encoded(member);
    if constexpr (ajson::HasFields<Member>::value) {
        if (text == encoded(Member()))
            return {};
    }
    return R"(, "default": )" + text;
}

struct Property {
    std::string_view key;
    std::string schema;
};

template <class Member>
Property property(std::string_view key, const Member &member)
{
    return {key, '{' + typeMembers<Member>() + defaultMember(member) + '}'};
}

std::string definitionText(const std::string &name, const std::vector<Property> &properties)
{
    std::string members;
    std::string keys;
    for (const Property &property : properties) {
        const std::string key = '"' + std::string(property.key) + '"';
        members += (members.empty() ? "        " : ",\n        ") + key + ": " + property.schema;
        keys += (keys.empty() ? "" : ", ") + key;
    }
    return "    \"" + name + "\": {\n      \"type\": \"object\",\n      \"properties\": {\n"
        + members + "\n      },\n      \"required\": [" + keys + "]\n    }";
}

template <class Record, std::size_t... Field>
std::string definition(std::index_sequence<Field...>)
{
    using Fields = ajson::RecordFields<Record>;
    return Record().visitFields([](const auto &...members) {
        return definitionText(nameOf<Record>(), {property(Fields::list[Field], members)...});
    });
}

template <class Record>
std::string definition()
{
    return definition<Record>(typename ajson::RecordFields<Record>::Indices());
}

constexpr std::string (*definitions[])() = {
// The analyzer needs minutes for all records. They share one template, so one is enough.
#ifdef __clang_analyzer__
    &definition<ProtoModel::s_ScreenId>,
#else
#define TAVORO_RECORD(Record) &definition<Record>,
#include "records.inc"
#undef TAVORO_RECORD
#endif
};

} // namespace

std::string recordsDocument()
{
    std::string text = head;
    const char *separator = "";
    for (const auto definitionOf : definitions) {
        text += separator + definitionOf();
        separator = ",\n";
    }
    return text + "\n  }\n}\n";
}

} // namespace Tavoro::Operations
