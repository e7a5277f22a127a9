// No control waits for the device. Requests to it may take an hour here, so that a control that
// waited for an answer would not return. The longest time that a control took is printed, not
// judged.
#include <support/tavoropanel/windowbench.h>

#include <tavoropanel/actions/actiontable.h>
#include <tavoropanel/canvas/canvasscene.h>
#include <tavoropanel/canvas/canvasview.h>
#include <tavoropanel/live/screenbutton.h>
#include <tavoropanel/live/statusline.h>
#include <tavoropanel/live/tbar.h>

#include <tavorobizmodel/enums.h>
#include <tavorocontrol/file.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QDockWidget>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QTabBar>

using namespace Tavoro;
using namespace Tavoro::Panel;

class tst_PanelSilent : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_bench.reset(); }

    void everyControlReturns_data();
    void everyControlReturns();
    void everyActionReturns();
    void layerIsDragged();
    void unansweredCallsAreShown();
    void windowIsClosed();

private:
    void fillLists();
    void operate(QWidget &control);
    void closeDialogs();
    QList<QWidget *> controlsOf(const QWidget &part) const;

    std::unique_ptr<WindowBench> m_bench;
    QString m_slowest; ///< The control that took longest.
    qint64 m_longest = -1; ///< Its time in milliseconds.
};

void tst_PanelSilent::init()
{
    m_bench = std::make_unique<WindowBench>();
    QVERIFY(m_bench->openSelected());
    fillLists();
    m_bench->window->selection().setInterface(Selection::InterfaceId{1, 1, 0});
    m_bench->window->selection().setFile(Selection::FileId{1, BizModel::Enum::File::Background});
    m_bench->window->selection().setLayer(PanelBench::layerId());

    BizModel::s_DeviceConfig &config = m_bench->wall->device()->deviceConfig();
    config.timeouts.clear();
    config.defaultTimeout = 3600 * 1000; // nothing reads it now
    QVERIFY(m_bench->addFault("silent"));
}

/// Presets and images on the device.
void tst_PanelSilent::fillLists()
{
    ProtoModel::File::s_CreatePresetFile preset;
    preset.fileId = 1;
    preset.fileType = BizModel::Enum::File::ScreenPreset;
    preset.screens = {{1, 1}};
    ProtoModel::File::s_CreateImageFile image;
    image.fileId = 1;
    image.fileType = BizModel::Enum::File::Background;
    image.source = {65792, 1, 8};
    QVERIFY(resultOf(m_bench->wall->call(&Control::File::writeCreatePresetFile, {preset})));
    QVERIFY(resultOf(m_bench->wall->call(&Control::File::writeCreateImageFile, {image})));
    for (const char *const name : {"presetList", "imageList", "sourceList"}) {
        auto &list = m_bench->find<QAbstractItemView>(name);
        QTRY_VERIFY(list.model()->rowCount() > 0);
        list.setCurrentIndex(list.model()->index(0, 0));
    }
}

/// The controls of a part that the user can operate now.
QList<QWidget *> tst_PanelSilent::controlsOf(const QWidget &part) const
{
    QList<QWidget *> controls;
    for (QWidget *const widget : part.findChildren<QWidget *>()) {
        const bool isPart = widget->objectName().startsWith(QLatin1String("qt_"))
            || qobject_cast<QTabBar *>(widget->parentWidget());
        if (widget->isVisible() && widget->isEnabled() && !isPart
            && (widget->focusPolicy() & Qt::TabFocus))
            controls << widget;
    }
    return controls;
}

void tst_PanelSilent::closeDialogs()
{
    for (QDialog *const dialog : m_bench->window->findChildren<QDialog *>()) {
        if (dialog->isVisible())
            dialog->reject();
    }
}

/// Operates a control as a user would.
void tst_PanelSilent::operate(QWidget &control)
{
    QElapsedTimer time;
    time.start();
    if (qobject_cast<QAbstractButton *>(&control))
        QTest::mouseClick(&control, Qt::LeftButton, {}, {8, control.height() / 2});
    else if (qobject_cast<QAbstractSpinBox *>(&control))
        QTest::keyClick(&control, Qt::Key_Up);
    else if (qobject_cast<QAbstractSlider *>(&control))
        QTest::keyClick(&control, Qt::Key_PageUp);
    else if (qobject_cast<QLineEdit *>(&control)) {
        QTest::keyClicks(&control, QStringLiteral("x"));
        QTest::keyClick(&control, Qt::Key_Return);
    } else
        QTest::keyClick(&control, Qt::Key_Down);
    closeDialogs();
    if (time.elapsed() > m_longest) {
        m_longest = time.elapsed();
        m_slowest = control.objectName() + QLatin1Char(' ') + control.accessibleName();
    }
}

void tst_PanelSilent::everyControlReturns_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<int>("least"); // controls
    QTest::newRow("control") << QStringLiteral("control") << 3;
    QTest::newRow("canvas") << QStringLiteral("canvas") << 0;
    QTest::newRow("details") << QStringLiteral("details") << 20;
    QTest::newRow("presets") << QStringLiteral("presets") << 5;
    QTest::newRow("sources") << QStringLiteral("sources") << 2;
    QTest::newRow("files") << QStringLiteral("files") << 6;
    QTest::newRow("log") << QStringLiteral("log") << 3;
    QTest::newRow("live") << QStringLiteral("live") << 7;
}

void tst_PanelSilent::everyControlReturns()
{
    QFETCH(const QString, part);
    QFETCH(const int, least);
    auto &widget = m_bench->find<QWidget>(qPrintable(part));
    if (auto *const dock = qobject_cast<QDockWidget *>(widget.parentWidget()))
        dock->raise();
    QTRY_VERIFY(widget.isVisible());
    const auto controls = controlsOf(widget);
    QVERIFY2(controls.size() >= least, qPrintable(QString::number(controls.size())));
    m_longest = -1;
    for (QWidget *const control : controls)
        operate(*control);
    qInfo("longest: %lld ms, %s", static_cast<long long>(m_longest), qUtf8Printable(m_slowest));
}

void tst_PanelSilent::everyActionReturns()
{
    for (const ActionRow &row : actionTable()) {
        QAction &action = m_bench->window->actions().action(row.id);
        const bool isLast = row.id == ActionId::Quit || row.id == ActionId::RemoveDevice;
        if (!isLast && action.isEnabled())
            action.trigger();
        closeDialogs();
    }
    m_bench->window->actions().action(ActionId::RemoveDevice).trigger();
    QVERIFY(m_bench->session->devices().isEmpty());
}

void tst_PanelSilent::layerIsDragged()
{
    auto &canvas = m_bench->find<CanvasView>("canvas");
    const LayerItem &layer = *canvas.canvas().selectedLayer();
    const QRect before = layer.window();
    const QPoint from = canvas.mapFromScene(layer.sceneBoundingRect().center());
    WindowBench::drag(*canvas.viewport(), from, from + QPoint(40, 30));
    QVERIFY(layer.window().x() > before.x());
    QVERIFY(layer.window().y() > before.y());
}

void tst_PanelSilent::unansweredCallsAreShown()
{
    m_bench->key(Qt::Key_Space);
    WindowBench::click(m_bench->find<QAbstractButton>("cut"));
    WindowBench::click(m_bench->find<QAbstractButton>("freeze"));
    auto &bar = *m_bench->window->findChild<TBar *>();
    bar.setFocus();
    QTest::keyClick(&bar, Qt::Key_PageUp);
    QCOMPARE(bar.value(), 10);
    WindowBench::click(*m_bench->window->findChildren<ScreenButton *>().at(1));
    QCOMPARE(m_bench->window->selection().screens().size(), 2);
    QTRY_COMPARE(m_bench->window->findChild<StatusLine *>()->text(),
                 QStringLiteral("Waiting: wall 1: no answer to the move of the T-bar yet."));
}

void tst_PanelSilent::windowIsClosed()
{
    m_bench->key(Qt::Key_Space);
    m_bench->window.reset();
    QVERIFY(m_bench->wall->isReady());
}

QTEST_MAIN(tst_PanelSilent)
#include "tst_panelsilent.moc"
