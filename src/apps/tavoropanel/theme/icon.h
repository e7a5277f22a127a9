#pragma once

#include <QIcon>

namespace Tavoro::Panel {

/// The icon with this name of the icon theme, or the one that the program contains if the theme
/// does not have it.
QIcon icon(const char *name);

} // namespace Tavoro::Panel
