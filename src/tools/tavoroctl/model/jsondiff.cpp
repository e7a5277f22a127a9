#include "jsondiff.h"

#include <tavoroctl/arguments/texts.h>
#include <tavorooperations/jsontext.h>

#include <QJsonArray>
#include <QJsonObject>
#include <QStringList>

#include <algorithm>

namespace Tavoro::Ctl {

namespace {

QString valueText(const QJsonValue &value)
{
    return value.isUndefined() ? Texts::tr("nothing") : Operations::jsonText(value);
}

void compare(const QString &path, const QJsonValue &before, const QJsonValue &after,
             std::vector<Difference> &found);

void compareObjects(const QString &path, const QJsonObject &before, const QJsonObject &after,
                    std::vector<Difference> &found)
{
    QStringList keys = before.keys() + after.keys();
    keys.sort();
    keys.removeDuplicates();
    const QString place = path.isEmpty() ? path : path + QLatin1Char('.');
    for (const QString &key : keys)
        compare(place + key, before.value(key), after.value(key), found);
}

void compareArrays(const QString &path, const QJsonArray &before, const QJsonArray &after,
                   std::vector<Difference> &found)
{
    const auto count = static_cast<int>(std::max(before.size(), after.size()));
    for (int i = 0; i < count; ++i) {
        const auto at = [i](const QJsonArray &array) {
            return i < array.size() ? array.at(i) : QJsonValue(QJsonValue::Undefined);
        };
        compare(QStringLiteral("%1[%2]").arg(path).arg(i), at(before), at(after), found);
    }
}

void compare(const QString &path, const QJsonValue &before, const QJsonValue &after,
             std::vector<Difference> &found)
{
    if (before == after)
        return;
    if (before.isObject() && after.isObject())
        compareObjects(path, before.toObject(), after.toObject(), found);
    else if (before.isArray() && after.isArray())
        compareArrays(path, before.toArray(), after.toArray(), found);
    else
        found.push_back({path, before, after});
}

} // namespace

QString Difference::text() const
{
    return QStringLiteral("%1 %2 -> %3").arg(path, valueText(before), valueText(after));
}

QJsonObject Difference::toJson() const
{
    QJsonObject object{{QStringLiteral("path"), path}};
    if (!before.isUndefined())
        object.insert(QStringLiteral("before"), before);
    if (!after.isUndefined())
        object.insert(QStringLiteral("after"), after);
    return object;
}

std::vector<Difference> differences(const QJsonValue &before, const QJsonValue &after)
{
    std::vector<Difference> found;
    compare({}, before, after, found);
    return found;
}

QString textOf(const std::vector<Difference> &differences)
{
    QStringList texts;
    for (const Difference &difference : differences)
        texts += difference.text();
    return texts.join(QStringLiteral(", "));
}

} // namespace Tavoro::Ctl
