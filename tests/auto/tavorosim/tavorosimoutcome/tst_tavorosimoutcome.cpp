// The simulated device remembers what it answered, for each connection of each client.

#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/packetsize.h>
#include <support/tavorosim/simbench.h>

#include <tavorowire/frame.h>

#include <QTest>

using namespace CommandCodes;
using namespace Tavoro;
using SSProxy::CommandType;

namespace {

/// 8 bytes of the client ID, the number of the connection and the number of the request.
std::string requestId(char client, char connection, int number)
{
    std::string id(8, client);
    id += {connection, 0, 0, 0};
    id += {static_cast<char>(number & 0xFF), static_cast<char>(number >> 8), 0, 0};
    return id;
}

bool introduce(WireClient &client, char name, char connection)
{
    WireFrame frame;
    frame.head.kind = 4;
    frame.body = requestId(name, connection, 0).substr(0, 12);
    return client.exchange(frame).head.kind == 5;
}

/// State and status as hexadecimal digits.
QByteArray ask(WireClient &client, char name, char connection, int number)
{
    const WireFrame answer = client.exchange(
        WireClient::request(outcomeCode, CommandType::Read, requestId(name, connection, number)));
    return QByteArray::fromStdString(answer.body).toHex();
}

} // namespace

class tst_TavoroSimOutcome : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyReceivedRequestIsCounted();
    void unknownRequestHasNotArrived();
    void onlyTheLastRequestsAreRemembered();
    void requestsMayArriveInAnotherOrderThanTheirNumbers();
    void onlyTheLastConnectionsAreRemembered();
    void connectionsAndClientsAreDistinguished();
    void clientsWithoutIdAreServedAndForgotten();
    void newConnectionEndsTheOlderOneOfTheClient();
    void invalidQuestionsAreRefused();
    void faultsThatAnswerAreDone_data();
    void faultsThatAnswerAreDone();
    void faultsThatDoNotAnswerLeaveItUnderWay_data();
    void faultsThatDoNotAnswerLeaveItUnderWay();
    void heldBackPacketIsDone();
};

void tst_TavoroSimOutcome::everyReceivedRequestIsCounted()
{
    SimBench bench;
    WireClient &client = *bench.client;
    QVERIFY(introduce(client, 'a', 1));
    QCOMPARE(bench.write(deviceSwap, swapOff), 0);
    QCOMPARE(bench.write(deviceSwap, R"({"swap":7})"), 4);
    QCOMPARE(ask(client, 'a', 1, 1), QByteArray("0300"));
    QCOMPARE(ask(client, 'a', 1, 2), QByteArray("0304"));

    const WireFrame broken =
        client.numbered(WireClient::request(deviceSwap, CommandType::Write, swapOff));
    QByteArray bytes = SSProxy::Wire::encodeFrame(broken.head, broken.body);
    bytes[bytes.size() - 1] = 'X';
    client.sendBytes(bytes); // the fifth, with the questions
    QCOMPARE(ask(client, 'a', 1, 5), QByteArray()); // the answer to the broken one comes first
    QCOMPARE(ask(client, 'a', 1, 5), QByteArray("0302"));
}

void tst_TavoroSimOutcome::unknownRequestHasNotArrived()
{
    SimBench bench;
    QVERIFY(introduce(*bench.client, 'a', 1));
    QCOMPARE(ask(*bench.client, 'a', 1, 2), QByteArray("0100"));
    QCOMPARE(ask(*bench.client, 'a', 1, 2), QByteArray("0200")); // the question itself
    QCOMPARE(ask(*bench.client, 'a', 1, 0), QByteArray("0000"));
}

void tst_TavoroSimOutcome::onlyTheLastRequestsAreRemembered()
{
    SimBench bench;
    QVERIFY(introduce(*bench.client, 'a', 1));
    for (int i = 0; i < 256; ++i)
        QCOMPARE(bench.write(deviceSwap, swapOff), 0);
    QCOMPARE(ask(*bench.client, 'a', 1, 2), QByteArray("0300"));
    QCOMPARE(ask(*bench.client, 'a', 1, 2), QByteArray("0000"));
    QCOMPARE(ask(*bench.client, 'a', 1, 256), QByteArray("0300"));
}

/// A client may set a number aside and send its request after many others.
void tst_TavoroSimOutcome::requestsMayArriveInAnotherOrderThanTheirNumbers()
{
    SimBench bench;
    QVERIFY(introduce(*bench.client, 'a', 1));
    const auto sendNumber = [&](quint32 number) {
        WireFrame frame = WireClient::request(deviceSwap, CommandType::Write, swapOff);
        frame.head.number = number;
        return int(bench.client->exchange(frame).head.status);
    };
    QCOMPARE(sendNumber(556), 0);
    QCOMPARE(ask(*bench.client, 'a', 1, 300), QByteArray("0100"));
    QCOMPARE(sendNumber(300), 0);
    QCOMPARE(ask(*bench.client, 'a', 1, 300), QByteArray("0300"));
    QCOMPARE(ask(*bench.client, 'a', 1, 556), QByteArray("0300"));
}

void tst_TavoroSimOutcome::onlyTheLastConnectionsAreRemembered()
{
    SimBench bench;
    QVERIFY(introduce(*bench.client, 'a', 1));
    QCOMPARE(bench.write(deviceSwap, swapOff), 0);
    for (char connection = 1; connection <= 64; ++connection) {
        QCOMPARE(ask(*bench.client, 'a', 1, 1), QByteArray("0300"));
        WireClient other;
        QVERIFY(other.connectTo(bench.device->port()) && introduce(other, 'b', connection));
    }
    QCOMPARE(ask(*bench.client, 'a', 1, 1), QByteArray("0000"));
}

void tst_TavoroSimOutcome::connectionsAndClientsAreDistinguished()
{
    SimBench bench;
    QVERIFY(introduce(*bench.client, 'a', 1));
    QCOMPARE(bench.write(deviceSwap, swapOff), 0);
    WireClient again;
    QVERIFY(again.connectTo(bench.device->port()) && introduce(again, 'a', 2));
    QCOMPARE(ask(again, 'a', 1, 1), QByteArray("0300"));
    QCOMPARE(ask(again, 'a', 2, 9), QByteArray("0100"));
    QCOMPARE(ask(again, 'a', 3, 1), QByteArray("0000"));
    QCOMPARE(ask(again, 'b', 1, 1), QByteArray("0000"));
}

void tst_TavoroSimOutcome::clientsWithoutIdAreServedAndForgotten()
{
    SimBench bench; // its client asks for the identity with an empty body
    QCOMPARE(bench.write(deviceSwap, swapOff), 0);
    QCOMPARE(ask(*bench.client, 'a', 1, 1), QByteArray("0000"));
}

void tst_TavoroSimOutcome::newConnectionEndsTheOlderOneOfTheClient()
{
    SimBench bench;
    QVERIFY(introduce(*bench.client, 'a', 1));
    QCOMPARE(bench.client->control(1), 0);
    WireClient other;
    QVERIFY(other.connectTo(bench.device->port()) && introduce(other, 'b', 1));
    WireClient again;
    QVERIFY(again.connectTo(bench.device->port()) && introduce(again, 'a', 2));
    QVERIFY(bench.client->waitForEnd());
    QCOMPARE(again.control(1), 0); // the old connection had control
    QCOMPARE(int(other.read(deviceDetail).head.status), 0);
}

void tst_TavoroSimOutcome::invalidQuestionsAreRefused()
{
    SimBench bench;
    const auto status = [&](CommandType type, const std::string &body) {
        return int(
            bench.client->exchange(WireClient::request(outcomeCode, type, body)).head.status);
    };
    QCOMPARE(status(CommandType::Read, std::string()), 2);
    QCOMPARE(status(CommandType::Read, requestId('a', 1, 1) + "x"), 2);
    QCOMPARE(status(CommandType::Write, requestId('a', 1, 1)), 1);
}

namespace {

void addFault(SimBench &bench, const QString &fault)
{
    QVERIFY(bench.device->execute(QStringLiteral("fault add %1,code=DeviceSwap").arg(fault)).ok);
}

void faultRows(const QList<QPair<const char *, const char *>> &rows)
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QByteArray>("outcome");
    for (const auto &[fault, outcome] : rows)
        QTest::newRow(fault) << QString::fromLatin1(fault) << QByteArray(outcome);
}

} // namespace

void tst_TavoroSimOutcome::faultsThatAnswerAreDone_data()
{
    faultRows({{"status=8", "0308"},
               {"status=67", "0343"},
               {"twice", "0300"},
               {"wrong-checksum", "0300"},
               {"wrong-code", "0300"},
               {"flood=2", "0300"}});
}

void tst_TavoroSimOutcome::faultsThatAnswerAreDone()
{
    QFETCH(QString, fault);
    SimBench bench;
    QVERIFY(introduce(*bench.client, 'a', 1));
    addFault(bench, fault);
    bench.write(deviceSwap, swapOff);
    WireClient again;
    QVERIFY(again.connectTo(bench.device->port()) && introduce(again, 'a', 2));
    QTEST(ask(again, 'a', 1, 1), "outcome");
}

void tst_TavoroSimOutcome::faultsThatDoNotAnswerLeaveItUnderWay_data()
{
    faultRows({{"ignore", "0200"}, {"drop-request", "0200"}, {"stop-reading=1", "0200"}});
}

void tst_TavoroSimOutcome::faultsThatDoNotAnswerLeaveItUnderWay()
{
    QFETCH(QString, fault);
    SimBench bench;
    QVERIFY(introduce(*bench.client, 'a', 1));
    addFault(bench, fault + QStringLiteral(",count=1"));
    bench.client->send(WireClient::request(deviceSwap, CommandType::Write, swapOff));
    QTRY_COMPARE(bench.device->execute(QStringLiteral("fault list")).text, QString());
    WireClient again;
    QVERIFY(again.connectTo(bench.device->port()) && introduce(again, 'a', 2));
    QTEST(ask(again, 'a', 1, 1), "outcome");
}

/// The second packet is sent first; the first packet then answers the second request.
void tst_TavoroSimOutcome::heldBackPacketIsDone()
{
    SimBench bench(packetsOf(400));
    QVERIFY(introduce(*bench.client, 'a', 1));
    QVERIFY(bench.device->execute(QStringLiteral("fault add swap-packets,count=1")).ok);
    WireFrame request = WireClient::readRequest(deviceDetail);
    const WireFrame first = bench.client->exchange(request);
    QCOMPARE(int(first.head.sendCount), 1);
    request.head.sendCount = 1;
    request.head.totalCount = first.head.totalCount;
    QCOMPARE(int(bench.client->exchange(request).head.sendCount), 0);
    QCOMPARE(ask(*bench.client, 'a', 1, 1), QByteArray("0300"));
    QCOMPARE(ask(*bench.client, 'a', 1, 2), QByteArray("0300"));
}

QTEST_GUILESS_MAIN(tst_TavoroSimOutcome)
#include "tst_tavorosimoutcome.moc"
