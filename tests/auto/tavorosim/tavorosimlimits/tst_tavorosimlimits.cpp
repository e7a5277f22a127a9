// Limits of what the simulated device keeps for one connection.

#include <support/common/contains.h>
#include <support/common/messagecatcher.h>
#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/packetsize.h>
#include <support/tavorosim/simbench.h>

#include <tavorowire/frame.h>

#include <QHostAddress>
#include <QRegularExpression>
#include <QTcpSocket>
#include <QTest>

using namespace CommandCodes;
using Tavoro::Sim::SimOptions;
using Tavoro::SSProxy::CommandType;

class tst_TavoroSimLimits : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void clientThatSendsAndNeverReadsIsHeldUp();
    void clientWithManyDelayedAnswersIsHeldUp();
    void answersToOneBlockOfRequestsStopAtTheLimit();
    void collectionBeyondSixteenIsRefused();
    void collectionsTogetherHoldAtMost64MiB();
    void splitWriteAbove64MiBIsTooLong();
    void oldestAnswersAreForgottenBeyondSixteen();
    void oldestAnswersAreForgottenBeyond64MiB();
    void controlChangesDoNotPileUpForAClientThatDoesNotRead();
    void consoleLineWithoutEndClosesItsConnection();
    void clientThatIsGoneCausesNoWarnings();
};

namespace {

constexpr int busy = 8;
constexpr qint64 mebibyte = 1 << 20;

QByteArray frameOf(const WireFrame &frame)
{
    return Tavoro::SSProxy::Wire::encodeFrame(frame.head, frame.body);
}

/// A client that sends and never reads.
class Sender {
public:
    explicit Sender(quint16 port)
    {
        m_socket.setReadBufferSize(1);
        m_socket.connectToHost(QHostAddress::LocalHost, port);
        if (!m_socket.waitForConnected(5000))
            qFatal("the device does not listen");
    }

    /// Sends until everything is sent or the device stops reading. Returns the number of unsent
    /// bytes.
    qint64 send(const QByteArray &bytes)
    {
        m_socket.write(bytes);
        while (m_socket.bytesToWrite() > 0 && m_socket.waitForBytesWritten(1000)) { }
        return m_socket.bytesToWrite();
    }

private:
    QTcpSocket m_socket;
};

WireFrame piece(quint16 stream, quint32 totalCount, quint32 sendCount, const std::string &body)
{
    WireFrame frame = WireClient::request(deviceSwap, CommandType::Write, body);
    frame.head.stream = stream;
    frame.head.totalCount = totalCount;
    frame.head.sendCount = sendCount;
    return frame;
}

int statusOf(SimBench &bench, const WireFrame &frame)
{
    return bench.client->exchange(frame).head.status;
}

} // namespace

void tst_TavoroSimLimits::clientThatSendsAndNeverReadsIsHeldUp()
{
    SimBench bench;
    Sender sender(bench.device->port());
    const QByteArray request = frameOf(WireClient::readRequest(deviceDetail));
    sender.send(request.repeated(30000)); // more answers than the device keeps
    QVERIFY(sender.send(QByteArray(64 * mebibyte, '\0')) > 0);
    QVERIFY(!bench.client->read(deviceDetail).body.empty()); // other clients are served
}

void tst_TavoroSimLimits::clientWithManyDelayedAnswersIsHeldUp()
{
    SimOptions options;
    options.latencyMilliseconds = 600000;
    SimBench bench;
    bench.switchOff();
    Tavoro::Sim::SimulatedDevice device(options);
    QString error;
    QVERIFY2(device.start(error), qPrintable(error));
    Sender sender(device.port());
    WireFrame request = WireClient::readRequest(deviceSwap); // answered without body
    request.body = std::string(8 << 10, ' ');
    QVERIFY(sender.send(frameOf(request).repeated(8000)) > 0);
}

void tst_TavoroSimLimits::answersToOneBlockOfRequestsStopAtTheLimit()
{
    SimBench bench(packetsOf(16 * mebibyte));
    const QString name(mebibyte, QLatin1Char('n'));
    QVERIFY(bench.device->execute(QStringLiteral("group 1 ") + name).ok);
    QCOMPARE(int(bench.client->waitForReport().head.code()), int(groupInfo));
    WireClient client;
    QVERIFY(client.connectTo(bench.device->port()));
    // All of them arrive at once; the answers come to 100 MiB.
    const QByteArray requests = frameOf(WireClient::readRequest(groupInfo)).repeated(100);
    const QByteArray write = frameOf(piece(1, 1, 0, R"({"swap":0})"));
    client.sendBytes(requests + write);
    // Not reached before the client reads.
    QVERIFY(contains(bench.client->read(deviceDetail).body, "\"swap\":1"));
    for (int i = 0; i < 100; ++i)
        QVERIFY(client.receiveResponse().body.size() > std::size_t(mebibyte));
    QCOMPARE(int(client.receiveResponse().head.status), 0);
    QVERIFY(contains(bench.client->read(deviceDetail).body, "\"swap\":0"));
}

void tst_TavoroSimLimits::collectionBeyondSixteenIsRefused()
{
    SimBench bench;
    for (quint16 stream = 1; stream <= 16; ++stream)
        QCOMPARE(statusOf(bench, piece(stream, 2, 0, "{\"swap\"")), 0);
    QCOMPARE(statusOf(bench, piece(17, 2, 0, "{\"swap\"")), busy);
    QCOMPARE(statusOf(bench, piece(17, 2, 1, ":0}")), 5); // nothing was collected
    QCOMPARE(statusOf(bench, piece(16, 2, 0, "{\"swap\"")), 0); // again on its stream
    for (quint16 stream = 1; stream <= 16; ++stream)
        QCOMPARE(statusOf(bench, piece(stream, 2, 1, ":0}")), 0);
    QCOMPARE(statusOf(bench, piece(17, 2, 0, "{\"swap\"")), 0);
    QCOMPARE(statusOf(bench, piece(17, 2, 1, ":0}")), 0);
}

void tst_TavoroSimLimits::collectionsTogetherHoldAtMost64MiB()
{
    SimBench bench(packetsOf(16 * mebibyte));
    const std::string part(16 * mebibyte, ' ');
    for (quint16 stream = 1; stream <= 3; ++stream)
        QCOMPARE(statusOf(bench, piece(stream, 2, 0, part)), 0);
    QCOMPARE(statusOf(bench, piece(4, 3, 0, part)), 0);
    QCOMPARE(statusOf(bench, piece(5, 2, 0, " ")), busy);
    QCOMPARE(statusOf(bench, piece(4, 3, 1, " ")), busy);
    QCOMPARE(statusOf(bench, piece(4, 3, 2, " ")), 5); // dropped
    QCOMPARE(statusOf(bench, piece(1, 2, 1, R"({"swap":0})")), 0);
}

void tst_TavoroSimLimits::splitWriteAbove64MiBIsTooLong()
{
    SimBench bench(packetsOf(16 * mebibyte));
    const std::string part(16 * mebibyte, ' ');
    for (quint32 i = 0; i < 4; ++i)
        QCOMPARE(statusOf(bench, piece(1, 6, i, part)), 0);
    QCOMPARE(statusOf(bench, piece(1, 6, 4, " ")), 7);
    QCOMPARE(statusOf(bench, piece(1, 6, 5, " ")), 5); // dropped
}

void tst_TavoroSimLimits::oldestAnswersAreForgottenBeyondSixteen()
{
    SimBench bench(packetsOf(500));
    WireFrame request = WireClient::readRequest(deviceDetail);
    for (quint16 stream = 1; stream <= 17; ++stream) {
        request.head.stream = stream;
        request.head.totalCount = bench.client->exchange(request).head.totalCount;
        QVERIFY(request.head.totalCount > 2);
    }
    request.head.sendCount = 1;
    for (quint16 stream = 1; stream <= 17; ++stream) {
        request.head.stream = stream;
        QCOMPARE(statusOf(bench, request), stream == 1 ? 6 : 0);
    }
}

void tst_TavoroSimLimits::oldestAnswersAreForgottenBeyond64MiB()
{
    SimBench bench(packetsOf(4 * mebibyte));
    const QString name(10 * mebibyte, QLatin1Char('n'));
    QVERIFY(bench.device->execute(QStringLiteral("group 1 ") + name).ok);
    QCOMPARE(int(bench.client->waitForReport().head.code()), int(groupInfo));
    WireFrame request = WireClient::readRequest(groupInfo);
    for (quint16 stream = 1; stream <= 7; ++stream) {
        request.head.stream = stream;
        request.head.sendCount = 0;
        request.head.totalCount = 0;
        QCOMPARE(bench.client->exchange(request).head.totalCount, 3u);
    }
    request.head.totalCount = 3;
    request.head.sendCount = 1;
    for (quint16 stream = 1; stream <= 7; ++stream) {
        request.head.stream = stream;
        QCOMPARE(statusOf(bench, request), stream == 1 ? 6 : 0);
    }
}

void tst_TavoroSimLimits::controlChangesDoNotPileUpForAClientThatDoesNotRead()
{
    SimBench bench;
    WireClient reader;
    QVERIFY(reader.connectTo(bench.device->port()));
    QVERIFY(!reader.identity().empty());
    const QString name(4 * mebibyte, QLatin1Char('n'));
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("does not read: reports are dropped")));
    for (int i = 0; i < 10; ++i) {
        QVERIFY(bench.device->execute(QStringLiteral("group 1 ") + name).ok);
        QCOMPARE(int(bench.client->waitForReport().head.code()), int(groupInfo));
    }
    for (int i = 0; i < 100; ++i) {
        QCOMPARE(bench.client->control(1), 0);
        QCOMPARE(bench.client->control(2), 0);
    }
    QCOMPARE(bench.client->control(1), 0);
    // The reports before the answer are the ones that were sent; none of them is about control.
    QCOMPARE(int(reader.read(deviceDetail).head.status), 0);
    QList<int> states;
    for (int i = reader.keptReports(); i > 0 || states.isEmpty(); --i) {
        const WireFrame report = reader.waitForReport();
        QVERIFY(report.head.kind != 0);
        if (report.head.code() == controlCode)
            states.append(report.head.arg2[0]);
    }
    QCOMPARE(states, QList<int>{1});
}

void tst_TavoroSimLimits::consoleLineWithoutEndClosesItsConnection()
{
    SimOptions options;
    options.controlPort = 0;
    SimBench bench(options);
    const MessageCatcher catcher;
    QTcpSocket console;
    console.connectToHost(QHostAddress::LocalHost, bench.device->controlPort());
    QVERIFY(console.waitForConnected(5000));
    console.write(QByteArray(mebibyte, 'x'));
    QVERIFY(console.waitForDisconnected(5000)
            || console.state() == QAbstractSocket::UnconnectedState);
    QCOMPARE(catcher.texts("tavoro.sim", QtWarningMsg),
             QStringList(QStringLiteral("a console line is longer than 65536 bytes")));
}

void tst_TavoroSimLimits::clientThatIsGoneCausesNoWarnings()
{
    SimOptions options;
    options.latencyMilliseconds = 1;
    SimBench bench(options);
    const MessageCatcher catcher;
    const QByteArray request = frameOf(WireClient::readRequest(deviceDetail));
    for (int i = 0; i < 50; ++i) {
        QTcpSocket client;
        client.connectToHost(QHostAddress::LocalHost, bench.device->port());
        QVERIFY(client.waitForConnected(5000));
        client.write(request.repeated(200));
        client.flush();
        client.close();
    }
    // Its answers are delayed like those for the clients that are gone.
    QCOMPARE(int(bench.client->read(deviceDetail).head.status), 0);
    QCOMPARE(int(bench.client->read(deviceDetail).head.status), 0);
    QStringList warnings;
    for (const CaughtMessage &message : catcher.messages()) {
        if (message.level == QtWarningMsg)
            warnings.append(message.text);
    }
    QCOMPARE(warnings, QStringList());
}

QTEST_GUILESS_MAIN(tst_TavoroSimLimits)
#include "tst_tavorosimlimits.moc"
