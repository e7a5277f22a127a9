#include "shownvalues.h"

#include <tavoropanel/sources/formattexts.h>

#include <tavorobizmodel/enums.h>

#include <QCoreApplication>
#include <QLocale>
#include <QVariantList>
#include <QVariantMap>

namespace Tavoro::Panel {

namespace {

/// The translations of the details.
class ValueWords {
    Q_DECLARE_TR_FUNCTIONS(Details)
};

struct FileTypeName {
    int type;
    const char *name;
};

// clang-format off
constexpr FileTypeName fileTypeNames[] = {
    {BizModel::Enum::File::Background,   QT_TRANSLATE_NOOP("Details", "Background")},
    {BizModel::Enum::File::Logo,         QT_TRANSLATE_NOOP("Details", "Logo")},
    {BizModel::Enum::File::ScreenPreset, QT_TRANSLATE_NOOP("Details", "Preset of screens")},
    {BizModel::Enum::File::DevicePreset, QT_TRANSLATE_NOOP("Details", "Preset of the device")},
};
// clang-format on

int activeSize(const QVariantMap &timing, const char *axis)
{
    return timing.value(QLatin1String(axis)).toMap().value(QStringLiteral("addTime")).toInt();
}

} // namespace

QString timingText(const QVariant &timing)
{
    const QVariantMap map = timing.toMap();
    ProtoModel::s_TimingDetailBody record;
    record.horizontal.addTime = activeSize(map, "horizontal");
    record.vertical.addTime = activeSize(map, "vertical");
    record.refresh = map.value(QStringLiteral("refresh")).toInt();
    record.interlaced = map.value(QStringLiteral("interlaced")).toInt();
    return timingText(record);
}

QString bytesText(const QVariant &length)
{
    return QLocale().formattedDataSize(length.toLongLong());
}

QString yesNoText(const QVariant &flag)
{
    return flag.toBool() ? ValueWords::tr("Yes") : ValueWords::tr("No");
}

QString sizeText(const QVariant &record)
{
    const QVariantMap map = record.toMap();
    return sizeText(map.value(QStringLiteral("width")).toInt(),
                    map.value(QStringLiteral("height")).toInt());
}

QString countText(const QVariant &list)
{
    return QLocale().toString(list.toList().size());
}

QString plainText(const QVariant &value)
{
    return value.toString();
}

QString fileTypeText(const QVariant &fileType)
{
    for (const FileTypeName &row : fileTypeNames) {
        if (row.type == fileType.toInt())
            return ValueWords::tr(row.name);
    }
    return ValueWords::tr("Type %1").arg(fileType.toInt());
}

} // namespace Tavoro::Panel
