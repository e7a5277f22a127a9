// The simulated device on its socket: packets, clients, reports, and what it refuses.

#include <wireclient.h>

#include <tavorosim/simulateddevice.h>
#include <tavorossproxy/wire/frame.h>

#include <QRegularExpression>
#include <QTest>

using Tavoro::Sim::ConsoleAnswer;
using Tavoro::Sim::SimOptions;
using Tavoro::Sim::SimulatedDevice;
using Tavoro::SSProxy::CommandType;
using Tavoro::SSProxy::Wire::FrameKind;

class tst_TavoroSim : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void identityTellsWhatTheOptionsSay();
    void aReadAnswersInOnePacketWhenItFits();
    void aLongAnswerComesInPackets();
    void anAnswerDoesNotChangeBetweenItsPackets();
    void furtherPacketsAreGoneAfterTheLast();
    void aPacketOutOfTurnIsRefused();
    void streamsKeepTheirAnswersApart();
    void aSplitWriteIsCarriedOutWithItsLastPacket();
    void aSplitWriteOutOfTurnIsDropped();
    void aPacketAboveTheLimitIsRefused();
    void anUnknownCommandIsRefused_data();
    void anUnknownCommandIsRefused();
    void aWrongBodyChecksumIsRefused();
    void aWrongHeadEndsTheConnection();
    void aPingIsAnswered();
    void clientsShareOneState();
    void reportsReachEveryClient();
    void aClientThatDidNotIntroduceItselfGetsNoReports();
    void theWriterGetsItsAnswerBeforeTheReport();
    void consoleCommandsMakeReports_data();
    void consoleCommandsMakeReports();
    void consoleRefusesInWords_data();
    void consoleRefusesInWords();
    void theControlPortTakesConsoleCommands();
    void latencyKeepsTheOrderOfAnswers();
    void aPortInUseIsToldInASentence();
};

namespace {

constexpr quint16 deviceDetail = 0x1100;
constexpr quint16 deviceSwap = 0x1107;
constexpr quint16 groupInfo = 0x110A;

/// A device on a free port and a client that has introduced itself.
struct Pair {
    explicit Pair(SimOptions options = {}) : device(std::move(options))
    {
        QString error;
        if (!device.start(error))
            qFatal("%s", qUtf8Printable(error));
        if (!client.connectTo(device.port()) || client.identity().empty())
            qFatal("the device does not tell its identity");
    }

    SimulatedDevice device;
    WireClient client;
};

SimOptions smallPackets(quint32 size)
{
    SimOptions options;
    options.packetSize = size;
    return options;
}

WireFrame furtherPacket(WireFrame request, quint32 totalCount, quint32 sendCount)
{
    request.head.totalCount = totalCount;
    request.head.sendCount = sendCount;
    return request;
}

WireFrame readRequest(quint16 code)
{
    return WireClient::request(code, CommandType::Read);
}

bool contains(const WireFrame &frame, const char *text)
{
    return frame.body.find(text) != std::string::npos;
}

} // namespace

void tst_TavoroSim::identityTellsWhatTheOptionsSay()
{
    SimOptions options;
    options.name = QStringLiteral("Wall");
    options.sn = {1, 2, 3, 4, 5, 6, 7, 8};
    options.mac = {9, 10, 11, 12, 13, 14};
    options.modelId = 0x1234;
    options.packetSize = 4711;
    SimulatedDevice device(options);
    QString error;
    QVERIFY2(device.start(error), qPrintable(error));
    WireClient client;
    QVERIFY(client.connectTo(device.port()));
    const std::string identity = client.identity();
    for (const char *part :
         {"\"name\":\"Wall\"", "\"sn\":\"0102030405060708\"", "\"mac\":\"090A0B0C0D0E\"",
          "\"modelId\":4660", "\"maxPacketSize\":4711", "\"slotCount\":4"})
        QVERIFY2(identity.find(part) != std::string::npos, part);
}

void tst_TavoroSim::aReadAnswersInOnePacketWhenItFits()
{
    Pair pair;
    const WireFrame answer = pair.client.read(deviceDetail);
    QCOMPARE(int(answer.head.kind), 2);
    QCOMPARE(int(answer.head.status), 0);
    QCOMPARE(answer.head.totalCount, 1u);
    QCOMPARE(answer.head.sendCount, 0u);
    QVERIFY(contains(answer, "{\"general\":{\"name\":\"Simulated device\",\"status\":1},"));
}

void tst_TavoroSim::aLongAnswerComesInPackets()
{
    Pair whole;
    const std::string expected = whole.client.read(deviceDetail).body;
    Pair split(smallPackets(500));
    const WireFrame request = readRequest(deviceDetail);
    WireFrame answer = split.client.exchange(request);
    const quint32 count = answer.head.totalCount;
    QCOMPARE(count, quint32((expected.size() + 499) / 500));
    std::string joined = answer.body;
    for (quint32 i = 1; i < count; ++i) {
        QCOMPARE(answer.body.size(), std::size_t(500));
        answer = split.client.exchange(furtherPacket(request, count, i));
        QCOMPARE(int(answer.head.status), 0);
        QCOMPARE(answer.head.totalCount, count);
        QCOMPARE(answer.head.sendCount, i);
        joined += answer.body;
    }
    QCOMPARE(joined, expected);
}

void tst_TavoroSim::anAnswerDoesNotChangeBetweenItsPackets()
{
    Pair pair(smallPackets(40));
    const WireFrame request = readRequest(deviceDetail);
    WireFrame answer = pair.client.exchange(request);
    std::string joined = answer.body;
    WireFrame change = WireClient::request(0x1104, CommandType::Write, R"({"genlock":{"type":1}})");
    change.head.stream = 2;
    QCOMPARE(int(pair.client.exchange(change).head.status), 0);
    for (quint32 i = 1; i < answer.head.totalCount; ++i)
        joined += pair.client.exchange(furtherPacket(request, answer.head.totalCount, i)).body;
    QVERIFY(joined.find("\"genlock\":{\"type\":0,") != std::string::npos);
}

void tst_TavoroSim::furtherPacketsAreGoneAfterTheLast()
{
    Pair pair(smallPackets(1000));
    const WireFrame request = readRequest(deviceDetail);
    const quint32 count = pair.client.exchange(request).head.totalCount;
    QCOMPARE(count, 2u);
    QCOMPARE(int(pair.client.exchange(furtherPacket(request, count, 1)).head.status), 0);
    const WireFrame again = pair.client.exchange(furtherPacket(request, count, 1));
    QCOMPARE(int(again.head.status), 6);
    QCOMPARE(again.body, std::string());
}

void tst_TavoroSim::aPacketOutOfTurnIsRefused()
{
    Pair pair(smallPackets(500));
    const WireFrame request = readRequest(deviceDetail);
    const quint32 count = pair.client.exchange(request).head.totalCount;
    QVERIFY(count > 2);
    QCOMPARE(int(pair.client.exchange(furtherPacket(request, count, 2)).head.status), 5);
    QCOMPARE(int(pair.client.exchange(furtherPacket(request, count + 1, 1)).head.status), 5);
    QCOMPARE(int(pair.client.exchange(furtherPacket(request, count, 1)).head.status), 0);
}

void tst_TavoroSim::streamsKeepTheirAnswersApart()
{
    Pair pair(smallPackets(100));
    WireFrame details = readRequest(deviceDetail);
    WireFrame mapping = readRequest(0x1108);
    mapping.head.stream = 2;
    const quint32 detailCount = pair.client.exchange(details).head.totalCount;
    const quint32 mappingCount = pair.client.exchange(mapping).head.totalCount;
    QCOMPARE(mappingCount, 2u);
    const WireFrame end = pair.client.exchange(furtherPacket(mapping, mappingCount, 1));
    QVERIFY(contains(end, "\"gridType\":0}}"));
    QCOMPARE(int(pair.client.exchange(furtherPacket(details, detailCount, 1)).head.status), 0);
}

void tst_TavoroSim::aSplitWriteIsCarriedOutWithItsLastPacket()
{
    Pair pair(smallPackets(4));
    const std::string body = R"({"swap":0})";
    for (quint32 i = 0; i < 3; ++i) {
        const WireFrame piece =
            WireClient::request(deviceSwap, CommandType::Write, body.substr(4 * i, 4));
        const WireFrame answer = pair.client.exchange(furtherPacket(piece, 3, i));
        QCOMPARE(int(answer.head.status), 0);
        QCOMPARE(answer.body, std::string());
    }
    Pair whole;
    QVERIFY(contains(whole.client.read(deviceDetail), "\"swap\":1"));

    WireFrame first = readRequest(deviceDetail);
    const quint32 count = pair.client.exchange(first).head.totalCount;
    std::string joined;
    for (quint32 i = 1; i < count; ++i)
        joined += pair.client.exchange(furtherPacket(first, count, i)).body;
    QVERIFY(joined.find("\"swap\":0") != std::string::npos);
}

void tst_TavoroSim::aSplitWriteOutOfTurnIsDropped()
{
    Pair pair;
    const WireFrame piece = WireClient::request(deviceSwap, CommandType::Write, "{\"swap\"");
    QCOMPARE(int(pair.client.exchange(furtherPacket(piece, 3, 1)).head.status), 5);
    QCOMPARE(int(pair.client.exchange(furtherPacket(piece, 3, 0)).head.status), 0);
    QCOMPARE(int(pair.client.exchange(furtherPacket(piece, 3, 2)).head.status), 5);
    QCOMPARE(int(pair.client.exchange(furtherPacket(piece, 3, 1)).head.status), 5);

    WireFrame other = furtherPacket(piece, 3, 1);
    QCOMPARE(int(pair.client.exchange(furtherPacket(piece, 3, 0)).head.status), 0);
    other.head.FC = 0x0D;
    QCOMPARE(int(pair.client.exchange(other).head.status), 5);
}

void tst_TavoroSim::aPacketAboveTheLimitIsRefused()
{
    Pair pair(smallPackets(9));
    QCOMPARE(int(pair.client.write(deviceSwap, R"({"swap":0})").head.status), 7);
    QCOMPARE(int(pair.client.write(deviceSwap, R"({"swap":)").head.status), 2);
}

void tst_TavoroSim::anUnknownCommandIsRefused_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("type");
    QTest::newRow("no such code") << 0x110B << 1;
    QTest::newRow("no such base") << 0x9900 << 2;
    QTest::newRow("code that is only reported") << 0x1103 << 1;
    QTest::newRow("write that cannot be read") << 0x1107 << 1;
    QTest::newRow("read that cannot be written") << 0x1100 << 2;
    QTest::newRow("binary read") << 0x1100 << 3;
    QTest::newRow("binary write") << 0x1107 << 4;
    QTest::newRow("no such type") << 0x1100 << 9;
}

void tst_TavoroSim::anUnknownCommandIsRefused()
{
    QFETCH(int, code);
    QFETCH(int, type);
    Pair pair;
    const WireFrame answer = pair.client.exchange(
        WireClient::request(quint16(code), static_cast<CommandType>(type), R"({"swap":0})"));
    QCOMPARE(int(answer.head.status), 1);
    QCOMPARE(answer.body, std::string());
    QVERIFY(contains(pair.client.read(deviceDetail), "\"swap\":1"));
}

void tst_TavoroSim::aWrongBodyChecksumIsRefused()
{
    Pair pair;
    const WireFrame request = WireClient::request(deviceSwap, CommandType::Write, R"({"swap":0})");
    QByteArray bytes = Tavoro::SSProxy::Wire::encodeFrame(request.head, request.body);
    bytes[bytes.size() - 2] = '1';
    pair.client.sendBytes(bytes);
    const WireFrame answer = pair.client.read(deviceDetail);
    QCOMPARE(int(answer.head.status), 2);
}

void tst_TavoroSim::aWrongHeadEndsTheConnection()
{
    Pair pair;
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("no frame: status 359")));
    pair.client.sendBytes(QByteArray(36, 'x'));
    QVERIFY(pair.client.waitForEnd());
    WireClient other;
    QVERIFY(other.connectTo(pair.device.port()));
    QVERIFY(!other.identity().empty());
}

void tst_TavoroSim::aPingIsAnswered()
{
    Pair pair;
    WireFrame ping;
    ping.head.kind = static_cast<quint8>(FrameKind::Ping);
    ping.head.lables = 77;
    const WireFrame pong = pair.client.exchange(ping);
    QCOMPARE(int(pong.head.kind), int(FrameKind::Pong));
    QCOMPARE(int(pong.head.lables), 77);
}

void tst_TavoroSim::clientsShareOneState()
{
    Pair pair;
    WireClient other;
    QVERIFY(other.connectTo(pair.device.port()));
    QCOMPARE(int(other.write(deviceSwap, R"({"swap":0})").head.status), 0);
    QVERIFY(contains(pair.client.read(deviceDetail), "\"swap\":0"));
}

void tst_TavoroSim::reportsReachEveryClient()
{
    Pair pair;
    WireClient other;
    QVERIFY(other.connectTo(pair.device.port()));
    QVERIFY(!other.identity().empty());
    QVERIFY(pair.device.execute(QStringLiteral("power 2 0")).ok);
    const std::string expected =
        R"({"powers":[{"powerId":1,"iSignal":1,"status":1},{"powerId":2,"iSignal":0,"status":0}]})";
    for (WireClient *client : {&pair.client, &other}) {
        const WireFrame report = client->waitForReport();
        QCOMPARE(int(report.head.code()), 0x1103);
        QCOMPARE(int(report.head.type), 1);
        QCOMPARE(int(report.head.lables), 0);
        QCOMPARE(report.head.totalCount, 1u);
        QCOMPARE(report.body, expected);
    }
}

void tst_TavoroSim::aClientThatDidNotIntroduceItselfGetsNoReports()
{
    Pair pair;
    WireClient stranger;
    QVERIFY(stranger.connectTo(pair.device.port()));
    QCOMPARE(int(stranger.read(groupInfo).head.status), 0);
    QVERIFY(pair.device.execute(QStringLiteral("power 2 0")).ok);
    QVERIFY(!stranger.identity().empty()); // The next frame that comes, so no report came before.
    QVERIFY(pair.device.execute(QStringLiteral("power 2 1")).ok);
    QVERIFY(contains(stranger.waitForReport(), "\"powerId\":2,\"iSignal\":1"));
}

void tst_TavoroSim::theWriterGetsItsAnswerBeforeTheReport()
{
    Pair pair;
    const std::string groups = R"({"groupInfos":[{"groupName":"East","groupId":"7"}]})";
    pair.client.send(WireClient::request(groupInfo, CommandType::Write, groups));
    const WireFrame report = pair.client.waitForReport(); // Steps over the answer in front of it.
    QCOMPARE(int(report.head.code()), int(groupInfo));
    QCOMPARE(report.body, groups);
    QCOMPARE(pair.client.read(groupInfo).body, groups);
}

void tst_TavoroSim::consoleCommandsMakeReports_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("part");
    // clang-format off
    QTest::newRow("power")   << "power 1 0"               << 0x1103 << R"({"powerId":1,"iSignal":0,"status":0})";
    QTest::newRow("genlock") << "genlock 0"               << 0x1105 << R"({"genlockSignal":{"extSignalIn":0,"status":0}})";
    QTest::newRow("card")    << "card 2 0"                << 0x1102 << R"({"subcards":[{"slotId":2,"modelId":30480,"boardId":0,"cardType":1,"online":0,)";
    QTest::newRow("group")   << "group 9 West"            << 0x110A << R"({"groupInfos":[{"groupName":"West","groupId":"9"}]})";
    QTest::newRow("cable")   << "cable 1 2"               << 0x1204
        << R"([{"slotId":1,"connectorId":2,"splitId":0,"actualTiming":{"interlaced":0,"refresh":0,)";
    QTest::newRow("timing")  << "timing 1 2 1280 720 50"  << 0x1204 << R"("refresh":50,"compatMode":0,"horizontal":{"addTime":1280,)";
    QTest::newRow("depth")   << "depth 1 2 12"            << 0x1209
        << R"([{"slotId":1,"connectorId":2,"splitId":0,"colorDepths":{"actualColorDepth":12,"presetColorDepth":255}}])";
    // clang-format on
}

void tst_TavoroSim::consoleCommandsMakeReports()
{
    QFETCH(QString, line);
    QFETCH(int, code);
    QFETCH(QString, part);
    Pair pair;
    const ConsoleAnswer answer = pair.device.execute(line);
    QVERIFY2(answer.ok, qPrintable(answer.text));
    const WireFrame report = pair.client.waitForReport();
    QCOMPARE(int(report.head.code()), code);
    QVERIFY2(contains(report, qUtf8Printable(part)), report.body.c_str());
}

void tst_TavoroSim::consoleRefusesInWords_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("answer");
    // clang-format off
    QTest::newRow("nothing")        << ""            << "ok";
    QTest::newRow("unknown word")   << "explode 1"   << "error no such word: explode";
    QTest::newRow("too few")        << "power 1"     << "error usage: power ID STATUS";
    QTest::newRow("no number")      << "power one 0" << "error a number is due";
    QTest::newRow("no such supply") << "power 9 0"   << "error there is no such thing";
    QTest::newRow("an output")      << "cable 3 1"   << "error there is no such thing";
    QTest::newRow("no relation")    << "relation 65792" << "error there is no such thing";
    QTest::newRow("no picture")     << "timing 1 1 0 0 60" << "error no source sends such a picture";
    // clang-format on
}

void tst_TavoroSim::consoleRefusesInWords()
{
    QFETCH(QString, line);
    QFETCH(QString, answer);
    Pair pair;
    QCOMPARE(pair.device.execute(line).line(), answer);
}

void tst_TavoroSim::theControlPortTakesConsoleCommands()
{
    SimOptions options;
    options.controlPort = 0;
    Pair pair(options);
    QTcpSocket control;
    control.connectToHost(QHostAddress::LocalHost, pair.device.controlPort());
    QVERIFY(control.waitForConnected(5000));
    control.write("genlock 0\nexplode\n");
    QByteArray answer;
    while (answer.count('\n') < 2 && control.waitForReadyRead(5000))
        answer += control.readAll();
    QCOMPARE(answer, QByteArray("ok\nerror no such word: explode\n"));
    QCOMPARE(int(pair.client.waitForReport().head.code()), 0x1105);
    QCOMPARE(int(pair.client.waitForReport().head.code()), 0x1313);
}

void tst_TavoroSim::latencyKeepsTheOrderOfAnswers()
{
    SimOptions options;
    options.latencyMilliseconds = 20;
    Pair pair(options);
    for (quint8 tag = 1; tag <= 8; ++tag) {
        WireFrame request = readRequest(groupInfo);
        request.head.lables = tag;
        if (tag < 8)
            pair.client.send(request);
        else
            QCOMPARE(int(pair.client.exchange(request).head.lables), 1);
    }
}

void tst_TavoroSim::aPortInUseIsToldInASentence()
{
    Pair pair;
    SimOptions options;
    options.port = pair.device.port();
    SimulatedDevice second(options);
    QString error;
    QVERIFY(!second.start(error));
    QVERIFY2(error.startsWith(QStringLiteral("cannot listen on 127.0.0.1:%1: ").arg(options.port)),
             qPrintable(error));
}

QTEST_GUILESS_MAIN(tst_TavoroSim)
#include "tst_tavorosim.moc"
