#include "theme.h"

#include "panelstyle.h"

#include <QApplication>
#include <QIcon>
#include <QPalette>
#include <QStandardPaths>

namespace Tavoro::Panel {

namespace {

struct ColourRow {
    QPalette::ColorRole role;
    QRgb dark;
    QRgb light;
};

// clang-format off
constexpr ColourRow colours[] = {
    // role                     dark        light
    {QPalette::Window,          0xff23282d, 0xffeef1f4},
    {QPalette::WindowText,      0xffe8ebee, 0xff15191d},
    {QPalette::Base,            0xff121518, 0xffffffff},
    {QPalette::AlternateBase,   0xff1a1e22, 0xfff4f6f8},
    {QPalette::Text,            0xffe8ebee, 0xff15191d},
    {QPalette::PlaceholderText, 0xff98a2ac, 0xff5c6770},
    {QPalette::Button,          0xff363e45, 0xffdfe4e9},
    {QPalette::ButtonText,      0xffe8ebee, 0xff15191d},
    {QPalette::BrightText,      0xffffffff, 0xffffffff},
    {QPalette::ToolTipBase,     0xff2d343a, 0xfffdfdf0},
    {QPalette::ToolTipText,     0xffe8ebee, 0xff15191d},
    {QPalette::Highlight,       0xff1f66ad, 0xff1559a6},
    {QPalette::HighlightedText, 0xffffffff, 0xffffffff},
    {QPalette::Link,            0xff6cb0f5, 0xff1559a6},
    {QPalette::Light,           0xff434c54, 0xffffffff},
    {QPalette::Midlight,        0xff384047, 0xffeef1f4},
    {QPalette::Mid,             0xff4c565f, 0xffa3aeb8},
    {QPalette::Dark,            0xff0f1214, 0xff97a2ac},
    {QPalette::Shadow,          0xff000000, 0xff6a747d},
};
constexpr ColourRow disabledColours[] = {
    {QPalette::WindowText,      0xff87919b, 0xff6c7680},
    {QPalette::Text,            0xff87919b, 0xff6c7680},
    {QPalette::ButtonText,      0xff87919b, 0xff6c7680},
};
// clang-format on

struct NameRow {
    Theme theme;
    const char *name;
};
constexpr NameRow names[] = {
    {Theme::Dark, "dark"}, {Theme::Light, "light"}, {Theme::System, "system"}};

Theme &current()
{
    static Theme theme = Theme::Dark;
    return theme;
}

QPalette paletteOf(bool isDark)
{
    QPalette palette;
    for (const ColourRow &row : colours)
        palette.setColor(row.role, QColor::fromRgb(isDark ? row.dark : row.light));
    for (const ColourRow &row : disabledColours)
        palette.setColor(QPalette::Disabled, row.role,
                         QColor::fromRgb(isDark ? row.dark : row.light));
    return palette;
}

/// The palette of the desktop, before the first theme replaced it.
const QPalette &desktopPalette()
{
    static const QPalette palette = QApplication::palette();
    return palette;
}

bool isDesktopDark()
{
    const QPalette &palette = desktopPalette();
    return palette.color(QPalette::Window).lightness()
        < palette.color(QPalette::WindowText).lightness();
}

/// Platforms without a desktop do not search the folders of the system.
void addIconFolders()
{
    QStringList folders = QIcon::themeSearchPaths();
    folders << QStandardPaths::locateAll(QStandardPaths::GenericDataLocation,
                                         QStringLiteral("icons"), QStandardPaths::LocateDirectory);
    folders.removeDuplicates();
    QIcon::setThemeSearchPaths(folders);
}

} // namespace

void applyTheme(Theme theme)
{
    const bool isDark = theme == Theme::System ? isDesktopDark() : theme == Theme::Dark;
    current() = theme;
    addIconFolders();
    QIcon::setThemeName(isDark ? QStringLiteral("breeze-dark") : QStringLiteral("breeze"));
    QApplication::setStyle(new PanelStyle);
    QApplication::setPalette(paletteOf(isDark));
}

Theme currentTheme()
{
    return current();
}

QString themeName(Theme theme)
{
    for (const NameRow &row : names) {
        if (row.theme == theme)
            return QString::fromLatin1(row.name);
    }
    return {};
}

Theme themeOf(const QString &name)
{
    for (const NameRow &row : names) {
        if (name == QLatin1String(row.name))
            return row.theme;
    }
    return Theme::Dark;
}

} // namespace Tavoro::Panel
