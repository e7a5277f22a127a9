#include "recordschema.h"

#include <QByteArrayList>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <iterator>

namespace {

/// The bounds of an integer of each width, as numbers for comparing and as texts for writing: a
/// QJsonValue holds 64 bits only as a double.
struct IntegerRow {
    const char *name;
    double minimum;
    double maximum;
    const char *minimumText;
    const char *maximumText;
    const char *beyondMaximumText;
};

// clang-format off
constexpr IntegerRow integerRows[] = {
    {"u8",            0,                  255, "0",           "255",                  "256"},
    {"u16",           0,                65535, "0",           "65535",                "65536"},
    {"u32",           0,           4294967295, "0",           "4294967295",           "4294967296"},
    {"u64",           0, 18446744073709551615.0, "0",         "18446744073709551615", "18446744073709551616"},
    {"i32", -2147483648.0,         2147483647, "-2147483648", "2147483647",           "2147483648"},
};
// clang-format on

bool isSame(double a, double b)
{
    return !(a < b) && !(b < a);
}

const IntegerRow *integerRow(const QJsonObject &schema)
{
    const double minimum = schema[QLatin1String("minimum")].toDouble(1);
    const double maximum = schema[QLatin1String("maximum")].toDouble(0);
    const auto row = std::find_if(
        std::begin(integerRows), std::end(integerRows), [&](const IntegerRow &candidate) {
            return isSame(candidate.minimum, minimum) && isSame(candidate.maximum, maximum);
        });
    return row == std::end(integerRows) ? nullptr : row;
}

bool isFlag(const QJsonObject &schema)
{
    return schema[QLatin1String("enum")] == QJsonArray({0, 1});
}

QString type(const QJsonObject &schema)
{
    return schema[QLatin1String("type")].toString();
}

bool isInteger(const QJsonObject &schema)
{
    return type(schema) == QLatin1String("integer");
}

QByteArray typeName(const QJsonObject &schema)
{
    if (isInteger(schema) && isFlag(schema))
        return "bool";
    if (isInteger(schema))
        return integerRow(schema) ? integerRow(schema)->name : "?";
    if (type(schema) == QLatin1String("string"))
        return "string";
    if (type(schema) == QLatin1String("array"))
        return "list";
    return type(schema) == QLatin1String("object") ? "record" : "?";
}

QByteArray integerText(const QJsonObject &schema, RecordSchema::Choice choice)
{
    const bool flag = isFlag(schema);
    const IntegerRow *const row = integerRow(schema);
    if (!flag && !row)
        return "?";
    switch (choice) {
    case RecordSchema::Choice::Default:
        break;
    case RecordSchema::Choice::Minimum:
        return flag ? "0" : row->minimumText;
    case RecordSchema::Choice::Maximum:
        return flag ? "1" : row->maximumText;
    case RecordSchema::Choice::BeyondMaximum:
        return flag ? "0" : row->beyondMaximumText;
    }
    return QByteArray::number(schema[QLatin1String("default")].toDouble(), 'f', 0);
}

QByteArray quoted(const QString &text)
{
    return '"' + text.toUtf8() + '"';
}

QString integerError(const QJsonObject &schema, const QJsonValue &value)
{
    const double number = value.toDouble();
    if (!value.isDouble())
        return QStringLiteral("not a number");
    if (isFlag(schema))
        return isSame(number, 0) || isSame(number, 1) ? QString() : QStringLiteral("not 0 or 1");
    return number < schema[QLatin1String("minimum")].toDouble()
            || number > schema[QLatin1String("maximum")].toDouble()
        ? QStringLiteral("out of range")
        : QString();
}

} // namespace

RecordSchema::RecordSchema()
{
    QFile file(QStringLiteral(SCHEMA_DIR "/records.json"));
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QJsonObject document = QJsonDocument::fromJson(file.readAll()).object();
    m_definitions = document[QLatin1String("$defs")].toObject();
}

bool RecordSchema::contains(const QByteArray &record) const
{
    return m_definitions.contains(QString::fromUtf8(record));
}

QJsonObject RecordSchema::definition(const QByteArray &record) const
{
    return m_definitions[QString::fromUtf8(record)].toObject();
}

QJsonObject RecordSchema::resolved(const QJsonObject &schema) const
{
    const QString reference = schema[QLatin1String("$ref")].toString();
    const QLatin1String folder("#/$defs/");
    return reference.startsWith(folder) ? m_definitions[reference.mid(folder.size())].toObject()
                                        : schema;
}

QByteArray RecordSchema::fieldTypes(const QByteArray &record) const
{
    const QJsonObject properties = definition(record)[QLatin1String("properties")].toObject();
    QByteArrayList types;
    for (const QJsonValue key : definition(record)[QLatin1String("required")].toArray())
        types << typeName(resolved(properties[key.toString()].toObject()));
    return types.size() == properties.size() ? types.join(' ') : QByteArray();
}

QByteArray RecordSchema::text(const QByteArray &record, Choice choice) const
{
    return objectText(definition(record), choice);
}

QByteArray RecordSchema::objectText(const QJsonObject &definition, Choice choice) const
{
    const QJsonObject properties = definition[QLatin1String("properties")].toObject();
    QByteArrayList members;
    for (const QJsonValue key : definition[QLatin1String("required")].toArray())
        members << quoted(key.toString()) + ':'
                + valueText(properties[key.toString()].toObject(), choice);
    return '{' + members.join(',') + '}';
}

QByteArray RecordSchema::valueText(const QJsonObject &schema, Choice choice) const
{
    const bool isDefault = choice == Choice::Default;
    if (isInteger(schema))
        return integerText(schema, choice);
    if (type(schema) == QLatin1String("string"))
        return quoted(isDefault ? schema[QLatin1String("default")].toString()
                                : QStringLiteral("text"));
    if (type(schema) == QLatin1String("array") && isDefault)
        return QJsonDocument(schema[QLatin1String("default")].toArray())
            .toJson(QJsonDocument::Compact);
    if (type(schema) == QLatin1String("array"))
        return '[' + valueText(schema[QLatin1String("items")].toObject(), choice) + ']';
    return objectText(resolved(schema), choice);
}

QString RecordSchema::error(const QByteArray &record, const QByteArray &json) const
{
    const QJsonDocument document = QJsonDocument::fromJson(json);
    return document.isObject() ? objectError(definition(record), document.object())
                               : QStringLiteral("not an object");
}

QString RecordSchema::objectError(const QJsonObject &definition, const QJsonObject &object) const
{
    const QJsonObject properties = definition[QLatin1String("properties")].toObject();
    for (const QJsonValue key : definition[QLatin1String("required")].toArray()) {
        if (!object.contains(key.toString()))
            return key.toString() + QStringLiteral(": missing");
    }
    for (auto it = properties.begin(); it != properties.end(); ++it) {
        const QString error = valueError(it.value().toObject(), object[it.key()]);
        if (!error.isEmpty())
            return it.key() + QStringLiteral(": ") + error;
    }
    return {};
}

QString RecordSchema::valueError(const QJsonObject &schema, const QJsonValue &value) const
{
    if (isInteger(schema))
        return integerError(schema, value);
    if (type(schema) == QLatin1String("string"))
        return value.isString() ? QString() : QStringLiteral("not a string");
    if (type(schema) != QLatin1String("array"))
        return value.isObject() ? objectError(resolved(schema), value.toObject())
                                : QStringLiteral("not an object");
    if (!value.isArray())
        return QStringLiteral("not an array");
    for (const QJsonValue element : value.toArray()) {
        const QString error = valueError(schema[QLatin1String("items")].toObject(), element);
        if (!error.isEmpty())
            return error;
    }
    return {};
}
