#pragma once

#include <support/tavoropanel/panelbench.h>

#include <tavoropanel/canvas/canvasscene.h>
#include <tavoropanel/canvas/canvasview.h>
#include <tavoropanel/canvas/layergeometry.h>

#include <tavorocontrol/layer.h>

#include <QApplication>
#include <QMouseEvent>
#include <QTest>

/// A canvas that shows a simulated device with a screen of 3840 by 1080 pixels, which has a
/// background and three layers of 1280 by 1080, and a blended screen.
class CanvasBench : public PanelBench {
public:
    static Tavoro::Sim::SimOptions twoScreens()
    {
        Tavoro::Sim::SimOptions options = smallDevice();
        options.inputs = 8;
        options.outputs = 8;
        options.layersPerScreen = 4;
        return options;
    }
    explicit CanvasBench(const Options &options = patientOptions(),
                         const Tavoro::Sim::SimOptions &device = twoScreens())
        : PanelBench(options, device), view(selection, messages, changes, actions)
    {
        view.resize(1200, 600);
        view.show();
    }

    /// The identity of a layer of the first screen, in the preview or the programme.
    static LayerId id(quint8 number, Tavoro::Panel::Scene scene = Tavoro::Panel::Scene::Preview)
    {
        return layerId(number, scene);
    }
    Tavoro::Panel::LayerItem &item(quint8 number) const
    {
        auto *const found = view.canvas().findLayer(id(number));
        if (!found)
            qFatal("the canvas does not show layer %d", number);
        return *found;
    }
    QRect shown(quint8 number) const { return item(number).window(); }

    /// What the device holds.
    Tavoro::ProtoModel::Layer::s_LayerFullDetail held(quint8 number)
    {
        const LayerId wanted = id(number);
        const auto answer =
            resultOf(wall->call(&Tavoro::Control::Layer::readDetails, int(wanted.screenId),
                                int(wanted.screenType), int(wanted.sceneType), -1));
        for (const auto &layer : answer.record()) {
            if (Tavoro::Panel::isSame(layer.layerIdenti, wanted))
                return layer;
        }
        return {};
    }
    QRect heldWindow(quint8 number) { return Tavoro::Panel::toRect(held(number).window); }

    /// \name Mouse
    /// Positions are those of the viewport.
    /// @{

    /// The point of a layer at these shares of its width and height.
    QPoint pointOf(quint8 number, double x = 0.5, double y = 0.8) const
    {
        const QRectF rect = item(number).sceneBoundingRect();
        return view.mapFromScene(
            QPointF(rect.x() + x * rect.width(), rect.y() + y * rect.height()));
    }
    void press(const QPoint &at, Qt::KeyboardModifiers modifiers = {})
    {
        send(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton, modifiers);
    }
    void moveTo(const QPoint &at, Qt::KeyboardModifiers modifiers = {})
    {
        send(QEvent::MouseMove, at, Qt::NoButton, Qt::LeftButton, modifiers);
    }
    void release(const QPoint &at, Qt::KeyboardModifiers modifiers = {})
    {
        send(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton, modifiers);
    }
    void drag(const QPoint &from, const QPoint &to, Qt::KeyboardModifiers modifiers = {})
    {
        press(from);
        moveTo((from + to) / 2, modifiers);
        moveTo(to, modifiers);
        release(to, modifiers);
    }
    /// The way of a drag in pixels of the screen.
    QPoint inScreen(const QPoint &from, const QPoint &to) const
    {
        return (view.mapToScene(to) - view.mapToScene(from)).toPoint();
    }
    /// @}

    /// Texts of the messages that matter to the operator.
    QStringList complaints() const
    {
        QStringList texts;
        for (int row = 0; row < messages.rowCount(); ++row) {
            const auto &message = messages.message(row);
            if (message.severity == Tavoro::Panel::Severity::Error
                || message.text.contains(QLatin1String("cannot be changed")))
                texts << message.text;
        }
        return texts;
    }

    Tavoro::Panel::CanvasView view;

private:
    void send(QEvent::Type type, const QPoint &at, Qt::MouseButton button, Qt::MouseButtons buttons,
              Qt::KeyboardModifiers modifiers)
    {
        QWidget *const target = view.viewport();
        QMouseEvent event(type, at, target->mapTo(target->window(), at), target->mapToGlobal(at),
                          button, buttons, modifiers);
        QApplication::sendEvent(target, &event);
    }
};
