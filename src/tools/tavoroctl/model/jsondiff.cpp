#include "jsondiff.h"

#include <tavorooperations/jsontext.h>

#include <QJsonArray>
#include <QJsonObject>

#include <algorithm>

namespace Tavoro::Ctl {

namespace {

QString valueText(const QJsonValue &value)
{
    return value.isUndefined() ? QStringLiteral("nothing") : Operations::jsonText(value);
}

void compare(const QString &path, const QJsonValue &before, const QJsonValue &after,
             QStringList &found);

void compareObjects(const QString &path, const QJsonObject &before, const QJsonObject &after,
                    QStringList &found)
{
    QStringList keys = before.keys() + after.keys();
    keys.sort();
    keys.removeDuplicates();
    const QString place = path.isEmpty() ? path : path + QLatin1Char('.');
    for (const QString &key : keys)
        compare(place + key, before.value(key), after.value(key), found);
}

void compareArrays(const QString &path, const QJsonArray &before, const QJsonArray &after,
                   QStringList &found)
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
             QStringList &found)
{
    if (before == after)
        return;
    if (before.isObject() && after.isObject())
        compareObjects(path, before.toObject(), after.toObject(), found);
    else if (before.isArray() && after.isArray())
        compareArrays(path, before.toArray(), after.toArray(), found);
    else
        found += QStringLiteral("%1 %2 -> %3").arg(path, valueText(before), valueText(after));
}

} // namespace

QStringList differences(const QJsonValue &before, const QJsonValue &after)
{
    QStringList found;
    compare({}, before, after, found);
    return found;
}

} // namespace Tavoro::Ctl
