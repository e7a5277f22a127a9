#include "livebutton.h"

#include <tavoropanel/theme/colours.h>

#include <QAction>
#include <QPainter>

#include <algorithm>

namespace Tavoro::Panel {

namespace {

constexpr int horizontalMargin = 18;
constexpr int verticalMargin = 16;
// The sizes of a title, times the size of other texts. A long title becomes smaller.
constexpr double largestTitle = 2.3;
constexpr double smallestTitle = 1.3;
constexpr double radius = 6;

} // namespace

LiveButton::LiveButton(QAction &action, const QColor &base, QWidget *parent)
    : QAbstractButton(parent), m_action(action), m_base(base)
{
    setFocusPolicy(Qt::TabFocus); // a click must not take the space bar from the take
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    connect(this, &QAbstractButton::clicked, &action, &QAction::trigger);
    connect(&action, &QAction::changed, this, &LiveButton::follow);
    follow();
}

void LiveButton::follow()
{
    setText(m_action.iconText());
    setEnabled(m_action.isEnabled());
    setToolTip(m_action.toolTip());
    setAccessibleDescription(m_action.toolTip());
    setAccessibleName(m_word.isEmpty() ? text() : tr("%1: %2").arg(text(), m_word));
    updateGeometry();
    update();
}

void LiveButton::setLit(const QString &word, const QColor &colour)
{
    m_word = word;
    m_colour = colour;
    follow();
}

QFont LiveButton::titleFont(double size) const
{
    QFont large = font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * size);
    return large;
}

/// The largest title that fits.
double LiveButton::titleSizeFor(int width) const
{
    double size = largestTitle;
    while (size > smallestTitle && sizeFor(size).width() > width)
        size -= 0.1;
    return size;
}

/// The line below the title: the state of a lit button, or the shortcut.
QString LiveButton::note() const
{
    return m_word.isEmpty() ? m_action.shortcut().toString(QKeySequence::NativeText) : m_word;
}

QColor LiveButton::background() const
{
    if (!isEnabled())
        return palette().color(QPalette::Window);
    const QColor base = m_base.isValid() ? m_base : palette().color(QPalette::Button);
    const QColor colour = m_word.isEmpty() ? base : m_colour;
    if (isDown())
        return colour.darker(125);
    return underMouse() ? colour.lighter(112) : colour;
}

QSize LiveButton::sizeFor(double titleSize) const
{
    const QFontMetrics title(titleFont(titleSize));
    const QFontMetrics line = fontMetrics();
    const int width = std::max({title.horizontalAdvance(text()), line.horizontalAdvance(note()),
                                line.averageCharWidth() * 10});
    return {width + 2 * horizontalMargin,
            title.lineSpacing() + line.lineSpacing() + 2 * verticalMargin};
}

QSize LiveButton::sizeHint() const
{
    return sizeFor(largestTitle);
}

QSize LiveButton::minimumSizeHint() const
{
    return {sizeFor(smallestTitle).width(), sizeHint().height()};
}

void LiveButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5);
    const bool isColoured = isEnabled() && (m_base.isValid() || !m_word.isEmpty());
    const QColor foreground =
        isColoured ? Colours::onColour : palette().color(QPalette::ButtonText);

    painter.setPen(hasFocus() ? QPen(palette().color(QPalette::Link), 3)
                              : QPen(palette().color(QPalette::Mid), 1));
    painter.setBrush(background());
    painter.drawRoundedRect(frame, radius, radius);

    const QFont large = titleFont(titleSizeFor(width()));
    const QFontMetrics title(large);
    const int height = title.lineSpacing() + fontMetrics().lineSpacing();
    QRect line(0, (rect().height() - height) / 2, width(), title.lineSpacing());
    painter.setPen(foreground);
    painter.setFont(large);
    painter.drawText(line, Qt::AlignCenter, text());
    line.setTop(line.bottom() + 1);
    line.setHeight(fontMetrics().lineSpacing());
    painter.setFont(font());
    painter.drawText(line, Qt::AlignCenter, note());
}

} // namespace Tavoro::Panel
