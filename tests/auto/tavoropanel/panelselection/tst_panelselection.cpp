// What the operator has selected, and how it follows the device.
#include <support/tavoropanel/panelbench.h>

#include <tavorobizmodel/screen.h>
#include <tavorocontrol/screen.h>

#include <QAction>
#include <QSignalSpy>

using namespace Tavoro;
using namespace Tavoro::Panel;

class tst_PanelSelection : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void selectedDeviceHasItsFirstScreenSelected();
    void deletedScreenIsDeselected();
    void layerSelectsItsScreenAndScene();
    void otherSceneDeselectsTheLayer();
    void deletedSessionIsDeselected();
    void writesNeedAConnectionAndControl();
    void actionsFollowTheSelection();
};

namespace {

QList<int> numbers(const Selection &selection)
{
    QList<int> ids;
    for (const auto &screen : selection.screens())
        ids << screen.screenId;
    return ids;
}

} // namespace

void tst_PanelSelection::selectedDeviceHasItsFirstScreenSelected()
{
    PanelBench bench;
    bench.open();
    bench.selection.setDevice(bench.wall);
    QVERIFY(bench.selection.screens().isEmpty());
    QTRY_COMPARE(numbers(bench.selection), QList<int>{1});
    QCOMPARE(bench.selection.screenObjects().first()->screenType(),
             BizModel::Enum::Screen::OrdinaryScreen);
    QVERIFY(!bench.selection.layer());
}

void tst_PanelSelection::deletedScreenIsDeselected()
{
    PanelBench bench;
    QVERIFY(bench.openSelected());
    bench.selection.setScreenSelected({2, 2}, true);
    QCOMPARE(numbers(bench.selection), (QList<int>{1, 2}));
    bench.selection.setLayer(PanelBench::layerId());
    QSignalSpy screens(&bench.selection, &Selection::screensChanged);
    QSignalSpy layers(&bench.selection, &Selection::layerChanged);

    QVERIFY(resultOf(bench.wall->call(&Control::Screen::writeScreenDeleted, {{1, 1}})));
    QTRY_COMPARE(numbers(bench.selection), QList<int>{2});
    QTRY_VERIFY(!bench.selection.layer());
    QCOMPARE(screens.count(), 1);
    QCOMPARE(layers.count(), 1);
}

void tst_PanelSelection::layerSelectsItsScreenAndScene()
{
    PanelBench bench;
    QVERIFY(bench.openSelected());
    bench.selection.setScreens({{2, 2}});
    QSignalSpy scenes(&bench.selection, &Selection::sceneChanged);
    bench.selection.setLayer(PanelBench::layerId(1, Scene::Programme));
    QCOMPARE(numbers(bench.selection), QList<int>{1});
    QCOMPARE(bench.selection.scene(), Scene::Programme);
    QCOMPARE(scenes.count(), 1);
    QVERIFY(bench.selection.layerObject());
}

void tst_PanelSelection::otherSceneDeselectsTheLayer()
{
    PanelBench bench;
    QVERIFY(bench.openSelected());
    bench.selection.setLayer(PanelBench::layerId());
    bench.selection.setScene(Scene::Programme);
    QVERIFY(!bench.selection.layer());
}

void tst_PanelSelection::deletedSessionIsDeselected()
{
    PanelBench bench;
    QVERIFY(bench.openSelected());
    QSignalSpy devices(&bench.selection, &Selection::deviceChanged);
    delete bench.wall;
    QCOMPARE(devices.count(), 1);
    QVERIFY(!bench.selection.device());
    QVERIFY(bench.selection.screens().isEmpty());
    QVERIFY(!bench.selection.canWrite());
}

void tst_PanelSelection::writesNeedAConnectionAndControl()
{
    PanelBench bench;
    QVERIFY(bench.openSelected());
    QVERIFY(bench.selection.canWrite());

    QVERIFY(bench.execute(QStringLiteral("switch 0")));
    QTRY_VERIFY(!bench.selection.canWrite());
    QVERIFY(bench.execute(QStringLiteral("switch 1")));
    QTRY_VERIFY(bench.selection.canWrite());
}

void tst_PanelSelection::actionsFollowTheSelection()
{
    PanelBench bench;
    const QAction &take = bench.actions.action(ActionId::Take);
    const QAction &raise = bench.actions.action(ActionId::RaiseLayer);
    QVERIFY(!take.isEnabled());
    QVERIFY(bench.openSelected());
    QVERIFY(take.isEnabled());
    QVERIFY(!raise.isEnabled());
    bench.selection.setLayer(PanelBench::layerId());
    QVERIFY(raise.isEnabled());
    bench.selection.setScreens({});
    QVERIFY(!take.isEnabled());
    QVERIFY(!raise.isEnabled());
}

QTEST_MAIN(tst_PanelSelection)
#include "tst_panelselection.moc"
