#pragma once

#include <support/tavoropanel/panelbench.h>

#include <tavorobizmodel/screen.h>
#include <tavoropanel/theme/theme.h>
#include <tavoropanel/window/mainwindow.h>

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

/// The whole window of the panel, and a simulated device.
class WindowBench : public SessionBench {
public:
    explicit WindowBench(const Options &options = PanelBench::patientOptions(),
                         const Tavoro::Sim::SimOptions &device = smallDevice())
        : SessionBench(options, device)
    {
        Tavoro::Panel::applyTheme(Tavoro::Panel::Theme::Dark);
        window = std::make_unique<Tavoro::Panel::MainWindow>(*session);
        window->show();
        window->activateWindow();
        if (!QTest::qWaitForWindowActive(window.get(), 60000))
            qFatal("the window does not become active");
    }

    /// Opens the device, which the window selects, and waits until it is ready.
    bool openSelected()
    {
        return openReady()
            && QTest::qWaitFor([this] { return !window->selection().screens().isEmpty(); }, 60000);
    }
    /// The widget of this type with this object name.
    template <class Widget>
    Widget &find(const char *name) const
    {
        auto *const found = window->findChild<Widget *>(QLatin1String(name));
        if (!found)
            qFatal("no widget %s", name);
        return *found;
    }
    /// The record of a screen, as the model has it.
    Tavoro::ProtoModel::Screen::s_ScreenFullDetail screen(int type, quint8 id) const
    {
        const auto found = wall->device()->findScreen(type, id).lock();
        return found ? found->detail() : Tavoro::ProtoModel::Screen::s_ScreenFullDetail();
    }
    static void click(QWidget &widget) { QTest::mouseClick(&widget, Qt::LeftButton); }
    /// Drags with the left button from one place of a widget to another, in steps.
    static void drag(QWidget &widget, const QPoint &from, const QPoint &to)
    {
        constexpr int steps = 10;
        QTest::mousePress(&widget, Qt::LeftButton, {}, from);
        for (int step = 1; step <= steps; ++step) {
            const QPoint place = from + (to - from) * step / steps;
            QMouseEvent move(QEvent::MouseMove, place, widget.mapToGlobal(place), Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(&widget, &move);
        }
        QTest::mouseRelease(&widget, Qt::LeftButton, {}, to);
    }
    void key(Qt::Key pressed, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(window.get(), pressed, modifiers);
    }

    std::unique_ptr<Tavoro::Panel::MainWindow> window;
};
