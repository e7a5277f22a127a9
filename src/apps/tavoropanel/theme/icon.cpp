#include "icon.h"

// Expands to a declaration, which must be outside of namespaces. A static library needs the call.
static void registerIcons()
{
    Q_INIT_RESOURCE(icons);
}

namespace Tavoro::Panel {

QIcon icon(const char *name)
{
    registerIcons();
    const QString wanted = QLatin1String(name);
    return QIcon::fromTheme(wanted, QIcon(QStringLiteral(":/icons/%1.svg").arg(wanted)));
}

} // namespace Tavoro::Panel
