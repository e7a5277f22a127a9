// What the details show, and how they follow the selection and the device.

#include <support/tavoropanel/detailsbench.h>

#include <tavorocontrol/layer.h>

#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QToolButton>
#include <QWheelEvent>

using namespace Tavoro;
using namespace Tavoro::Panel;

class tst_PanelDetails : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyControlShowsAFieldOfTheRecord();
    void everyControlHasItsTexts();
    void refusedValueGivesWayToThatOfTheDevice();
    void editCanBeUndone();
    void otherClientsChangeIsShown();
    void textBeingTypedStays();
    void wheelOverAControlWithoutFocusChangesNothing();
    void longValuesAreShownInSeveralLines();
    void tabOfTheLatestSelectionIsShown();
    void tabStaysWhenAnotherObjectAppearsAgain();
    void tabOfAnObjectThatAppearsAgainReturns();
    void propertiesOfALostDeviceCannotBeEdited();
    void tabKeyVisitsTheControlsInTheirOrder();
};

/// Each path of a control leads to a field of the record that the device reads.
void tst_PanelDetails::everyControlShowsAFieldOfTheRecord()
{
    DetailsBench bench;
    for (const DetailsTab tab : {LayerTab, ScreenTab, InputTab, DeviceTab}) {
        bench.view->findChild<QTabBar *>()->setCurrentIndex(tab);
        int fields = 0;
        for (QWidget *const control : bench.currentPage()->findChildren<QWidget *>()) {
            const QByteArray path = control->objectName().toLatin1();
            const bool isField = !control->accessibleName().isEmpty() && !path.isEmpty()
                && !path.startsWith("qt_") && !qobject_cast<QLabel *>(control);
            if (!isField)
                continue;
            ++fields;
            QVERIFY2(!bench.value(path.constData(), tab).isUndefined(), path.constData());
        }
        QVERIFY(fields >= 7);
    }
}

void tst_PanelDetails::everyControlHasItsTexts()
{
    DetailsBench bench;
    for (const DetailsTab tab : {LayerTab, ScreenTab, InputTab, DeviceTab}) {
        bench.view->findChild<QTabBar *>()->setCurrentIndex(tab);
        for (QWidget *const control : bench.currentPage()->findChildren<QWidget *>()) {
            if (!(control->focusPolicy() & Qt::TabFocus) || !control->isVisible())
                continue;
            if (control->objectName().startsWith(QLatin1String("qt_")))
                continue; // the line of a spin box
            QVERIFY2(!control->accessibleName().isEmpty(), qUtf8Printable(control->objectName()));
        }
    }
    QCOMPARE(bench.control<QDoubleSpinBox>("opacity", LayerTab)->accessibleDescription(),
             QStringLiteral("0 to 100 %"));
    QCOMPARE(bench.control<QDoubleSpinBox>("imageQuality.gamma", LayerTab)->toolTip(),
             QStringLiteral("0.10 to 10.00"));
}

void tst_PanelDetails::refusedValueGivesWayToThatOfTheDevice()
{
    DetailsBench bench;
    QVERIFY(bench.addFault("status=4,code=0x1408,count=1"));
    auto *const box = bench.control<QDoubleSpinBox>("opacity", LayerTab);
    DetailsBench::type(box, QStringLiteral("45"));
    QTRY_VERIFY(bench.refusal("opacity")->isVisible());
    QCOMPARE(bench.refusal("opacity")->text(), QStringLiteral("⚠ a value is out of range"));
    QCOMPARE(box->accessibleDescription(), QStringLiteral("a value is out of range"));
    QCOMPARE(box->value(), 100.0);
    QVERIFY(!bench.refusal("zorder")->isVisible());
    DetailsBench::type(box, QStringLiteral("46"));
    QTRY_COMPARE(bench.value("opacity", LayerTab).toInt(), 46);
    QVERIFY(!bench.refusal("opacity")->isVisible());
}

void tst_PanelDetails::editCanBeUndone()
{
    DetailsBench bench;
    DetailsBench::type(bench.control<QDoubleSpinBox>("window.x", LayerTab), QStringLiteral("55"));
    QTRY_VERIFY(bench.changes.canUndo());
    QTRY_COMPARE(bench.value("window.x", LayerTab).toInt(), 55);
    QCOMPARE(bench.changes.undoText(), QStringLiteral("move layer on wall 1"));
    bench.changes.undo();
    QTRY_COMPARE(bench.value("window.x", LayerTab).toInt(), 0);
    QTRY_COMPARE(bench.control<QDoubleSpinBox>("window.x", LayerTab)->value(), 0.0);
}

void tst_PanelDetails::otherClientsChangeIsShown()
{
    DetailsBench bench;
    auto *const box = bench.control<QDoubleSpinBox>("opacity", LayerTab);
    QCOMPARE(box->value(), 100.0);
    QVERIFY(
        resultOf(bench.wall->call(&Control::Layer::writeOpacity, {{DetailsBench::layerId(), 12}})));
    QTRY_COMPARE(box->value(), 12.0);
    QVERIFY(!bench.changes.canUndo());
}

void tst_PanelDetails::textBeingTypedStays()
{
    DetailsBench bench;
    auto *const line = bench.control<QLineEdit>("general.name", LayerTab);
    bench.view->activateWindow();
    line->setFocus();
    QTRY_VERIFY(line->hasFocus());
    QTest::keyClicks(line, QStringLiteral(" left"));
    QVERIFY(
        resultOf(bench.wall->call(&Control::Layer::writeOpacity, {{DetailsBench::layerId(), 12}})));
    QTRY_COMPARE(bench.value("opacity", LayerTab).toInt(), 12);
    QCOMPARE(line->text(), QStringLiteral("Layer 1 left"));
    QTest::keyClick(line, Qt::Key_Return);
    QTRY_COMPARE(bench.value("general.name", LayerTab).toString(), QStringLiteral("Layer 1 left"));
}

void tst_PanelDetails::wheelOverAControlWithoutFocusChangesNothing()
{
    DetailsBench bench;
    auto *const box = bench.control<QDoubleSpinBox>("opacity", LayerTab);
    box->clearFocus();
    const QPointF centre = box->rect().center();
    QWheelEvent wheel(centre, box->mapToGlobal(centre.toPoint()), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(box, &wheel);
    QCOMPARE(box->value(), 100.0);
}

void tst_PanelDetails::longValuesAreShownInSeveralLines()
{
    DetailsBench bench;
    auto *const size = bench.control<QLabel>("mosaic.window", ScreenTab);
    const auto hasItsHeight = [size] {
        return size->height() >= size->heightForWidth(size->width());
    };
    for (const int width : {450, 330, 300}) {
        bench.view->resize(width, 300);
        QTRY_VERIFY2(hasItsHeight(), qPrintable(QString::number(width)));
    }
    size->setText(QStringLiteral("3840 × 1080 px ").repeated(4));
    bench.selection.setScreens({{2, 2}});
    QCOMPARE(size->text(), QStringLiteral("3712 × 2032 px"));
    QTRY_VERIFY(hasItsHeight());
}

void tst_PanelDetails::tabOfTheLatestSelectionIsShown()
{
    DetailsBench bench;
    const auto *const tabs = bench.view->findChild<QTabBar *>();
    QCOMPARE(tabs->currentIndex(), int(LayerTab));
    bench.selection.setInterface(Selection::InterfaceId{1, 1, 0});
    QCOMPARE(tabs->currentIndex(), int(InputTab));
    bench.selection.setScreens({{2, 2}});
    QCOMPARE(tabs->currentIndex(), int(ScreenTab));
    QVERIFY(!tabs->isTabEnabled(LayerTab));
    bench.selection.setDevice(nullptr);
    for (int tab = LayerTab; tab <= DeviceTab; ++tab)
        QVERIFY(!tabs->isTabEnabled(tab));
}

void tst_PanelDetails::tabStaysWhenAnotherObjectAppearsAgain()
{
    DetailsBench bench;
    const auto *const tabs = bench.view->findChild<QTabBar *>();
    bench.selection.setFile(Selection::FileId{3, 2});
    bench.selection.setInterface(Selection::InterfaceId{1, 1, 0});
    QCOMPARE(tabs->currentIndex(), int(InputTab));
    bench.createImage(3);
    QTRY_VERIFY(tabs->isTabEnabled(FileTab));
    QCOMPARE(tabs->currentIndex(), int(InputTab));
}

void tst_PanelDetails::tabOfAnObjectThatAppearsAgainReturns()
{
    DetailsBench bench;
    const auto *const tabs = bench.view->findChild<QTabBar *>();
    bench.createImage(3);
    QTRY_VERIFY(bench.image(3));
    bench.selection.setFile(Selection::FileId{3, 2});
    QCOMPARE(tabs->currentIndex(), int(FileTab));
    QVERIFY(resultOf(bench.wall->call(&Control::File::writeDeleteFiles,
                                      {ProtoModel::File::s_DeleteFile{{3, 2}}})));
    QTRY_COMPARE(tabs->currentIndex(), int(ScreenTab));
    bench.createImage(3);
    QTRY_COMPARE(tabs->currentIndex(), int(FileTab));
}

void tst_PanelDetails::propertiesOfALostDeviceCannotBeEdited()
{
    DetailsBench bench;
    auto *const box = bench.control<QDoubleSpinBox>("opacity", LayerTab);
    QVERIFY(box->isEnabled());
    QVERIFY(bench.execute(QStringLiteral("switch 0")));
    QTRY_VERIFY(!box->isEnabled());
    QCOMPARE(box->value(), 100.0);
    QVERIFY(bench.execute(QStringLiteral("switch 1")));
    QTRY_VERIFY(box->isEnabled());
}

void tst_PanelDetails::tabKeyVisitsTheControlsInTheirOrder()
{
    DetailsBench bench;
    auto *const name = bench.control<QLineEdit>("general.name", LayerTab);
    bench.view->activateWindow();
    name->setFocus();
    QTRY_VERIFY(name->hasFocus());
    QStringList visited;
    for (int i = 0; i < 7; ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        visited << QApplication::focusWidget()->objectName();
    }
    QCOMPARE(visited.join(QLatin1Char(' ')),
             QStringLiteral(
                 "source.general window.x window.y window.width window.height zorder opacity"));
}

QTEST_MAIN(tst_PanelDetails)
#include "tst_paneldetails.moc"
