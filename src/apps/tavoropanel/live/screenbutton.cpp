#include "screenbutton.h"

#include <tavoropanel/theme/colours.h>

#include <QAction>
#include <QPainter>

#include <algorithm>

namespace Tavoro::Panel {

namespace {

constexpr int sideMargin = 12;
constexpr int checkBoxSize = 14;

QFont buttonFont(const QFont &font)
{
    QFont bold = font;
    bold.setBold(true);
    bold.setPointSizeF(font.pointSizeF() * 1.2);
    return bold;
}

} // namespace

ScreenButton::ScreenButton(QWidget *parent) : QAbstractButton(parent)
{
    setCheckable(true);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
}

void ScreenButton::setKeys(const QKeySequence &keys)
{
    auto *const action = new QAction(this);
    action->setShortcut(keys);
    connect(action, &QAction::triggered, this, &QAbstractButton::click);
    addAction(action);
    m_keys = keys.toString(QKeySequence::NativeText);
}

void ScreenButton::show(const QString &name, const ProtoModel::Screen::s_ScreenFullDetail &screen,
                        bool isConnected)
{
    m_screen = screen;
    setText(name);
    const bool isFrozen = screen.freeze != 0;
    const bool isBlack = screen.FTB.enable != 0;
    if (!isConnected)
        m_state = tr("Not connected");
    else if (isFrozen && isBlack)
        m_state = tr("Black, frozen");
    else if (isBlack)
        m_state = tr("Black");
    else
        m_state = isFrozen ? tr("Frozen") : tr("On air");
    m_stateColour = !isConnected ? QColor()
        : isBlack                ? Colours::black
        : isFrozen               ? Colours::frozen
                                 : Colours::programme;
    setAccessibleName(tr("Screen %1").arg(name));
    setAccessibleDescription(tr("Selects the screen for take, cut, T-bar, freeze and fade to "
                                "black. Its state: %1.")
                                 .arg(m_state));
    setToolTip(m_keys.isEmpty() ? accessibleDescription()
                                : tr("%1 (%2)").arg(accessibleDescription(), m_keys));
    updateGeometry();
    update();
}

QSize ScreenButton::sizeHint() const
{
    const QFontMetrics name(buttonFont(font()));
    const int width = std::max(name.horizontalAdvance(text()) + checkBoxSize + 8,
                               fontMetrics().horizontalAdvance(m_state) + 16);
    return {std::max(width, fontMetrics().averageCharWidth() * 12) + 2 * sideMargin,
            name.lineSpacing() + fontMetrics().lineSpacing() + 30};
}

void ScreenButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRectF frame = QRectF(rect()).adjusted(2.5, 2.5, -2.5, -2.5);
    const QColor edge = hasFocus() ? palette().color(QPalette::Link)
        : isChecked()              ? palette().color(QPalette::Highlight)
                                   : palette().color(QPalette::Mid);
    painter.setPen(QPen(edge, hasFocus() || isChecked() ? 3 : 1));
    painter.setBrush(palette().color(isChecked() ? QPalette::Button : QPalette::AlternateBase));
    painter.drawRoundedRect(frame, 6, 6);

    const QFontMetrics name(buttonFont(font()));
    const int height = name.lineSpacing() + fontMetrics().lineSpacing() + 10;
    int top = (rect().height() - height) / 2;

    // The tick says that the screen is selected, besides the frame.
    const QRectF box(sideMargin, top + (name.lineSpacing() - checkBoxSize) / 2.0, checkBoxSize,
                     checkBoxSize);
    painter.setPen(QPen(palette().color(QPalette::ButtonText), 1.2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box, 2, 2);
    if (isChecked()) {
        painter.setPen(QPen(palette().color(QPalette::ButtonText), 2));
        painter.drawPolyline(
            QPolygonF({box.topLeft() + QPointF(3, 7), box.topLeft() + QPointF(6, 10),
                       box.topLeft() + QPointF(11, 3)}));
    }
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.setFont(buttonFont(font()));
    const int left = sideMargin + checkBoxSize + 8;
    painter.drawText(QRect(left, top, width() - left - 4, name.lineSpacing()), Qt::AlignVCenter,
                     text());

    top += name.lineSpacing() + 6;
    const QRectF badge(sideMargin, top, width() - 2 * sideMargin, fontMetrics().lineSpacing() + 4);
    painter.setPen(QPen(palette().color(QPalette::Mid), 1));
    painter.setBrush(m_stateColour.isValid() ? QBrush(m_stateColour) : QBrush(Qt::NoBrush));
    painter.drawRoundedRect(badge, 3, 3);
    painter.setFont(font());
    painter.setPen(m_stateColour.isValid() ? Colours::onColour
                                           : palette().color(QPalette::ButtonText));
    painter.drawText(badge, Qt::AlignCenter, m_state);
}

} // namespace Tavoro::Panel
