// Screens and layers on the simulated device: how they are created, moved and removed.

#include <support/tavorosim/simreads.h>

#include <QTest>

using namespace SimReads;

class tst_TavoroSimScreens : public QObject, private Fixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { start(); }
    void cleanup() { stop(); }

    void enablingCreatesAScreen();
    void anOutputServesOneScreenAtATime();
    void deletingAScreenRemovesItsLayersAndFreesItsOutputs();
    void takeSwapsPreviewAndProgramme();
    void takeCopiesWhileSwapIsOff();
    void tBarTakesAtItsEndAndOnlyThere();
    void enablingCreatesALayer();
    void removeAllClearsOneScreen();
    void removingAnEmptyListRemovesNothing();
    void zOrderMakesRoom();
    void inputsKeepTheirTimingWithAnyPreset();
};

void tst_TavoroSimScreens::enablingCreatesAScreen()
{
    QCOMPARE(status(0x1301, R"([{"screenId":9,"screenType":1,"general":{"name":"Stage"}}])"), 0);
    QCOMPARE(valueAt(screen, {0, any, 1, 9}, QStringLiteral("0.general.name")),
             QByteArray(R"("Stage")"));
    QCOMPARE(valueAt(screen, {0, any, 1, 9}, QStringLiteral("0.switchEffect")),
             QByteArray(R"({"direction":0,"time":5,"type":1})"));
}

void tst_TavoroSimScreens::anOutputServesOneScreenAtATime()
{
    const QByteArray outputOfScreen4 = R"([{"interfaceId":{"slotId":4,"connectorId":4}}])";
    const QByteArray wanted =
        R"([{"screenId":9,"screenType":1,"mosaic":{"outputs":)" + outputOfScreen4 + "}}]";
    QCOMPARE(status(0x1301, wanted), 8);
    QCOMPARE(status(0x1301, R"([{"screenId":4,"screenType":4}])"), 0); // Its output is free again.
    QCOMPARE(status(0x1301, wanted), 0);
}

void tst_TavoroSimScreens::deletingAScreenRemovesItsLayersAndFreesItsOutputs()
{
    QCOMPARE(status(0x130F, R"([{"screenId":1,"screenType":1}])"), 0);
    QCOMPARE(list(screen, screen1), QByteArray("[]"));
    QCOMPARE(list(layer, programme1), QByteArray("[]"));
    QCOMPARE(count(layer, {any, any, any, any}), 24);
    QCOMPARE(
        status(
            0x1301,
            R"([{"screenId":9,"screenType":1,"mosaic":{"outputs":[{"interfaceId":{"slotId":3,"connectorId":1}}]}}])"),
        0);
}

void tst_TavoroSimScreens::takeSwapsPreviewAndProgramme()
{
    const QByteArray programme = list(layer, programme1);
    const QByteArray preview = list(layer, preview1);
    QVERIFY(programme != preview);
    QCOMPARE(status(0x130E, R"([{"screenId":1,"screenType":1,"switchEffect":{"time":5}}])"), 0);
    QCOMPARE(list(layer, programme1),
             QByteArray(preview).replace("\"sceneType\":2", "\"sceneType\":4"));
    QCOMPARE(list(layer, preview1),
             QByteArray(programme).replace("\"sceneType\":4", "\"sceneType\":2"));
}

void tst_TavoroSimScreens::takeCopiesWhileSwapIsOff()
{
    const QByteArray preview = list(layer, preview1);
    QCOMPARE(status(0x1107, R"({"swap":0})"), 0);
    QCOMPARE(status(0x130E, R"([{"screenId":1,"screenType":1}])"), 0);
    QCOMPARE(list(layer, programme1),
             QByteArray(preview).replace("\"sceneType\":2", "\"sceneType\":4"));
    QCOMPARE(list(layer, preview1), preview);
}

void tst_TavoroSimScreens::tBarTakesAtItsEndAndOnlyThere()
{
    const auto move = [this](int percent) {
        return status(0x130D,
                      QStringLiteral(R"([{"screenId":1,"screenType":1,"tbar":{"percent":%1}}])")
                          .arg(percent)
                          .toLatin1());
    };
    const QByteArray programme = list(layer, programme1);
    QCOMPARE(move(99), 0);
    QCOMPARE(list(layer, programme1), programme);
    QCOMPARE(move(100), 0);
    QVERIFY(list(layer, programme1) != programme);
    QCOMPARE(move(100), 0); // It has arrived already.
    QVERIFY(list(layer, programme1) != programme);
    QCOMPARE(move(0), 0);
    QVERIFY(list(layer, programme1) != programme);
    QCOMPARE(move(100), 0);
    QCOMPARE(list(layer, programme1), programme);
}

void tst_TavoroSimScreens::enablingCreatesALayer()
{
    QCOMPARE(
        status(
            0x1401,
            R"([{"layerIdenti":{"screenId":1,"screenType":1,"layerId":7,"layerType":1,"sceneType":4},"zorder":7,"source":{"general":{"type":3,"id":2}}}])"),
        0);
    QCOMPARE(valueAt(layer, programme1, QStringLiteral("3.layerIdenti.layerId")), QByteArray("7"));
    QCOMPARE(valueAt(layer, programme1, QStringLiteral("3.opacity")), QByteArray("100"));
    QCOMPARE(
        status(
            0x140E,
            R"([{"layerIdenti":{"screenId":1,"screenType":1,"layerId":7,"layerType":1,"sceneType":4}}])"),
        0);
    QCOMPARE(count(layer, programme1), 4);
}

void tst_TavoroSimScreens::removeAllClearsOneScreen()
{
    WireFrame request = WireClient::request(0x140E, Tavoro::SSProxy::CommandType::Write, "[]");
    const Filters everyLayerOfScreen2{any, any, 2, 2};
    std::copy(everyLayerOfScreen2.begin(), everyLayerOfScreen2.end(), request.head.arg2);
    QCOMPARE(int(client().exchange(request).head.status), 0);
    QCOMPARE(list(layer, {any, any, 2, 2}), QByteArray("[]"));
    QCOMPARE(count(layer, {any, any, any, any}), 24);
    request.head.arg2[3] = 77;
    QCOMPARE(int(client().exchange(request).head.status), 3);
}

void tst_TavoroSimScreens::removingAnEmptyListRemovesNothing()
{
    const QByteArray before = everything();
    QCOMPARE(status(0x140E, "[]"), 0);
    QCOMPARE(everything(), before);
}

void tst_TavoroSimScreens::zOrderMakesRoom()
{
    // Stacked as 0 (background), 1, 2, 3; layer 1 moves to the position of layer 3.
    QCOMPARE(
        status(
            0x1402,
            R"([{"layerIdenti":{"screenId":1,"screenType":1,"layerId":1,"layerType":1,"sceneType":4},"zorder":3}])"),
        0);
    QCOMPARE(valueAt(layer, programme1, QStringLiteral("0.zorder")), QByteArray("3"));
    QCOMPARE(valueAt(layer, programme1, QStringLiteral("1.zorder")), QByteArray("2"));
    QCOMPARE(valueAt(layer, programme1, QStringLiteral("2.zorder")), QByteArray("4"));
    QCOMPARE(valueAt(layer, preview1, QStringLiteral("2.zorder")), QByteArray("3"));
}

void tst_TavoroSimScreens::inputsKeepTheirTimingWithAnyPreset()
{
    QCOMPARE(status(0x1203, R"([{"slotId":1,"connectorId":1,"presetTiming":{"refresh":50}}])"), 0);
    QCOMPARE(valueAt(interface, inputs, QStringLiteral("0.presetTiming.refresh")),
             QByteArray("50"));
    QCOMPARE(valueAt(interface, inputs, QStringLiteral("0.actualTiming.refresh")),
             QByteArray("60"));
}

QTEST_GUILESS_MAIN(tst_TavoroSimScreens)
#include "tst_tavorosimscreens.moc"
