#include "fileplace.h"

#include "number.h"
#include "texts.h"

#include <tavorobizmodel/enums.h>

#include <algorithm>
#include <iterator>

namespace Tavoro::Ctl {

namespace {

namespace Type = BizModel::Enum::File;

struct TypeRow {
    const char *name;
    Type::FileType type;
};
constexpr TypeRow typeRows[] = {
    {"background", Type::Background},
    {"logo", Type::Logo},
    {"screen-preset", Type::ScreenPreset},
    {"device-preset", Type::DevicePreset},
};

} // namespace

QStringList fileTypeNames()
{
    QStringList names;
    for (const TypeRow &row : typeRows)
        names += QLatin1String(row.name);
    return names;
}

std::optional<int> parseFileType(const QString &text)
{
    const auto named =
        std::find_if(std::begin(typeRows), std::end(typeRows),
                     [&](const TypeRow &row) { return text == QLatin1String(row.name); });
    if (named != std::end(typeRows))
        return named->type;
    int type = 0;
    return readNumber(text, highestFileNumber, type) ? std::optional(type) : std::nullopt;
}

QString fileTypeName(int type)
{
    const auto named = std::find_if(std::begin(typeRows), std::end(typeRows),
                                    [=](const TypeRow &row) { return row.type == type; });
    return named == std::end(typeRows) ? QString::number(type) : QLatin1String(named->name);
}

bool readFilePlace(const QString &type, const QString &id, FilePlace &place, QString &fault)
{
    const std::optional<int> known = parseFileType(type);
    if (!known)
        fault = Texts::tr("\"%1\" is not a file type; use 0 to %2 or one of: %3")
                    .arg(type)
                    .arg(highestFileNumber)
                    .arg(fileTypeNames().join(QStringLiteral(", ")));
    else if (!readNumber(id, highestFileNumber, place.id))
        fault = Texts::tr("\"%1\" is not a valid file ID (0 to %2)").arg(id).arg(highestFileNumber);
    place.type = known.value_or(0);
    return fault.isEmpty();
}

QString placeName(const FilePlace &place)
{
    return QStringLiteral("%1:%2").arg(place.type).arg(place.id);
}

} // namespace Tavoro::Ctl
