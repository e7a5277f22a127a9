#include "tbar.h"

#include <tavoropanel/theme/colours.h>

#include <QMouseEvent>
#include <QPainter>

namespace Tavoro::Panel {

namespace {

constexpr int end = 100;
constexpr int keyPercent = 2;
constexpr int pagePercent = 10;
constexpr int grooveWidth = 10;
constexpr int handleWidth = 26;
constexpr int handleHeight = 36;
constexpr int edgeMargin = handleWidth / 2 + 3; ///< From the edge to the centre of the handle.

} // namespace

TBar::TBar(QWidget *parent) : QSlider(Qt::Horizontal, parent)
{
    setRange(0, end);
    setSingleStep(keyPercent);
    setPageStep(pagePercent);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setAccessibleName(tr("T-bar"));
    setAccessibleDescription(tr("Takes by hand: moves from preview to programme, in percent. At "
                                "100 percent the device takes."));
    setToolTip(accessibleDescription());
    connect(this, &QSlider::valueChanged, this, [this](int percent) {
        if (m_isFollowing)
            return;
        Q_EMIT moved(percent);
        if (!isSliderDown())
            returnFromEnd();
    });
    connect(this, &QSlider::sliderReleased, this, &TBar::returnFromEnd);
}

void TBar::follow(int percent)
{
    if (isSliderDown())
        return;
    m_isFollowing = true;
    setValue(percent);
    m_isFollowing = false;
}

void TBar::returnFromEnd()
{
    if (value() == end)
        setValue(0);
}

/// Where the centre of the handle is for the present value.
int TBar::centre() const
{
    return edgeMargin + (width() - 2 * edgeMargin) * value() / end;
}

QRect TBar::handle() const
{
    const int middle = (height() + fontMetrics().lineSpacing()) / 2;
    return {centre() - handleWidth / 2, middle - handleHeight / 2, handleWidth, handleHeight};
}

void TBar::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || !handle().contains(event->pos()))
        return;
    m_grip = event->pos().x() - centre();
    setSliderDown(true);
}

void TBar::mouseMoveEvent(QMouseEvent *event)
{
    if (isSliderDown())
        setSliderPosition((event->pos().x() - m_grip - edgeMargin) * end
                          / (width() - 2 * edgeMargin));
}

void TBar::mouseReleaseEvent(QMouseEvent *)
{
    setSliderDown(false);
}

QSize TBar::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 26, fontMetrics().lineSpacing() * 2 + 30};
}

void TBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const int text = fontMetrics().lineSpacing();
    const QRectF knob = QRectF(handle());
    const QRectF groove(4, knob.center().y() - grooveWidth / 2.0, width() - 8, grooveWidth);
    painter.setPen(QPen(palette().color(QPalette::Mid), 1));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(groove, 5, 5);
    QRectF done = groove;
    done.setRight(knob.center().x());
    painter.setPen(Qt::NoPen);
    painter.setBrush(isEnabled() ? Colours::programme : palette().color(QPalette::Mid));
    painter.drawRoundedRect(done, 5, 5);

    painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Link), 3)
                              : QPen(palette().color(QPalette::Mid), 1));
    painter.setBrush(palette().color(isEnabled() ? QPalette::Button : QPalette::Window));
    painter.drawRoundedRect(knob, 5, 5);
    painter.drawLine(QPointF(knob.center().x(), knob.top() + 8),
                     QPointF(knob.center().x(), knob.bottom() - 8));

    painter.setPen(palette().color(QPalette::ButtonText));
    const QRect line(0, 2, width(), text);
    painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, tr("T-bar"));
    painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, tr("%1 %").arg(value()));
}

} // namespace Tavoro::Panel
