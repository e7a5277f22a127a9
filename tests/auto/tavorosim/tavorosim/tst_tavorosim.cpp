// The simulated device on its socket: clients, reports, its console, and what it refuses.

#include <support/common/contains.h>
#include <support/common/messagecatcher.h>
#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/simbench.h>

#include <tavorosim/commandline.h>
#include <tavorosim/server/discoveryresponder.h>
#include <tavorowire/frame.h>

#include <QRegularExpression>

using namespace CommandCodes;
using Tavoro::ProtoModel::DeviceBaseInfo;
using Tavoro::Sim::CommandLine;
using Tavoro::Sim::ConsoleAnswer;
using Tavoro::Sim::DiscoveryResponder;
using Tavoro::Sim::parseCommandLine;
using Tavoro::Sim::SimOptions;
using Tavoro::Sim::SimulatedDevice;
using Tavoro::SSProxy::CommandType;
using Tavoro::SSProxy::Wire::FrameKind;

class tst_TavoroSim : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void numbersOfOptionsAreDecimalWithoutThePrefix0x();
    void identityHoldsTheOptions();
    void anUnknownCommandIsRefused_data();
    void anUnknownCommandIsRefused();
    void aWrongBodyChecksumIsRefused();
    void aWrongHeadEndsTheConnection();
    void aPingIsAnswered();
    void clientsShareOneState();
    void reportsReachEveryClient();
    void clientWithoutIdentityRequestGetsNoReports();
    void clientThatDoesNotReadGetsNoMoreReportsWhichIsLoggedOnce();
    void theWriterGetsItsAnswerBeforeTheReport();
    void consoleCommandsMakeReports_data();
    void consoleCommandsMakeReports();
    void invalidConsoleLinesAreRefused_data();
    void invalidConsoleLinesAreRefused();
    void theControlPortAcceptsConsoleCommands();
    void latencyKeepsTheOrderOfAnswers();
    void portInUseIsReported();
    void addressesWithColonsAreInBrackets();
};

void tst_TavoroSim::numbersOfOptionsAreDecimalWithoutThePrefix0x()
{
    const auto latencyOf = [](const char *number) {
        const CommandLine line = parseCommandLine(
            {QStringLiteral("tavorosim"), QStringLiteral("--latency"), QLatin1String(number)});
        return line.isValid ? line.options.latencyMilliseconds : -1;
    };
    QCOMPARE(latencyOf("010"), 10);
    QCOMPARE(latencyOf("08"), 8);
    QCOMPARE(latencyOf("0x10"), 16);
    QCOMPARE(latencyOf("10h"), -1);
    QCOMPARE(latencyOf("600001"), -1);
    QCOMPARE(latencyOf("18446744073709551617"), -1);
}

void tst_TavoroSim::identityHoldsTheOptions()
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
        QVERIFY2(contains(identity, part), part);
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
    SimBench bench;
    const WireFrame answer = bench.client->exchange(
        WireClient::request(quint16(code), static_cast<CommandType>(type), R"({"swap":0})"));
    QCOMPARE(int(answer.head.status), 1);
    QCOMPARE(answer.body, std::string());
    QVERIFY(contains(bench.client->read(deviceDetail).body, "\"swap\":1"));
}

void tst_TavoroSim::aWrongBodyChecksumIsRefused()
{
    SimBench bench;
    const WireFrame request = WireClient::request(deviceSwap, CommandType::Write, R"({"swap":0})");
    QByteArray bytes = Tavoro::SSProxy::Wire::encodeFrame(request.head, request.body);
    bytes[bytes.size() - 2] = '1';
    bench.client->sendBytes(bytes);
    const WireFrame answer = bench.client->read(deviceDetail);
    QCOMPARE(int(answer.head.status), 2);
}

void tst_TavoroSim::aWrongHeadEndsTheConnection()
{
    SimBench bench;
    QTest::ignoreMessage(QtWarningMsg,
                         QRegularExpression(QStringLiteral("sent an invalid frame: status 359")));
    bench.client->sendBytes(QByteArray(36, 'x'));
    QVERIFY(bench.client->waitForEnd());
    WireClient other;
    QVERIFY(other.connectTo(bench.device->port()));
    QVERIFY(!other.identity().empty());
}

void tst_TavoroSim::aPingIsAnswered()
{
    SimBench bench;
    WireFrame ping;
    ping.head.kind = static_cast<quint8>(FrameKind::Ping);
    ping.head.lables = 77;
    const WireFrame pong = bench.client->exchange(ping);
    QCOMPARE(int(pong.head.kind), int(FrameKind::Pong));
    QCOMPARE(int(pong.head.lables), 77);
}

void tst_TavoroSim::clientsShareOneState()
{
    SimBench bench;
    WireClient other;
    QVERIFY(other.connectTo(bench.device->port()));
    QCOMPARE(int(other.write(deviceSwap, R"({"swap":0})").head.status), 0);
    QVERIFY(contains(bench.client->read(deviceDetail).body, "\"swap\":0"));
}

void tst_TavoroSim::reportsReachEveryClient()
{
    SimBench bench;
    WireClient other;
    QVERIFY(other.connectTo(bench.device->port()));
    QVERIFY(!other.identity().empty());
    QVERIFY(bench.device->execute(QStringLiteral("power 2 0")).ok);
    const std::string expected =
        R"({"powers":[{"powerId":1,"iSignal":1,"status":1},{"powerId":2,"iSignal":0,"status":0}]})";
    for (WireClient *client : {bench.client.get(), &other}) {
        const WireFrame report = client->waitForReport();
        QCOMPARE(int(report.head.code()), 0x1103);
        QCOMPARE(int(report.head.type), 1);
        QCOMPARE(int(report.head.lables), 0);
        QCOMPARE(report.head.totalCount, 1u);
        QCOMPARE(report.body, expected);
    }
}

void tst_TavoroSim::clientWithoutIdentityRequestGetsNoReports()
{
    SimBench bench;
    WireClient stranger;
    QVERIFY(stranger.connectTo(bench.device->port()));
    QCOMPARE(int(stranger.read(groupInfo).head.status), 0);
    QVERIFY(bench.device->execute(QStringLiteral("power 2 0")).ok);
    QVERIFY(
        !stranger.identity().empty()); // The next frame is the identity, so there was no report.
    QVERIFY(bench.device->execute(QStringLiteral("power 2 1")).ok);
    QVERIFY(contains(stranger.waitForReport().body, "\"powerId\":2,\"iSignal\":1"));
}

namespace {

constexpr int longReports = 30;

/// Causes 120 MiB of reports: more than the buffers of the device and of the network.
void report(SimulatedDevice &device)
{
    const QString name(4 << 20, QLatin1Char('n'));
    for (int i = 0; i < longReports; ++i)
        QVERIFY(device.execute(QStringLiteral("group 1 ") + name).ok);
}

} // namespace

void tst_TavoroSim::clientThatDoesNotReadGetsNoMoreReportsWhichIsLoggedOnce()
{
    SimBench bench;
    const MessageCatcher catcher;
    const auto lines = [&catcher] {
        return catcher.texts("tavoro.sim", QtWarningMsg)
            .replaceInStrings(QRegularExpression(QStringLiteral("^127\\.0\\.0\\.1:\\d+")),
                              QStringLiteral("PEER"));
    };
    const QString line = QStringLiteral("PEER does not read: reports are dropped");
    report(*bench.device);
    QCOMPARE(lines(), QStringList(line));
    QCOMPARE(int(bench.client->read(deviceDetail).head.status), 0); // after all reports
    const int kept = bench.client->keptReports();
    QVERIFY(kept >= 4 && kept < longReports);
    report(*bench.device);
    QCOMPARE(lines(), (QStringList{line, line}));
}

void tst_TavoroSim::theWriterGetsItsAnswerBeforeTheReport()
{
    SimBench bench;
    const std::string groups = R"({"groupInfos":[{"groupName":"East","groupId":"7"}]})";
    bench.client->send(WireClient::request(groupInfo, CommandType::Write, groups));
    const WireFrame report = bench.client->waitForReport(); // Skips the answer before it.
    QCOMPARE(int(report.head.code()), int(groupInfo));
    QCOMPARE(report.body, groups);
    QCOMPARE(bench.client->read(groupInfo).body, groups);
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
    SimBench bench;
    const ConsoleAnswer answer = bench.device->execute(line);
    QVERIFY2(answer.ok, qPrintable(answer.text));
    const WireFrame report = bench.client->waitForReport();
    QCOMPARE(int(report.head.code()), code);
    QVERIFY2(contains(report.body, qUtf8Printable(part)), report.body.c_str());
}

void tst_TavoroSim::invalidConsoleLinesAreRefused_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("answer");
    // clang-format off
    QTest::newRow("nothing")        << ""            << "ok";
    QTest::newRow("unknown word")   << "explode 1"   << "error unknown command: explode";
    QTest::newRow("too few")        << "power 1"     << "error usage: power ID STATUS";
    QTest::newRow("no number")      << "power one 0" << "error expected a number";
    QTest::newRow("no such supply") << "power 9 0"   << "error no such object";
    QTest::newRow("an output")      << "cable 3 1"   << "error no such object";
    QTest::newRow("no relation")    << "relation 65792" << "error no such object";
    QTest::newRow("no picture")     << "timing 1 1 0 0 60" << "error timing not supported";
    QTest::newRow("too wide")       << "timing 1 1 2147483647 1080 60" << "error timing not supported";
    QTest::newRow("too high")       << "timing 1 1 1920 2147483647 60" << "error timing not supported";
    QTest::newRow("one too wide")   << "timing 1 1 65536 1080 60" << "error timing not supported";
    QTest::newRow("status")         << "power 1 7"   << "error \"7\" is not a valid STATUS (0 or 1)";
    QTest::newRow("no status")      << "power 1 on"  << "error expected a number";
    QTest::newRow("online")         << "card 1 99"   << "error \"99\" is not a valid ONLINE (0 or 1)";
    QTest::newRow("signal")         << "genlock 42"  << "error \"42\" is not a valid SIGNAL (0 or 1)";
    QTest::newRow("on")             << "switch 7"    << "error \"7\" is not a valid ON (0 or 1)";
    QTest::newRow("fewer bits")     << "depth 1 1 -5"    << "error \"-5\" is not a valid BITS (0 to 65535)";
    QTest::newRow("more bits")      << "depth 1 1 65536" << "error \"65536\" is not a valid BITS (0 to 65535)";
    QTest::newRow("less percent")   << "spoil -1"    << "error \"-1\" is not a valid PERCENT (0 to 100)";
    QTest::newRow("more percent")   << "spoil 101"   << "error \"101\" is not a valid PERCENT (0 to 100)";
    QTest::newRow("time")           << "pass -1"     << "error \"-1\" is not a valid MILLISECONDS (0 or more)";
    // clang-format on
}

void tst_TavoroSim::invalidConsoleLinesAreRefused()
{
    QFETCH(QString, line);
    QFETCH(QString, answer);
    SimBench bench;
    QCOMPARE(bench.device->execute(line).line(), answer);
}

void tst_TavoroSim::theControlPortAcceptsConsoleCommands()
{
    SimOptions options;
    options.controlPort = 0;
    SimBench bench(options);
    QTcpSocket control;
    control.connectToHost(QHostAddress::LocalHost, bench.device->controlPort());
    QVERIFY(control.waitForConnected(5000));
    control.write("genlock 0\nexplode\n");
    QByteArray answer;
    while (answer.count('\n') < 2 && control.waitForReadyRead(5000))
        answer += control.readAll();
    QCOMPARE(answer, QByteArray("ok\nerror unknown command: explode\n"));
    QCOMPARE(int(bench.client->waitForReport().head.code()), 0x1105);
    QCOMPARE(int(bench.client->waitForReport().head.code()), 0x1313);
}

void tst_TavoroSim::latencyKeepsTheOrderOfAnswers()
{
    SimOptions options;
    options.latencyMilliseconds = 20;
    SimBench bench(options);
    for (quint8 tag = 1; tag <= 8; ++tag) {
        WireFrame request = WireClient::readRequest(groupInfo);
        request.head.lables = tag;
        if (tag < 8)
            bench.client->send(request);
        else
            QCOMPARE(int(bench.client->exchange(request).head.lables), 1);
    }
}

void tst_TavoroSim::portInUseIsReported()
{
    SimBench bench;
    SimOptions options;
    options.port = bench.device->port();
    SimulatedDevice second(options);
    QString error;
    QVERIFY(!second.start(error));
    QVERIFY2(error.startsWith(QStringLiteral("cannot listen on 127.0.0.1:%1: ").arg(options.port)),
             qPrintable(error));
}

void tst_TavoroSim::addressesWithColonsAreInBrackets()
{
    SimOptions options;
    options.address = QHostAddress(QStringLiteral("2001:db8::1")); // no machine has this address
    options.port = 6630;
    SimulatedDevice device(options);
    QString error;
    QVERIFY(!device.start(error));
    QVERIFY2(error.startsWith(QStringLiteral("cannot listen on [2001:db8::1]:6630: ")),
             qPrintable(error));
    DiscoveryResponder responder([] { return DeviceBaseInfo(); });
    QVERIFY(!responder.listen(options.address, 6631, error));
    QVERIFY2(error.startsWith(
                 QStringLiteral("cannot listen for discovery requests on [2001:db8::1]:6631: ")),
             qPrintable(error));
}

QTEST_GUILESS_MAIN(tst_TavoroSim)
#include "tst_tavorosim.moc"
