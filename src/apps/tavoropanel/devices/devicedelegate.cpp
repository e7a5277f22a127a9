#include "devicedelegate.h"

#include "sessionsmodel.h"

#include <tavoropanel/theme/colours.h>
#include <tavorosession/devicestate.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace Tavoro::Panel {

namespace {

constexpr int margin = 8;
constexpr int symbolSize = 18;
constexpr int progressHeight = 4;

QColor colourOf(DeviceState::Kind kind)
{
    switch (kind) {
    case DeviceState::Ready:
        return Colours::preview;
    case DeviceState::Connecting:
    case DeviceState::Reading:
        return Colours::warning;
    case DeviceState::Lost:
        return Colours::programme;
    case DeviceState::Disconnected:
        break;
    }
    return QColor(125, 134, 143);
}

/// A shape for each state, so that the colour is not the only sign.
void drawSymbol(QPainter &painter, const QRectF &place, DeviceState::Kind kind)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colourOf(kind));
    painter.drawEllipse(place);
    painter.setPen(QPen(kind == DeviceState::Connecting || kind == DeviceState::Reading
                            ? Colours::onWarning
                            : Colours::onColour,
                        2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF middle = place.center();
    QPainterPath sign;
    switch (kind) {
    case DeviceState::Ready: // a tick
        sign.moveTo(middle + QPointF(-4, 0));
        sign.lineTo(middle + QPointF(-1, 3));
        sign.lineTo(middle + QPointF(4, -3));
        break;
    case DeviceState::Lost: // a cross
        sign.moveTo(middle + QPointF(-3, -3));
        sign.lineTo(middle + QPointF(3, 3));
        sign.moveTo(middle + QPointF(3, -3));
        sign.lineTo(middle + QPointF(-3, 3));
        break;
    case DeviceState::Connecting:
    case DeviceState::Reading: // three dots
        for (const int x : {-4, 0, 4}) {
            sign.moveTo(middle + QPointF(x, 0));
            sign.lineTo(middle + QPointF(x + 0.1, 0));
        }
        break;
    case DeviceState::Disconnected: // a dash
        sign.moveTo(middle + QPointF(-4, 0));
        sign.lineTo(middle + QPointF(4, 0));
        break;
    }
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(sign);
    painter.restore();
}

QFont nameFont(const QFont &font)
{
    QFont bold = font;
    bold.setBold(true);
    bold.setPointSizeF(font.pointSizeF() * 1.15);
    return bold;
}

/// The texts below the name.
QStringList textsOf(const QModelIndex &index)
{
    QStringList texts;
    for (const int role : {SessionsModel::StateTextRole, SessionsModel::ControlTextRole,
                           SessionsModel::MessageRole}) {
        const QString text = index.data(role).toString();
        if (!text.isEmpty())
            texts << text;
    }
    return texts;
}

/// Where a text is: the whole width, and as many lines as it needs.
QRect placeOf(const QFont &font, const QRect &rest, const QString &text)
{
    const QRect needed = QFontMetrics(font).boundingRect(rest, Qt::TextWordWrap, text);
    return {rest.left(), rest.top(), rest.width(), needed.height()};
}

} // namespace

void DeviceDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                           const QModelIndex &index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    item.text.clear();
    QApplication::style()->drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);

    const bool isSelected = option.state & QStyle::State_Selected;
    const auto kind = static_cast<DeviceState::Kind>(index.data(SessionsModel::StateRole).toInt());
    QRect rest = option.rect.adjusted(margin, margin, -margin, -margin);
    drawSymbol(*painter, QRectF(rest.left(), rest.top() + 1, symbolSize, symbolSize), kind);
    rest.setLeft(rest.left() + symbolSize + margin);

    painter->save();
    painter->setPen(option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
    const auto draw = [&](const QFont &font, const QString &text) {
        const QRect place = placeOf(font, rest, text);
        painter->setFont(font);
        painter->drawText(place, Qt::TextWordWrap, text);
        rest.setTop(place.bottom() + 1);
    };
    draw(nameFont(option.font), index.data().toString());
    const QStringList texts = textsOf(index);
    for (const QString &text : texts)
        draw(option.font, text);
    painter->restore();

    const double share = index.data(SessionsModel::ProgressRole).toDouble();
    if (share >= 0) {
        const QRect groove(option.rect.left() + margin, option.rect.bottom() - progressHeight - 1,
                           option.rect.width() - 2 * margin, progressHeight);
        painter->fillRect(groove, option.palette.mid());
        painter->fillRect(
            QRect(groove.topLeft(),
                  QSize(static_cast<int>(std::lround(groove.width() * share)), progressHeight)),
            Colours::warning);
    }
}

QSize DeviceDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const auto *const view = qobject_cast<const QAbstractItemView *>(option.widget);
    const int width = view ? view->viewport()->width() : 240;
    const QRect rest(0, 0, width - 3 * margin - symbolSize, 10000);
    int height = placeOf(nameFont(option.font), rest, index.data().toString()).height();
    const QStringList texts = textsOf(index);
    for (const QString &text : texts)
        height += placeOf(option.font, rest, text).height();
    return {width, height + 2 * margin};
}

} // namespace Tavoro::Panel
