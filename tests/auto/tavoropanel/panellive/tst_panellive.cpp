// The live bar, operated with mouse and keyboard, and what the device then holds.
#include <support/tavoropanel/windowbench.h>
#include <support/tavorosession/devicelog.h>

#include <tavoropanel/live/livebutton.h>
#include <tavoropanel/live/screenbutton.h>
#include <tavoropanel/live/statusline.h>
#include <tavoropanel/live/tbar.h>

#include <QLineEdit>
#include <QToolButton>

using namespace Tavoro;
using namespace Tavoro::Panel;

Q_DECLARE_METATYPE(Qt::Key)

namespace {

constexpr quint16 freezeCode = 0x1309;
constexpr quint16 fadeCode = 0x130A;
constexpr quint16 takeCode = 0x130E;
const QString quietTake = QStringLiteral(
    R"([{"screenId":1,"screenType":1,"switchEffect":{"time":%1,"direction":0,"type":1}}])");

} // namespace

class tst_PanelLive : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_bench = std::make_unique<WindowBench>();
        QVERIFY(m_bench->openSelected());
    }
    void cleanup() { m_bench.reset(); }

    void buttonIsClicked_data();
    void buttonIsClicked();
    void keyIsPressed_data();
    void keyIsPressed();
    void spaceBarTakesAfterAClick();
    void spaceBarOperatesAButtonThatHasTheFocus();
    void spaceBarIsTypedInATextField();
    void takeIncludesAllSelectedScreens();
    void freezeAndFadeAreShownAndReleased();
    void screensDifferInFreeze();
    void screenIsSelectedByMouseAndKeyboard();
    void failedTakeIsShownWhereTheOperatorLooks();
    void nextTakeRemovesTheFailure();
    void unknownOutcomeIsShownAndThenTheAnswer();
    void lateAnswerIsShown();
    void controlsOfALostDeviceAreDisabled();

private:
    LiveButton &button(const char *name) { return m_bench->find<LiveButton>(name); }
    TBar &tBar() { return *m_bench->window->findChild<TBar *>(); }
    QString status() { return m_bench->window->findChild<StatusLine *>()->text(); }
    ScreenButton &screenButton(int index)
    {
        return *m_bench->window->findChildren<ScreenButton *>().at(index);
    }
    bool isFrozen(int type = 1, quint8 id = 1) { return m_bench->screen(type, id).freeze == 1; }
    bool isBlack() { return m_bench->screen(1, 1).FTB.enable == 1; }

    std::unique_ptr<WindowBench> m_bench;
};

void tst_PanelLive::buttonIsClicked_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("body");
    QTest::newRow("take") << QByteArray("take") << int(takeCode) << quietTake.arg(5);
    QTest::newRow("cut") << QByteArray("cut") << int(takeCode) << quietTake.arg(0);
    QTest::newRow("freeze") << QByteArray("freeze") << int(freezeCode)
                            << QStringLiteral(R"([{"screenId":1,"screenType":1,"freeze":1}])");
    QTest::newRow("fade to black")
        << QByteArray("fadeToBlack") << int(fadeCode)
        << QStringLiteral(R"([{"screenId":1,"screenType":1,"FTB":{"enable":1,"time":0}}])");
}

void tst_PanelLive::buttonIsClicked()
{
    QFETCH(const QByteArray, name);
    QFETCH(const int, code);
    QFETCH(const QString, body);
    DeviceLog log;
    WindowBench::click(button(name.constData()));
    QTRY_COMPARE(log.writes(static_cast<quint16>(code)), QStringList{body});
}

void tst_PanelLive::keyIsPressed_data()
{
    QTest::addColumn<Qt::Key>("pressed");
    QTest::addColumn<bool>("hasControl");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("body");
    QTest::newRow("take") << Qt::Key_Space << false << int(takeCode) << quietTake.arg(5);
    QTest::newRow("cut") << Qt::Key_Space << true << int(takeCode) << quietTake.arg(0);
    QTest::newRow("freeze") << Qt::Key_F << false << int(freezeCode)
                            << QStringLiteral(R"([{"screenId":1,"screenType":1,"freeze":1}])");
    QTest::newRow("fade to black")
        << Qt::Key_B << false << int(fadeCode)
        << QStringLiteral(R"([{"screenId":1,"screenType":1,"FTB":{"enable":1,"time":0}}])");
}

void tst_PanelLive::keyIsPressed()
{
    QFETCH(const Qt::Key, pressed);
    QFETCH(const bool, hasControl);
    QFETCH(const int, code);
    QFETCH(const QString, body);
    DeviceLog log;
    m_bench->key(pressed, hasControl ? Qt::ControlModifier : Qt::NoModifier);
    QTRY_COMPARE(log.writes(static_cast<quint16>(code)), QStringList{body});
}

void tst_PanelLive::spaceBarTakesAfterAClick()
{
    DeviceLog log;
    WindowBench::click(button("freeze"));
    QTRY_VERIFY(isFrozen());
    m_bench->key(Qt::Key_Space);
    QTRY_COMPARE(log.writes(takeCode).size(), 1);
    QCOMPARE(log.writes(freezeCode).size(), 1);
}

void tst_PanelLive::spaceBarOperatesAButtonThatHasTheFocus()
{
    DeviceLog log;
    button("freeze").setFocus(Qt::TabFocusReason);
    QTest::keyClick(&button("freeze"), Qt::Key_Space);
    QTRY_VERIFY(isFrozen());
    QCOMPARE(log.writes(takeCode), QStringList());
}

void tst_PanelLive::spaceBarIsTypedInATextField()
{
    DeviceLog log;
    QLineEdit field(m_bench->window.get());
    field.show();
    field.setFocus();
    QTest::keyClicks(&field, QStringLiteral("fb b"));
    QCOMPARE(field.text(), QStringLiteral("fb b"));
    QVERIFY(resultOf(m_bench->wall->readControlHolder())); // nothing was sent before it
    QCOMPARE(log.writes(takeCode), QStringList());
    QCOMPARE(log.writes(freezeCode), QStringList());
}

void tst_PanelLive::takeIncludesAllSelectedScreens()
{
    DeviceLog log;
    m_bench->key(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(m_bench->window->selection().screens().size(), 2);
    m_bench->key(Qt::Key_Space);
    QTRY_COMPARE(log.writes(takeCode).size(), 1);
    QCOMPARE(
        log.writes(takeCode).first(),
        QStringLiteral(
            R"([{"screenId":1,"screenType":1,"switchEffect":{"time":5,"direction":0,"type":1}},)"
            R"({"screenId":2,"screenType":2,"switchEffect":{"time":5,"direction":0,"type":1}}])"));
}

void tst_PanelLive::freezeAndFadeAreShownAndReleased()
{
    QCOMPARE(button("freeze").litWord(), QString());
    WindowBench::click(button("freeze"));
    QTRY_COMPARE(button("freeze").litWord(), QStringLiteral("Frozen"));
    QVERIFY(isFrozen());
    WindowBench::click(button("fadeToBlack"));
    QTRY_COMPARE(button("fadeToBlack").litWord(), QStringLiteral("Black"));
    QVERIFY(isBlack());
    QVERIFY(screenButton(0).accessibleDescription().endsWith(
        QStringLiteral("Its state: Black, frozen.")));

    WindowBench::click(button("freeze"));
    WindowBench::click(button("fadeToBlack"));
    QTRY_COMPARE(button("freeze").litWord(), QString());
    QTRY_COMPARE(button("fadeToBlack").litWord(), QString());
    QVERIFY(!isFrozen());
    QVERIFY(!isBlack());
}

void tst_PanelLive::screensDifferInFreeze()
{
    WindowBench::click(button("freeze"));
    QTRY_VERIFY(isFrozen());
    m_bench->window->selection().setScreenSelected({2, 2}, true);
    QCOMPARE(button("freeze").litWord(), QStringLiteral("Some screens"));
    WindowBench::click(button("freeze"));
    QTRY_VERIFY(isFrozen(2, 2));
    QVERIFY(isFrozen(1, 1));
}

void tst_PanelLive::screenIsSelectedByMouseAndKeyboard()
{
    const auto count = [this] {
        return m_bench->window->selection().screens().size();
    };
    QTRY_VERIFY(screenButton(0).isVisible());
    WindowBench::click(screenButton(1));
    QCOMPARE(count(), 2);
    m_bench->key(Qt::Key_1, Qt::ControlModifier);
    QTRY_COMPARE(count(), 1);
    QVERIFY(!screenButton(0).isChecked());
    QVERIFY(screenButton(1).isChecked());
}

void tst_PanelLive::failedTakeIsShownWhereTheOperatorLooks()
{
    QVERIFY(m_bench->addFault("status=8,code=0x130E,count=1"));
    m_bench->key(Qt::Key_Space);
    const QString text = QStringLiteral("Failed: wall 1: screen take information was refused: the "
                                        "device is busy, or the object is in use.");
    QTRY_COMPARE(status(), text);
    m_bench->key(Qt::Key_Escape);
    QCOMPARE(status(), QStringLiteral("Operating Main of wall 1."));
}

void tst_PanelLive::nextTakeRemovesTheFailure()
{
    QVERIFY(m_bench->addFault("status=8,code=0x130E,count=1"));
    m_bench->key(Qt::Key_Space);
    QTRY_VERIFY(status().startsWith(QStringLiteral("Failed")));
    m_bench->key(Qt::Key_Space);
    QTRY_COMPARE(status(), QStringLiteral("Operating Main of wall 1."));
}

void tst_PanelLive::unknownOutcomeIsShownAndThenTheAnswer()
{
    // The device takes, and the connection ends before its answer.
    QVERIFY(m_bench->addFault("drop-before,code=0x130E,count=1"));
    QStringList shown;
    const QObject context; // ends the connection, also for calls that are queued
    connect(
        m_bench->wall, &DeviceSession::stateChanged, &context, [&] { shown << status(); },
        Qt::QueuedConnection);
    m_bench->key(Qt::Key_Space);
    QTRY_COMPARE(status(), QStringLiteral("Done: wall 1: the device has carried out the take."));
    QVERIFY2(shown.contains(QStringLiteral(
                 "Outcome unknown: wall 1: the connection was lost during the take. The device is "
                 "asked for the outcome when it is back.")),
             qUtf8Printable(shown.join(QLatin1Char('\n'))));
}

void tst_PanelLive::lateAnswerIsShown()
{
    QVERIFY(m_bench->addFault("hold,code=0x130E,count=1"));
    m_bench->key(Qt::Key_Space);
    QTRY_COMPARE(status(), QStringLiteral("Waiting: wall 1: no answer to the take yet."));
    QTRY_VERIFY(!m_bench->hasFaults());
    QVERIFY(m_bench->releaseAnswers());
    QTRY_COMPARE(status(), QStringLiteral("Done: wall 1: the device has carried out the take."));
}

void tst_PanelLive::controlsOfALostDeviceAreDisabled()
{
    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    QTRY_VERIFY(!button("take").isEnabled());
    QVERIFY(!button("freeze").isEnabled());
    QVERIFY(!tBar().isEnabled());
    QVERIFY2(status().startsWith(QStringLiteral("Not possible: wall 1: Connection lost: ")),
             qUtf8Printable(status()));
    DeviceLog log;
    m_bench->key(Qt::Key_Space);
    QVERIFY(m_bench->execute(QStringLiteral("switch 1")));
    QTRY_VERIFY(button("take").isEnabled());
    QTRY_COMPARE(status(), QStringLiteral("Operating Main of wall 1."));
    QCOMPARE(log.writes(takeCode), QStringList());
}

QTEST_MAIN(tst_PanelLive)
#include "tst_panellive.moc"
