#include "numberrange_p.h"

#include <tavorooperations/jsontext.h>
#include <tavorooperations/schema.h>

#include <QJsonObject>
#include <QRegularExpression>

namespace Tavoro::Operations::Internal {

namespace {

const QString reference = QStringLiteral("$ref");

/// \a schema, or the definition to which it refers.
QJsonObject resolved(const QJsonObject &schema)
{
    static const QJsonObject definitions =
        jsonValue(recordsDocument()).toObject().value(QLatin1String("$defs")).toObject();
    const QString name = schema.value(reference).toString().section(QLatin1Char('/'), -1);
    return name.isEmpty() ? schema : definitions.value(name).toObject();
}

/// The schema of the member of \a schema that one step of a path names: "[0]" or "x".
QJsonObject memberOf(const QJsonObject &schema, const QString &step)
{
    if (step.startsWith(QLatin1Char('[')))
        return resolved(schema.value(QLatin1String("items")).toObject());
    return resolved(schema.value(QLatin1String("properties")).toObject().value(step).toObject());
}

} // namespace

std::optional<NumberLimits> limitsAt(const QString &type, const QString &path)
{
    static const QRegularExpression step(QStringLiteral("\\[\\d+\\]|[^.\\[\\]]+"));
    const bool isList = type.startsWith(QLatin1Char('['));
    const QString record = isList ? type.mid(1, type.size() - 2) : type;
    QJsonObject schema{{reference, QStringLiteral("#/$defs/") + record}};
    schema = isList ? QJsonObject{{QStringLiteral("items"), schema}} : resolved(schema);
    QRegularExpressionMatchIterator steps = step.globalMatch(path);
    while (steps.hasNext())
        schema = memberOf(schema, steps.next().captured());
    const QString least = QStringLiteral("minimum");
    if (!schema.contains(least))
        return std::nullopt;
    return NumberLimits{static_cast<qint64>(schema.value(least).toDouble()),
                        static_cast<qint64>(schema.value(QLatin1String("maximum")).toDouble())};
}

} // namespace Tavoro::Operations::Internal
