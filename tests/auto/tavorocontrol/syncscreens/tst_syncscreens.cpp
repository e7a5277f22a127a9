#include <support/tavorocontrol/interferingchannel.h>
#include <support/tavorocontrol/synchronised.h>

#include <tavorobizmodel/mvrscreen.h>
#include <tavorobizmodel/screen.h>

#include <QtTest>

using namespace Tavoro;
using BizModel::MVRScreen;

/// How a synchronisation changes the active screens.
class tst_SyncScreens : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void firstOrdinaryScreenBecomesActive();
    void screensOfOtherTypesDoNotBecomeActive_data();
    void screensOfOtherTypesDoNotBecomeActive();
    void withoutOrdinaryScreensNoneIsActive();
    void activeScreenIsReplacedEvenIfACallerHoldsTheOldOne();
    void layoutsOfMultiviewersAreKeptById();
    void layoutsAreKeptAlsoWhenTheModelForgetsThem();
};

namespace {

std::shared_ptr<MVRScreen> multiviewer(int id)
{
    const auto screen = Synchronised::listed()->findScreen(3, quint8(id)).lock();
    return std::dynamic_pointer_cast<MVRScreen>(screen);
}

/// Number and type of a screen, or "none".
QString quoted(const std::shared_ptr<BizModel::Screen> &screen)
{
    return screen ? QStringLiteral("%1/%2").arg(screen->screenId()).arg(screen->screenType())
                  : QStringLiteral("none");
}

QString activeScreen()
{
    return quoted(Synchronised::listed()->activedScreen().lock());
}

QString activeMultiviewer()
{
    return quoted(Synchronised::listed()->activedMVRScreen().lock());
}

} // namespace

void tst_SyncScreens::firstOrdinaryScreenBecomesActive()
{
    Synchronised it;
    it.channel->replyBody(0x1300,
                          R"([{"screenId":4,"screenType":4},{"screenId":6,"screenType":3},)"
                          R"({"screenId":2,"screenType":2},{"screenId":1,"screenType":1},)"
                          R"({"screenId":5,"screenType":3}])");
    it.run();
    QCOMPARE(activeScreen(), QStringLiteral("2/2"));
    QCOMPARE(activeMultiviewer(), QStringLiteral("6/3"));
}

void tst_SyncScreens::screensOfOtherTypesDoNotBecomeActive_data()
{
    QTest::addColumn<int>("screenType");
    QTest::addColumn<QString>("active");
    QTest::addColumn<QString>("multiviewer");

    const QString none = QStringLiteral("none");
    QTest::newRow("unknown") << 0 << none << none;
    QTest::newRow("ordinary") << 1 << QStringLiteral("7/1") << none;
    QTest::newRow("mosaic") << 2 << QStringLiteral("7/2") << none;
    QTest::newRow("multiviewer") << 3 << none << QStringLiteral("7/3");
    QTest::newRow("auxiliary") << 4 << none << none;
}

void tst_SyncScreens::screensOfOtherTypesDoNotBecomeActive()
{
    QFETCH(const int, screenType);
    QFETCH(const QString, active);
    QFETCH(const QString, multiviewer);
    Synchronised it;
    it.channel->replyBody(0x1300,
                          R"([{"screenId":7,"screenType":)" + std::to_string(screenType) + "}]");
    it.channel->replyBody(0x1400, "[]");
    it.run();
    QCOMPARE(activeScreen(), active);
    QCOMPARE(activeMultiviewer(), multiviewer);
}

void tst_SyncScreens::withoutOrdinaryScreensNoneIsActive()
{
    Synchronised it;
    it.channel->replyBody(0x1300, "[]");
    it.channel->replyBody(0x1400, "[]");
    it.run();
    QCOMPARE(activeScreen(), QStringLiteral("none"));
    QCOMPARE(activeMultiviewer(), QStringLiteral("none"));
    QCOMPARE(it.lines(), modelStep());
    QVERIFY(it.task.isSyncSucess());
}

void tst_SyncScreens::activeScreenIsReplacedEvenIfACallerHoldsTheOldOne()
{
    Synchronised it;
    it.run();
    const auto held = it.listed()->activedScreen().lock();
    const auto heldMultiviewer = it.listed()->activedMVRScreen().lock();
    it.task.resetDevice();
    it.run();
    QVERIFY(it.listed()->activedScreen().lock() != held);
    QCOMPARE(it.listed()->activedScreen().lock(), it.listed()->findScreen(1, 1).lock());
    QVERIFY(it.listed()->activedScreen().lock());
    QVERIFY(it.listed()->activedMVRScreen().lock() != heldMultiviewer);
    QCOMPARE(activeMultiviewer(), QStringLiteral("3/3"));
}

void tst_SyncScreens::layoutsOfMultiviewersAreKeptById()
{
    Synchronised it;
    it.run();
    const QSize standard = multiviewer(3)->rowColSpan();
    const QSize users(5, 2);
    QVERIFY(users != standard);
    multiviewer(3)->setRowColSpan(users);

    it.task.resetDevice();
    it.channel->replyBody(0x1300,
                          R"([{"screenId":1,"screenType":1},{"screenId":4,"screenType":3},)"
                          R"({"screenId":3,"screenType":3}])");
    it.run();
    QCOMPARE(multiviewer(3)->rowColSpan(), users);
    QCOMPARE(multiviewer(4)->rowColSpan(), standard);
}

// The model of this project remembers the layouts itself. Another model need not.
void tst_SyncScreens::layoutsAreKeptAlsoWhenTheModelForgetsThem()
{
    const auto channel = std::make_shared<InterferingChannel>();
    Synchronised it(channel);
    it.makeKnown();
    const QSize users(5, 2);
    ScriptedAnswer last;
    last.before = [&] {
        QString error;
        ProtoModel::Screen::s_ScreenFullDetail screen;
        screen.screenId = 3;
        screen.screenType = 3;
        it.device.model->initModelData(std::vector{screen}, error);
        multiviewer(3)->setRowColSpan(users);
    };
    channel->replyContent(12, 1, last);
    channel->watched = it.device.model;
    channel->interfere = [&] {
        it.device.model->clearAll(false);
    };
    it.run();
    QCOMPARE(multiviewer(3)->rowColSpan(), users);
}

QTEST_GUILESS_MAIN(tst_SyncScreens)
#include "tst_syncscreens.moc"
