#pragma once

#include <QString>

namespace Tavoro::Panel {

/// The colours of the window.
enum class Theme : int {
    Dark,
    Light,
    System, ///< Dark or light, as the desktop is.
};

/// Shows the application in the colours of a theme, with the icons that fit them.
void applyTheme(Theme theme);
/// The theme that applyTheme() was last called with.
Theme currentTheme();

/// The word for a theme in settings and on the command line: dark, light or system.
QString themeName(Theme theme);
/// The theme of a word; Dark for other words.
Theme themeOf(const QString &name);

} // namespace Tavoro::Panel
