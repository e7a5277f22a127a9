#include "unknownoperation.h"

#include <tavoroctl/arguments/texts.h>
#include <tavorooperations/nearest.h>
#include <tavorooperations/operation.h>

#include <QStringList>

namespace Tavoro::Ctl {

QString faultOfOperation(const QString &name)
{
    QStringList names;
    for (const Operations::Operation &operation : Operations::all())
        names += operation.name();
    return Texts::tr("unknown operation \"%1\"%2; \"tavoroctl list\" lists all operations")
        .arg(name, Operations::suggestion(name, names));
}

} // namespace Tavoro::Ctl
