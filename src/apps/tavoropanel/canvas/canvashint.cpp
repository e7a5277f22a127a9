#include "canvashint.h"

#include "canvastext.h"

#include <tavorosession/devicesession.h>

#include <QCoreApplication>
#include <QPainter>

namespace Tavoro::Panel {

namespace {

struct Hint {
    Q_DECLARE_TR_FUNCTIONS(Tavoro::Panel::Hint)
};

constexpr int fontPixels = 18;

} // namespace

QString canvasHint(const DeviceSession *device, bool hasScreens)
{
    if (!device)
        return Hint::tr("Select a device to see its screens.");
    switch (device->state().kind) {
    case DeviceState::Disconnected:
    case DeviceState::Lost:
        return hasScreens ? Hint::tr("Not connected. This is the last known state of the device.")
                          : Hint::tr("The device is not connected.");
    case DeviceState::Connecting:
        return Hint::tr("Connecting to the device…");
    case DeviceState::Reading:
        return hasScreens ? QString() : Hint::tr("Reading the device…");
    case DeviceState::Ready:
        return hasScreens ? QString() : Hint::tr("The device has no screens.");
    }
    return {};
}

void paintHint(QPainter &painter, const QRectF &view, const QString &text, const QColor &color)
{
    painter.setFont(canvasFont(fontPixels));
    painter.setPen(color);
    painter.drawText(view.adjusted(12, 0, -12, 0), Qt::AlignCenter | Qt::TextWordWrap, text);
}

void paintFocus(QPainter &painter, const QRectF &view, const QColor &color)
{
    painter.setPen(QPen(color, 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(view.adjusted(1, 1, -1, -1));
}

void paintHintBar(QPainter &painter, const QRectF &view, const QString &text)
{
    QRectF bar = view;
    bar.setTop(bar.bottom() - hintBarHeight);
    painter.fillRect(bar, QColor(0, 0, 0, 190));
    paintHint(painter, bar, text, Qt::white);
}

} // namespace Tavoro::Panel
