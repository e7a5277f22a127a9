// Changes that the operator makes, undoes and redoes, on a simulated device.

#include <support/tavoropanel/undobench.h>

#include <tavorocontrol/screen.h>

#include <QAction>
#include <QSignalSpy>
#include <QUndoStack>

using namespace Tavoro;
using namespace Tavoro::Panel;

namespace {

ProtoModel::Layer::s_LayerOpacity opacity(int percent)
{
    return {PanelBench::layerId(), percent};
}

} // namespace

class tst_PanelUndo : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newLayerIsRemovedByUndo();
    void dragIsOneStep();
    void dragBackToItsStartIsNoStep();
    void quickChangesAreUndoneOneByOne();
    void refusedChangeIsNoStep();
    void refusedUndoIsReportedAndTheStepStays();
    void changeMadeDuringUndoIsTheNextStep();
    void stepOfALostDeviceSaysSo();
    void stepOfAClosedDeviceGoes();
    void operationOutsideTheTableIsNoStep();
    void menuNamesTheStep();
};

void tst_PanelUndo::newLayerIsRemovedByUndo()
{
    UndoBench bench;
    QVERIFY(bench.openSelected());
    ProtoModel::Layer::s_LayerEnable layer;
    layer.layerIdenti = PanelBench::layerId(9);
    layer.zorder = 9;
    const DeviceSnapshot before = bench.snapshot();
    QVERIFY(resultOf(bench.changes.call(*bench.wall, &Control::Layer::writeEnable, {layer})));
    QTRY_VERIFY(bench.model()->findLayer(layer.layerIdenti).lock());
    QVERIFY(bench.undo());
    QCOMPARE(bench.snapshot().changesSince(before).size(), std::size_t(0));
}

void tst_PanelUndo::dragIsOneStep()
{
    UndoBench bench;
    QVERIFY(bench.openSelected());
    const QString key = QStringLiteral("drag");
    for (int percent = 90; percent >= 10; percent -= 10)
        bench.changes.callLatest(key, *bench.wall, &Control::Layer::writeOpacity,
                                 {opacity(percent)});
    QVERIFY(!bench.changes.canUndo());
    bench.changes.finish(key);
    QTRY_VERIFY(bench.changes.canUndo());
    QTRY_COMPARE(bench.modelOpacity(), 10);
    QCOMPARE(bench.changes.steps().count(), 1);
    QCOMPARE(bench.changes.undoText(), QStringLiteral("change opacity on wall 1"));
    QVERIFY(bench.undo());
    QTRY_COMPARE(bench.modelOpacity(), 100);
    QVERIFY(bench.redo());
    QTRY_COMPARE(bench.modelOpacity(), 10);
}

void tst_PanelUndo::dragBackToItsStartIsNoStep()
{
    UndoBench bench;
    QVERIFY(bench.openSelected());
    const QString key = QStringLiteral("drag");
    bench.changes.callLatest(key, *bench.wall, &Control::Layer::writeOpacity, {opacity(5)});
    const auto last =
        bench.changes.callLatest(key, *bench.wall, &Control::Layer::writeOpacity, {opacity(100)});
    bench.changes.finish(key);
    QVERIFY(resultOf(last));
    QVERIFY(!bench.changes.canUndo());
}

void tst_PanelUndo::quickChangesAreUndoneOneByOne()
{
    UndoBench bench;
    QVERIFY(bench.openSelected());
    // The model does not have the first value when the second one is sent.
    bench.changes.call(*bench.wall, &Control::Layer::writeOpacity, {opacity(60)});
    bench.changes.call(*bench.wall, &Control::Layer::writeOpacity, {opacity(30)});
    QTRY_COMPARE(bench.changes.steps().count(), 2);
    QVERIFY(bench.undo());
    QTRY_COMPARE(bench.modelOpacity(), 60);
    QVERIFY(bench.undo());
    QTRY_COMPARE(bench.modelOpacity(), 100);
    QVERIFY(bench.redo());
    QTRY_COMPARE(bench.modelOpacity(), 60);
}

void tst_PanelUndo::refusedChangeIsNoStep()
{
    UndoBench bench;
    QVERIFY(bench.openSelected());
    QVERIFY(!bench.setOpacity(101));
    QVERIFY(!bench.changes.canUndo());
    QTRY_VERIFY(bench.hasMessage(Severity::Error));
    // What was refused does not count as what the device had.
    QVERIFY(bench.setOpacity(40));
    QTRY_VERIFY(bench.changes.canUndo());
    QVERIFY(bench.undo());
    QTRY_COMPARE(bench.modelOpacity(), 100);
}

void tst_PanelUndo::refusedUndoIsReportedAndTheStepStays()
{
    UndoBench bench;
    QVERIFY(bench.openSelected());
    QVERIFY(bench.setOpacity(40));
    QTRY_VERIFY(bench.changes.canUndo());
    QVERIFY(bench.addFault("status=8,code=0x1408,count=1"));
    QVERIFY(bench.undo());
    QVERIFY(bench.hasMessage(Severity::Error));
    QVERIFY(bench.changes.canUndo());
    QVERIFY(!bench.changes.canRedo());
    QVERIFY(bench.undo());
    QTRY_COMPARE(bench.modelOpacity(), 100);
}

void tst_PanelUndo::changeMadeDuringUndoIsTheNextStep()
{
    UndoBench bench;
    QVERIFY(bench.openSelected());
    QVERIFY(bench.setOpacity(40));
    QTRY_VERIFY(bench.changes.canUndo());
    bench.changes.undo();
    QVERIFY(!bench.changes.canUndo());
    QVERIFY(bench.setOpacity(20));
    QVERIFY(bench.wait());
    QTRY_VERIFY(bench.changes.canUndo());
    QVERIFY(!bench.changes.canRedo());
    QTRY_COMPARE(bench.modelOpacity(), 20);
    QVERIFY(bench.undo());
    QTRY_COMPARE(bench.modelOpacity(), 100);
}

void tst_PanelUndo::stepOfALostDeviceSaysSo()
{
    UndoBench bench;
    QVERIFY(bench.openSelected());
    QVERIFY(bench.setOpacity(40));
    QTRY_VERIFY(bench.changes.canUndo());
    QSignalSpy changed(&bench.changes, &Changes::stepsChanged);
    QVERIFY(bench.execute(QStringLiteral("switch 0")));
    QTRY_COMPARE(bench.changes.undoText(),
                 QStringLiteral("change opacity on wall 1, not connected"));
    QVERIFY(!changed.isEmpty());
    QVERIFY(bench.undo());
    QVERIFY(bench.hasMessage(Severity::Error));
    QVERIFY(bench.execute(QStringLiteral("switch 1")));
    QTRY_VERIFY(bench.wall->isReady());
    QVERIFY(bench.undo());
    QTRY_COMPARE(bench.modelOpacity(), 100);
}

void tst_PanelUndo::stepOfAClosedDeviceGoes()
{
    UndoBench bench;
    QVERIFY(bench.openSelected());
    QVERIFY(bench.setOpacity(40));
    QTRY_VERIFY(bench.changes.canUndo());
    delete bench.wall;
    QVERIFY(bench.undo());
    QCOMPARE(bench.messages.message(bench.messages.rowCount() - 1).text,
             QStringLiteral("\"change opacity on wall 1, not connected\" cannot be undone or "
                            "redone: the device is no longer open."));
    QVERIFY(!bench.changes.canUndo());
    QVERIFY(!bench.changes.canRedo());
}

void tst_PanelUndo::operationOutsideTheTableIsNoStep()
{
    UndoBench bench;
    QVERIFY(bench.openSelected());
    QVERIFY(resultOf(
        bench.changes.call(*bench.wall, &Control::Screen::writeTake, {{{{1, 1}, {5, 0, 1}}}})));
    QVERIFY(!bench.changes.canUndo());
}

void tst_PanelUndo::menuNamesTheStep()
{
    UndoBench bench;
    QVERIFY(bench.openSelected());
    QAction &undo = bench.actions.action(ActionId::Undo);
    QAction &redo = bench.actions.action(ActionId::Redo);
    QCOMPARE(undo.text(), QStringLiteral("&Undo"));
    QVERIFY(!undo.isEnabled());
    QVERIFY(bench.setOpacity(40));
    QTRY_VERIFY(undo.isEnabled());
    QCOMPARE(undo.text(), QStringLiteral("&Undo: change opacity on wall 1"));
    undo.trigger();
    QVERIFY(bench.wait());
    QTRY_COMPARE(bench.modelOpacity(), 100);
    QVERIFY(!undo.isEnabled());
    QCOMPARE(redo.text(), QStringLiteral("&Redo: change opacity on wall 1"));
    redo.trigger();
    QVERIFY(bench.wait());
    QTRY_COMPARE(bench.modelOpacity(), 40);
}

QTEST_MAIN(tst_PanelUndo)
#include "tst_panelundo.moc"
