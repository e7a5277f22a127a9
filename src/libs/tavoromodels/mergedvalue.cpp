#include "mergedvalue_p.h"

#include <QMetaType>
#include <QString>
#include <QVariantList>
#include <QVariantMap>

namespace Tavoro::Models {

namespace {

/// Converts \a value to the type of \a current. Returns nothing if that is not possible.
std::optional<QVariant> converted(const QVariant &current, const QVariant &value)
{
    bool isValid = true;
    switch (current.userType()) {
    case QMetaType::Bool:
        return value.canConvert<bool>() ? std::optional<QVariant>(value.toBool()) : std::nullopt;
    case QMetaType::Int: {
        const int number = value.toInt(&isValid);
        return isValid ? std::optional<QVariant>(number) : std::nullopt;
    }
    case QMetaType::UInt: {
        const unsigned number = value.toUInt(&isValid);
        return isValid ? std::optional<QVariant>(number) : std::nullopt;
    }
    case QMetaType::QString:
        return value.canConvert<QString>() ? std::optional<QVariant>(value.toString())
                                           : std::nullopt;
    case QMetaType::QVariantList:
        return value.canConvert<QVariantList>() ? std::optional<QVariant>(value.toList())
                                                : std::nullopt;
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<QVariant> mergedValue(const QVariant &current, const QVariant &value)
{
    if (current.userType() != QMetaType::QVariantMap)
        return converted(current, value);
    if (!value.canConvert<QVariantMap>())
        return std::nullopt;
    QVariantMap result = current.toMap();
    const QVariantMap changes = value.toMap();
    for (auto change = changes.begin(); change != changes.end(); ++change) {
        const auto field = result.find(change.key());
        const auto now = field == result.end() ? std::nullopt : mergedValue(*field, change.value());
        if (!now)
            return std::nullopt;
        *field = *now;
    }
    return result;
}

} // namespace Tavoro::Models
