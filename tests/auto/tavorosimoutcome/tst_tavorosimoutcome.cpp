// The simulated device remembers what it answered, for each connection of each client.

#include <simbench.h>

#include <tavorossproxy/wire/frame.h>

#include <QTest>

using namespace Tavoro;
using SSProxy::CommandType;

namespace {

constexpr quint16 outcomeCode = 0x0102;
constexpr char swapOff[] = R"({"swap":0})";

/// 8 bytes of the client, the number of the connection and that of the request.
std::string requestId(char client, char connection, int ordinal)
{
    std::string id(8, client);
    id += {connection, 0, 0, 0};
    id += {static_cast<char>(ordinal & 0xFF), static_cast<char>(ordinal >> 8), 0, 0};
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
QByteArray ask(WireClient &client, char name, char connection, int ordinal)
{
    const WireFrame answer = client.exchange(
        WireClient::request(outcomeCode, CommandType::Read, requestId(name, connection, ordinal)));
    return QByteArray::fromStdString(answer.body).toHex();
}

} // namespace

class tst_TavoroSimOutcome : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void requestsAreCountedAsTheyCome();
    void whatHasNotComeHasNotArrived();
    void onlyTheLastRequestsAreRemembered();
    void connectionsAndClientsAreToldApart();
    void clientsThatTellNoIdAreServedAndForgotten();
    void newConnectionEndsTheOlderOneOfTheClient();
    void questionsThatAreNoneAreRefused();
};

void tst_TavoroSimOutcome::requestsAreCountedAsTheyCome()
{
    SimBench bench;
    WireClient &client = *bench.client;
    QVERIFY(introduce(client, 'a', 1));
    QCOMPARE(bench.write(0x1107, swapOff), 0);
    QCOMPARE(bench.write(0x1107, R"({"swap":7})"), 4);
    QCOMPARE(ask(client, 'a', 1, 1), QByteArray("0300"));
    QCOMPARE(ask(client, 'a', 1, 2), QByteArray("0304"));

    const WireFrame broken = WireClient::request(0x1107, CommandType::Write, swapOff);
    QByteArray bytes = SSProxy::Wire::encodeFrame(broken.head, broken.body);
    bytes[bytes.size() - 1] = 'X';
    client.sendBytes(bytes); // the fifth, with the questions
    QCOMPARE(ask(client, 'a', 1, 5), QByteArray()); // the answer to the broken one comes first
    QCOMPARE(ask(client, 'a', 1, 5), QByteArray("0302"));
}

void tst_TavoroSimOutcome::whatHasNotComeHasNotArrived()
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
        QCOMPARE(bench.write(0x1107, swapOff), 0);
    QCOMPARE(ask(*bench.client, 'a', 1, 2), QByteArray("0300"));
    QCOMPARE(ask(*bench.client, 'a', 1, 2), QByteArray("0000"));
    QCOMPARE(ask(*bench.client, 'a', 1, 256), QByteArray("0300"));
}

void tst_TavoroSimOutcome::connectionsAndClientsAreToldApart()
{
    SimBench bench;
    QVERIFY(introduce(*bench.client, 'a', 1));
    QCOMPARE(bench.write(0x1107, swapOff), 0);
    WireClient again;
    QVERIFY(again.connectTo(bench.device->port()) && introduce(again, 'a', 2));
    QCOMPARE(ask(again, 'a', 1, 1), QByteArray("0300"));
    QCOMPARE(ask(again, 'a', 2, 9), QByteArray("0100"));
    QCOMPARE(ask(again, 'a', 3, 1), QByteArray("0000"));
    QCOMPARE(ask(again, 'b', 1, 1), QByteArray("0000"));
}

void tst_TavoroSimOutcome::clientsThatTellNoIdAreServedAndForgotten()
{
    SimBench bench; // its client asks for the identity with an empty body
    QCOMPARE(bench.write(0x1107, swapOff), 0);
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
    QCOMPARE(again.control(1), 0); // which the old connection held
    QCOMPARE(int(other.read(0x1100).head.status), 0);
}

void tst_TavoroSimOutcome::questionsThatAreNoneAreRefused()
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

QTEST_GUILESS_MAIN(tst_TavoroSimOutcome)
#include "tst_tavorosimoutcome.moc"
