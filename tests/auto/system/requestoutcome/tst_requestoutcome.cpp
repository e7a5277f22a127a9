// Outcomes of requests that ended without an answer: the channel asks the simulated device by their
// tags, and sends no request again.

#include <support/common/contains.h>
#include <support/common/requestcommand.h>
#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/simulatedconnection.h>

#include <tavorocontrol/controlhelper.h>
#include <tavorossproxy/networkchannel.h>

#include <QTest>

using namespace CommandCodes;
using namespace Tavoro;
using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;

namespace {

constexpr char swapTo7[] = R"({"swap":7})";

std::shared_ptr<DeviceRequestCommand> swapWrite(const char *body, int timeout = 10000)
{
    return requestCommand(2, deviceSwap, body, timeout);
}

} // namespace

class tst_RequestOutcome : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_connection = std::make_unique<SimulatedConnection>(); }
    void cleanup() { m_connection.reset(); }

    void outcomeIsKnownAfterALostConnection_data();
    void outcomeIsKnownAfterALostConnection();
    void outcomeIsKnownAfterATimeout();
    void outcomeOfAnAnsweredRequestIsKnown();
    void refusalByAFaultIsTheOutcome();
    void unsentTagHasNotArrived();
    void splitWriteHasNoTagOfItsOwn();
    void restartedDeviceRemembersNothing();
    void outcomeWithoutAConnectionIsUnknownWithAReason();
    void olderUsesOfATagDoNotCount();

private:
    NetworkChannel &channel() { return *m_connection->channel; }
    quint16 send(const std::shared_ptr<DeviceRequestCommand> &command)
    {
        return channel().sendSyncRequest(command)->status;
    }
    void addFault(const QString &rule)
    {
        QVERIFY(m_connection->simulator->execute(QStringLiteral("fault add ") + rule).ok);
    }
    void waitUntilBack()
    {
        QString error;
        channel().reconnectNow();
        QVERIFY2(channel().waitUntilReady(30000, error), qPrintable(error));
    }
    bool isSwapOff()
    {
        const auto response = channel().sendSyncRequest(requestCommand(1, deviceDetail));
        return contains(response->body(), "\"swap\":0");
    }

    std::unique_ptr<SimulatedConnection> m_connection;
};

void tst_RequestOutcome::outcomeIsKnownAfterALostConnection_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("isDone");
    // clang-format off
    QTest::newRow("answer was lost")  << "drop-before,count=1"  << QByteArray(swapOff) << int(RequestOutcome::Done)     << 0 << true;
    QTest::newRow("refusal was lost") << "drop-before,count=1"  << QByteArray(swapTo7) << int(RequestOutcome::Done)     << 4 << false;
    QTest::newRow("not carried out")  << "drop-request,count=1" << QByteArray(swapOff) << int(RequestOutcome::UnderWay) << 0 << false;
    // clang-format on
}

void tst_RequestOutcome::outcomeIsKnownAfterALostConnection()
{
    QFETCH(QString, fault);
    QFETCH(QByteArray, body);
    QFETCH(int, state);
    QFETCH(int, status);
    QFETCH(bool, isDone);
    addFault(fault);
    const auto write = swapWrite(body.constData());
    QCOMPARE(int(send(write)), 259);
    waitUntilBack();
    const RequestOutcome outcome = channel().requestOutcome(write->head().lables);
    QCOMPARE(int(outcome.state), state);
    QCOMPARE(int(outcome.status), status);
    QCOMPARE(isSwapOff(), isDone);
}

void tst_RequestOutcome::outcomeIsKnownAfterATimeout()
{
    addFault(QStringLiteral("silent,count=1"));
    const auto write = swapWrite(swapOff, 200);
    QCOMPARE(int(send(write)), 260);
    const RequestOutcome outcome = channel().requestOutcome(write->head().lables);
    QCOMPARE(int(outcome.state), int(RequestOutcome::Done));
    QCOMPARE(int(outcome.status), 0);
    QCOMPARE(channel().statistics().connections, quint64(1));
}

void tst_RequestOutcome::outcomeOfAnAnsweredRequestIsKnown()
{
    const auto write = swapWrite(swapTo7);
    QCOMPARE(int(send(write)), 4);
    QCOMPARE(int(channel().requestOutcome(write->head().lables).status), 4);
}

void tst_RequestOutcome::refusalByAFaultIsTheOutcome()
{
    addFault(QStringLiteral("status=8,count=1"));
    const auto write = swapWrite(swapOff);
    QCOMPARE(int(send(write)), 8);
    const RequestOutcome outcome = channel().requestOutcome(write->head().lables);
    QCOMPARE(int(outcome.state), int(RequestOutcome::Done));
    QCOMPARE(int(outcome.status), 8);
    QVERIFY(!isSwapOff());
}

void tst_RequestOutcome::unsentTagHasNotArrived()
{
    QCOMPARE(int(channel().requestOutcome(200).state), int(RequestOutcome::NotArrived));
}

/// Its packets have tags of their own, not that of the caller's request.
void tst_RequestOutcome::splitWriteHasNoTagOfItsOwn()
{
    const auto name =
        requestCommand(2, 0x1101, R"({"general":{"name":")" + std::string(100000, 'n') + R"("}})");
    addFault(QStringLiteral("drop-before,code=DeviceGeneral,skip=1,count=1"));
    QString error;
    QVERIFY(!Control::ControlHelper().sendSyncRequest(m_connection->model, name, error, true));
    waitUntilBack();
    QCOMPARE(name->head().lables, quint8(0));
    QCOMPARE(int(channel().requestOutcome(name->head().lables).state),
             int(RequestOutcome::Unknown));
}

void tst_RequestOutcome::restartedDeviceRemembersNothing()
{
    const auto write = swapWrite(swapOff);
    QCOMPARE(int(send(write)), 0);
    QVERIFY(m_connection->simulator->execute(QStringLiteral("switch 0")).ok);
    QTRY_VERIFY(!channel().isHardwareReadFinished());
    QVERIFY(m_connection->simulator->execute(QStringLiteral("switch 1")).ok);
    waitUntilBack();
    const RequestOutcome outcome = channel().requestOutcome(write->head().lables);
    QCOMPARE(int(outcome.state), int(RequestOutcome::Unknown));
    QCOMPARE(int(outcome.status), 0);
}

void tst_RequestOutcome::outcomeWithoutAConnectionIsUnknownWithAReason()
{
    const auto write = swapWrite(swapOff);
    QCOMPARE(int(send(write)), 0);
    channel().stopChannel();
    const RequestOutcome outcome = channel().requestOutcome(write->head().lables);
    QCOMPARE(int(outcome.state), int(RequestOutcome::Unknown));
    QCOMPARE(int(outcome.status), 259);
}

/// The same write with the same tag, 255 requests later, does not arrive: the outcome is not that
/// of the first one.
void tst_RequestOutcome::olderUsesOfATagDoNotCount()
{
    const auto first = swapWrite(swapOff);
    QCOMPARE(int(send(first)), 0);
    for (int i = 0; i < 254; ++i)
        QCOMPARE(int(send(requestCommand(1, deviceDetail))), 0);
    addFault(QStringLiteral("drop-request,count=1"));
    const auto second = swapWrite(swapOff);
    QCOMPARE(int(send(second)), 259);
    QCOMPARE(second->head().lables, first->head().lables);
    waitUntilBack();
    QCOMPARE(int(channel().requestOutcome(second->head().lables).state),
             int(RequestOutcome::UnderWay));
}

QTEST_GUILESS_MAIN(tst_RequestOutcome)
#include "tst_requestoutcome.moc"
