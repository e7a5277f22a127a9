#include "setupfile.h"

namespace Tavoro::Ctl {

bool readSetupFile(const Arguments &arguments, const QString &defaultType, const QString &kind,
                   SetupFile &file, QString &fault)
{
    const QMap<QString, QString> &options = arguments.options;
    FilePlace place;
    if (!readFilePlace(options.value(QStringLiteral("type"), defaultType), arguments.words.at(1),
                       place, fault))
        return false;
    file.id = {place.id, place.type};
    file.general.name =
        options.value(QStringLiteral("name"), QStringLiteral("%1 %2").arg(kind).arg(place.id))
            .toStdString();
    return true;
}

} // namespace Tavoro::Ctl
