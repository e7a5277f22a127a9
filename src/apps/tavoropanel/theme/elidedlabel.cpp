#include "elidedlabel.h"

#include <QPainter>

#include <algorithm>

namespace Tavoro::Panel {

namespace {

constexpr int leastCharacters = 12;

} // namespace

ElidedLabel::ElidedLabel(QWidget *parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
}

void ElidedLabel::setLine(const QString &text)
{
    setText(text);
    setToolTip(text);
}

QSize ElidedLabel::minimumSizeHint() const
{
    const QSize whole = QLabel::minimumSizeHint();
    return {std::min(whole.width(), leastCharacters * fontMetrics().averageCharWidth()),
            whole.height()};
}

void ElidedLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const QRect place = contentsRect();
    painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                     fontMetrics().elidedText(text(), Qt::ElideRight, place.width()));
}

} // namespace Tavoro::Panel
