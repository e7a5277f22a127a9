#include "canvastheme.h"

#include <tavoropanel/theme/colours.h>

namespace Tavoro::Panel {

CanvasTheme CanvasTheme::of(const QPalette &palette)
{
    const bool isDark = palette.color(QPalette::Window).lightness() < 128;
    CanvasTheme theme;
    theme.canvas = isDark ? palette.color(QPalette::Window).darker(130)
                          : palette.color(QPalette::Window).darker(108);
    theme.title = palette.color(QPalette::WindowText);
    theme.detail = isDark ? QColor(0xB4, 0xB4, 0xB4) : QColor(0x48, 0x48, 0x48);
    theme.preview = Colours::preview;
    theme.programme = Colours::programme;
    theme.label = Colours::onColour;
    theme.highlight = palette.color(QPalette::Highlight);
    theme.highlightText = palette.color(QPalette::HighlightedText);
    return theme;
}

QColor pictureColor(qint32 sourceType, quint32 sourceId)
{
    if (sourceType == 0)
        return {0x2B, 0x2B, 0x2B};
    // The golden angle gives neighbouring inputs hues that differ clearly.
    const quint32 connector = (sourceId >> 16) * 4 + (sourceId >> 8 & 0xFF) + (sourceId & 0xFF);
    const int hue =
        static_cast<int>((connector * 137 + static_cast<quint32>(sourceType) * 61) % 360);
    return QColor::fromHsl(hue, 62, 74);
}

} // namespace Tavoro::Panel
