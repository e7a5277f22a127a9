#include "shownvalues.h"

#include <tavorobizmodel/enums.h>

#include <QCoreApplication>
#include <QLocale>
#include <QVariantList>
#include <QVariantMap>

namespace Tavoro::Panel {

namespace {

/// The translations of the details.
class Words {
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
    const int width = activeSize(map, "horizontal");
    const int height = activeSize(map, "vertical");
    if (width <= 0 || height <= 0)
        return Words::tr("No signal");
    const QString scan =
        map.value(QStringLiteral("interlaced")).toInt() != 0 ? Words::tr("interlaced") : QString();
    //: Width and height in pixels, refresh rate, "interlaced" or nothing
    return Words::tr("%1 × %2, %3 Hz %4")
        .arg(width)
        .arg(height)
        .arg(map.value(QStringLiteral("refresh")).toInt())
        .arg(scan)
        .trimmed();
}

QString bytesText(const QVariant &length)
{
    return QLocale().formattedDataSize(length.toLongLong());
}

QString yesNoText(const QVariant &flag)
{
    return flag.toBool() ? Words::tr("Yes") : Words::tr("No");
}

QString sizeText(const QVariant &record)
{
    const QVariantMap map = record.toMap();
    const int width = map.value(QStringLiteral("width")).toInt();
    const int height = map.value(QStringLiteral("height")).toInt();
    return width > 0 && height > 0 ? Words::tr("%1 × %2 pixels").arg(width).arg(height)
                                   : Words::tr("None");
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
            return Words::tr(row.name);
    }
    return Words::tr("Type %1").arg(fileType.toInt());
}

} // namespace Tavoro::Panel
