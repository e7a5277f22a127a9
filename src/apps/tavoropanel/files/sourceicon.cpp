#include "sourceicon.h"

#include <tavoropanel/theme/colours.h>

#include <QPainter>
#include <QPixmap>

namespace Tavoro::Panel {

namespace {

constexpr int size = 64; // views scale it down
constexpr QRect screen(6, 12, 52, 32);

void drawScreen(QPainter &painter, const QColor &line)
{
    painter.setPen(QPen(line, 4));
    painter.drawRect(screen);
    painter.drawLine(20, 54, 44, 54);
}

} // namespace

QIcon sourceIcon(bool hasSignal, const QPalette &palette)
{
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    drawScreen(painter, palette.color(QPalette::Text));
    if (hasSignal) {
        painter.fillRect(screen.adjusted(5, 5, -5, -5), Colours::preview);
    } else {
        painter.setPen(QPen(Colours::programme, 7));
        painter.drawLine(8, 6, 56, 58);
        painter.drawLine(56, 6, 8, 58);
    }
    return QIcon(picture);
}

} // namespace Tavoro::Panel
