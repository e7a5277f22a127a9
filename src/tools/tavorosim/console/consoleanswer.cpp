#include "consoleanswer.h"

#include <tavorosim/state/texts.h>

namespace Tavoro::Sim {

QString ConsoleAnswer::line() const
{
    const QString verdict = ok ? QStringLiteral("ok") : QStringLiteral("error");
    return text.isEmpty() ? verdict : verdict + QLatin1Char(' ') + text;
}

QString consoleHelpLine(const QString &call, const char *effect)
{
    return QStringLiteral("  %1 %2\n").arg(call, -44).arg(Texts::tr(effect));
}

} // namespace Tavoro::Sim
