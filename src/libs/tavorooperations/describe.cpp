#include <tavorooperations/schema.h>

#include "operation_p.h"

#include <tavorooperations/jsontext.h>

#include <QJsonArray>
#include <QLatin1Char>
#include <QLatin1String>
#include <QStringList>

#include <utility>

namespace Tavoro::Operations {

namespace {

const QString definitionPrefix = QStringLiteral("#/$defs/");

/// The schema of a type as Argument::type names it, other than a number.
QJsonObject schemaOf(const QString &type)
{
    if (type == QLatin1String("JSON"))
        return {};
    if (type == QLatin1String("TEXT"))
        return {{QStringLiteral("type"), QStringLiteral("string")}};
    if (type.startsWith(QLatin1Char('[')))
        return {{QStringLiteral("type"), QStringLiteral("array")},
                {QStringLiteral("items"), schemaOf(type.mid(1, type.size() - 2))}};
    return {{QStringLiteral("$ref"), definitionPrefix + type}};
}

QJsonObject schemaOf(const Argument &argument)
{
    if (argument.type != QLatin1String("FILTER") && argument.type != QLatin1String("NUMBER"))
        return schemaOf(argument.type);
    return {{QStringLiteral("type"), QStringLiteral("integer")},
            {QStringLiteral("minimum"), argument.minimum},
            {QStringLiteral("maximum"), argument.maximum}};
}

/// The definitions to which \a schema refers, also through others.
void addDefinitions(QJsonObject &definitions, const QJsonValue &schema)
{
    static const QJsonObject all =
        jsonValue(recordsDocument()).toObject().value(QLatin1String("$defs")).toObject();
    if (schema.isArray()) {
        const QJsonArray elements = schema.toArray();
        for (const QJsonValue element : elements)
            addDefinitions(definitions, element);
    }
    const QJsonObject object = schema.toObject();
    for (auto member = object.begin(); member != object.end(); ++member)
        addDefinitions(definitions, member.value());
    const QString name =
        object.value(QLatin1String("$ref")).toString().mid(definitionPrefix.size());
    if (name.isEmpty() || definitions.contains(name))
        return;
    definitions.insert(name, all.value(name));
    addDefinitions(definitions, all.value(name));
}

QJsonArray argumentsOf(const Operation &operation)
{
    QJsonArray list;
    for (const Argument &argument : operation.arguments())
        list += QJsonObject{{QStringLiteral("name"), argument.name},
                            {QStringLiteral("schema"), schemaOf(argument)}};
    return list;
}

QLatin1String nameOf(ScopeKind kind)
{
    switch (kind) {
    case ScopeKind::Device:
        return QLatin1String("device");
    case ScopeKind::Interfaces:
        return QLatin1String("interfaces");
    case ScopeKind::Files:
        return QLatin1String("files");
    case ScopeKind::Screens:
        return QLatin1String("screens");
    case ScopeKind::Layers:
        return QLatin1String("layers");
    }
    return {};
}

QJsonArray changesOf(const Operation &operation)
{
    QJsonArray list;
    for (const Change &change : operation.changes()) {
        Scope scope;
        scope.kind = change.kind;
        list += QJsonObject{{QStringLiteral("kind"), nameOf(change.kind)},
                            {QStringLiteral("keys"), QJsonArray::fromStringList(change.keys)},
                            {QStringLiteral("read"), scope.readOperation()}};
    }
    return list;
}

QString hexCode(SSProxy::Command command)
{
    const QString digits = QString::number(static_cast<uint>(command), 16).toUpper();
    return QStringLiteral("0x") + digits;
}

} // namespace

QJsonObject describe(const Operation &operation)
{
    const bool isRead = operation.direction() == Direction::Read;
    QJsonObject text{
        {QStringLiteral("name"), operation.name()},
        {QStringLiteral("code"), hexCode(operation.command())},
        {QStringLiteral("type"), isRead ? QStringLiteral("read") : QStringLiteral("write")},
        {QStringLiteral("summary"),
         QString::fromUtf8(Internal::summaryOf(operation.name().toLatin1().constData()))},
        {QStringLiteral("arguments"), argumentsOf(operation)},
    };
    if (!operation.answer().isEmpty())
        text.insert(QStringLiteral("answer"), schemaOf(operation.answer()));
    if (!isRead)
        text.insert(QStringLiteral("changes"), changesOf(operation));
    if (!operation.whyNothingChanges().isEmpty())
        text.insert(QStringLiteral("whyNothingChanges"), operation.whyNothingChanges());
    QJsonObject definitions;
    addDefinitions(definitions, text);
    text.insert(QStringLiteral("$defs"), definitions);
    return text;
}

} // namespace Tavoro::Operations
