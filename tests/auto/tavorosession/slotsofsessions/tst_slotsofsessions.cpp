// Slots that close or open a session, or run an event loop of their own, as a message box does.

#include <support/tavorosession/sessionbench.h>

#include <tavorobizmodel/device.h>
#include <tavorocontrol/device.h>

#include <QEventLoop>

#include <memory>
#include <utility>

using namespace Tavoro;
using namespace std::chrono_literals;

class tst_SlotsOfSessions : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_bench = std::make_unique<SessionBench>();
        m_slots = std::make_unique<QObject>();
    }
    void cleanup()
    {
        m_slots.reset(); // first: the end of the session is signalled as well
        m_bench.reset();
    }

    void sessionIsClosedWhenItsDeviceIsKnown();
    void sessionIsClosedWhenItBeginsToConnect();
    void sessionIsClosedWhenItBeginsToRead();
    void sessionIsClosedWhenTheDeviceIsOnline();
    void sessionIsClosedWhileTheModelChanges();
    void sessionIsClosedByACallThatItEnds();
    void callsThatWaitedAreNotSentWhenASlotClosesTheSession();
    void sessionIsClosedWhenTheDeviceIsOffline();
    void sessionThatReconnectsDuringASlotIsReady();
    void sessionIsClosedByTheFirstOfTwoUnknownOutcomes();

private:
    DeviceSession &wall() { return *m_bench->wall; }
    /// Makes two calls. The second one waits, since the answer to the first one is held.
    void makeWaitingCall()
    {
        QVERIFY(m_bench->addFault("hold,code=0x1107,count=1"));
        wall().call(&Control::Device::writeSwap, {1});
        wall().call(&Control::Device::writeSwap, {0});
    }
    void checkClosed()
    {
        QTRY_COMPARE(m_closed, 1);
        QCOMPARE(wall().state().kind, DeviceState::Disconnected);
        QVERIFY(!wall().device() || !wall().device()->isOnline());
        QVERIFY(m_bench->execute(QStringLiteral("fault clear")));
        wall().open();
        QTRY_VERIFY(wall().isReady());
        QVERIFY(resultOf(wall().call(&Control::Device::writeSwap, {1})));
    }
    void closeOnce()
    {
        if (std::exchange(m_closed, 1) == 0)
            wall().close();
    }

    std::unique_ptr<SessionBench> m_bench;
    std::unique_ptr<QObject> m_slots; ///< The context of the slots.
    int m_closed = 0;
};

void tst_SlotsOfSessions::sessionIsClosedWhenItsDeviceIsKnown()
{
    m_bench->open();
    m_closed = 0;
    connect(&wall(), &DeviceSession::deviceChanged, m_slots.get(), [this] { closeOnce(); });
    checkClosed();
}

void tst_SlotsOfSessions::sessionIsClosedWhenItBeginsToConnect()
{
    m_bench->open();
    wall().close();
    m_closed = 0;
    connect(&wall(), &DeviceSession::stateChanged, m_slots.get(), [this] {
        if (wall().state().kind == DeviceState::Connecting)
            closeOnce();
    });
    wall().open();
    checkClosed();
}

void tst_SlotsOfSessions::sessionIsClosedWhenItBeginsToRead()
{
    m_bench->open();
    m_closed = 0;
    connect(&wall(), &DeviceSession::stateChanged, m_slots.get(), [this] {
        if (wall().state().kind == DeviceState::Reading)
            closeOnce();
    });
    checkClosed();
}

void tst_SlotsOfSessions::sessionIsClosedWhenTheDeviceIsOnline()
{
    QVERIFY(m_bench->openReady());
    wall().close();
    m_closed = 0;
    connect(wall().device().get(), &BizModel::Device::deviceDataChanged, m_slots.get(), [this] {
        if (wall().device()->isOnline())
            closeOnce();
    });
    wall().open();
    checkClosed();
}

void tst_SlotsOfSessions::sessionIsClosedWhileTheModelChanges()
{
    QVERIFY(m_bench->openReady());
    wall().device()->setName(QStringLiteral("not its name"));
    m_closed = 0;
    using Part = BizModel::Enum::Device::DataPart;
    connect(wall().device().get(), &BizModel::Device::deviceDataChanged, m_slots.get(),
            [this](Part part) {
                if (part != Part::OnlineFlag)
                    closeOnce();
            });
    wall().readAgain();
    checkClosed();
}

void tst_SlotsOfSessions::sessionIsClosedByACallThatItEnds()
{
    QVERIFY(m_bench->openReady());
    makeWaitingCall();
    m_closed = 0;
    connect(&wall(), &DeviceSession::callFinished, m_slots.get(), [this] { closeOnce(); });
    wall().close();
    checkClosed();
}

void tst_SlotsOfSessions::callsThatWaitedAreNotSentWhenASlotClosesTheSession()
{
    QVERIFY(m_bench->openReady());
    makeWaitingCall();
    const auto secondWaiting = wall().call(&Control::Device::writeSwap, {1});
    const auto thirdWaiting = wall().call(&Control::Device::writeSwap, {0});
    m_closed = 0;
    connect(&wall(), &DeviceSession::callFinished, m_slots.get(), [this] { closeOnce(); });
    wall().close();
    QCOMPARE(resultOf(secondWaiting).kind(), Outcome::NotSent);
    QCOMPARE(resultOf(thirdWaiting).kind(), Outcome::NotSent);
}

void tst_SlotsOfSessions::sessionIsClosedWhenTheDeviceIsOffline()
{
    QVERIFY(m_bench->openReady());
    m_closed = 0;
    connect(wall().device().get(), &BizModel::Device::deviceDataChanged, m_slots.get(), [this] {
        if (!wall().device()->isOnline())
            closeOnce();
    });
    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    QTRY_COMPARE(m_closed, 1);
    QVERIFY(m_bench->execute(QStringLiteral("switch 1")));
    checkClosed();
}

void tst_SlotsOfSessions::sessionThatReconnectsDuringASlotIsReady()
{
    QVERIFY(m_bench->openReady());
    QEventLoop messageBox;
    bool isShown = false;
    connect(wall().device().get(), &BizModel::Device::deviceDataChanged, m_slots.get(), [&] {
        if (wall().device()->isOnline() || std::exchange(isShown, true))
            return;
        QVERIFY(m_bench->execute(QStringLiteral("switch 1")));
        connect(&wall(), &DeviceSession::stateChanged, &messageBox, [&] {
            if (wall().isReady())
                messageBox.quit();
        });
        messageBox.exec();
    });
    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    QTRY_VERIFY(isShown && !messageBox.isRunning());
    QTRY_VERIFY(wall().isReady());
    QVERIFY(wall().device()->isOnline());
    QVERIFY(resultOf(wall().call(&Control::Device::readDetails)));
}

/// A command and a transfer, whose times to ask for the outcome end together.
void tst_SlotsOfSessions::sessionIsClosedByTheFirstOfTwoUnknownOutcomes()
{
    SessionBench::Options options = SessionBench::fastOptions();
    options.outcomeTime = 100ms;
    m_bench = std::make_unique<SessionBench>(options);
    QVERIFY(m_bench->openReady());
    QVERIFY(m_bench->addFault("silent,code=0x1107,count=1"));
    QVERIFY(m_bench->addFault("silent,code=0xFA03,skip=1,count=1"));
    connect(&wall(), &DeviceSession::callFinished, m_slots.get(), [this] { closeOnce(); });
    m_closed = 0;
    const auto command = wall().call(&Control::Device::writeSwap, {1});
    ProtoModel::File::s_FileInfo file;
    file.fileType = 12;
    file.fileId = 7;
    file.general.name = "file";
    const auto transfer = wall().files().send(file, "content");
    QTRY_VERIFY(!m_bench->hasFaults());
    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    QCOMPARE(resultOf(command).kind(), Outcome::Unknown);
    QCOMPARE(resultOf(transfer).kind(), Outcome::Unknown);
    QCOMPARE(wall().state().kind, DeviceState::Disconnected);
}

QTEST_GUILESS_MAIN(tst_SlotsOfSessions)
#include "tst_slotsofsessions.moc"
