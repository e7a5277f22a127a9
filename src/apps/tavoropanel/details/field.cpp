#include "field.h"

#include <QCoreApplication>
#include <QStringList>
#include <QVariantMap>

#include <cmath>

namespace Tavoro::Panel {

QString fieldText(const char *text)
{
    return QCoreApplication::translate("Details", text);
}

QString Section::titleText() const
{
    return fieldText(title);
}

QString Field::key() const
{
    return QString::fromLatin1(path).section(QLatin1Char('.'), 0, 0);
}

QString Field::labelText() const
{
    return fieldText(label);
}

QString Field::unitText() const
{
    return *unit ? QLatin1Char(' ') + fieldText(unit) : QString();
}

int Field::decimals() const
{
    return static_cast<int>(std::lround(std::log10(divisor)));
}

QString Field::choiceText(int value) const
{
    for (const FieldChoice *choice = choices; choice && choice->text; ++choice) {
        if (choice->value == value)
            return fieldText(choice->text);
    }
    return {};
}

QVariant Field::valueIn(const QVariant &keyValue) const
{
    QVariant value = keyValue;
    const QStringList keys = QString::fromLatin1(path).split(QLatin1Char('.')).mid(1);
    for (const QString &key : keys)
        value = value.toMap().value(key);
    return value;
}

QVariant Field::changeTo(const QVariant &value) const
{
    QVariant change = value;
    const QStringList keys = QString::fromLatin1(path).split(QLatin1Char('.'));
    for (int i = static_cast<int>(keys.size()) - 1; i > 0; --i)
        change = QVariantMap{{keys.at(i), change}};
    return change;
}

} // namespace Tavoro::Panel
