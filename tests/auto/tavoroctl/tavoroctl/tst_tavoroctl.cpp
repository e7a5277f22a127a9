// The tool as a process with a simulated device: calls, batches, output and exit status.

#include <support/tavoroctl/toolcalls.h>

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

using Tavoro::Sim::SimOptions;

class tst_TavoroCtl : public QObject, private ToolCalls {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void writeReachesTheDevice();
    void readPrintsItsAnswerAsJson();
    void readAcceptsNegativeFilters();
    void readsAndWritesAreSplitIntoPackets();
    void operationsMayTakeOnlyNumbers();
    void refusalIsReportedOnceAndEndsWithFour();
    void errorNamesAnUnreachableHost();
    void errorNamesASilentHost();
    void recordWithMissingKeysIsRefused();
    void defaultsSendsMissingKeysAtTheirDefaults();
    void wrongUsageEndsWithTwoAndSendsNothing_data();
    void wrongUsageEndsWithTwoAndSendsNothing();
    void requestTimeoutLimitsEachRequest();
    void verboseShowsTheWholeLog();
    void withoutVerboseThereIsNoLog();

    void batchMakesOneCallPerLine();
    void batchLinesMayNameTheHost();
    void batchContinuesAfterAFailureAndEndsWithTheHighestStatus();

    void helpAndVersion();
};

namespace {

const QByteArray partialWindow =
    R"([{"layerIdenti":{"screenId":1,"screenType":1,"layerId":1,"layerType":1,"sceneType":2},)"
    R"("window":{"x":100}}])";

} // namespace

void tst_TavoroCtl::init()
{
    m_bench = std::make_unique<ToolBench>();
}

void tst_TavoroCtl::cleanup()
{
    m_bench.reset();
}

void tst_TavoroCtl::writeReachesTheDevice()
{
    const Run write = call(
        {"Device.writeDeviceGroupInfo", R"({"groupInfos":[{"groupName":"East","groupId":"7"}]})"});
    QCOMPARE(write.errors, QByteArray("Set device group information successfully.\n"));
    QCOMPARE(write.output, QByteArray());
    QCOMPARE(write.exitCode, 0);
    const Run read = call({"Device.readDeviceGroupInfo"});
    QCOMPARE(read.output,
             QByteArray(R"({"groupInfos":[{"groupName":"East","groupId":"7"}]})"
                        "\n"));
    QCOMPARE(read.errors, QByteArray("Get device group information successfully.\n"));
    QCOMPARE(read.exitCode, 0);
}

void tst_TavoroCtl::readPrintsItsAnswerAsJson()
{
    QCOMPARE(call({"Device.readOutputMapping"}).output,
             QByteArray(R"({"general":{"type":0},"testPattern":{"enable":0,"type":0,"bright":0,)"
                        R"("grid":0,"speed":0,"gridLineWidth":0,"gridType":0}})"
                        "\n"));
    const QByteArray decoded = call({"Device.readDetails"}).output;
    QVERIFY(QJsonDocument::fromJson(decoded).isObject());
    QCOMPARE(call({"Device.sendReadDeviceDetailsCmd"}).output, decoded);
}

void tst_TavoroCtl::readAcceptsNegativeFilters()
{
    const Run read = call({"Layer.readDetails", "77", "-1", "-1", "-1"});
    QCOMPARE(read.output, QByteArray("[]\n"));
    QCOMPARE(read.exitCode, 0);
}

void tst_TavoroCtl::readsAndWritesAreSplitIntoPackets()
{
    SimOptions options;
    options.packetSize = 16;
    m_bench = std::make_unique<ToolBench>(options);
    const QByteArray groups = R"({"groupInfos":[{"groupName":"East","groupId":"7"}]})";
    QCOMPARE(call({"Device.writeDeviceGroupInfo", groups}).exitCode, 0);
    QCOMPARE(call({"Device.readDeviceGroupInfo"}).output, groups + '\n');
}

void tst_TavoroCtl::operationsMayTakeOnlyNumbers()
{
    QCOMPARE(call({"Device.writeLoadToPGM", "1"}).exitCode, 0);
    QVERIFY(call({"Device.readDetails"}).output.contains(R"("presetApplyType":1)"));
    QCOMPARE(call({"Layer.writeRemovedAll", "1", "1"}).exitCode, 0);
    QCOMPARE(call({"Layer.readDetails", "1", "1", "-1", "-1"}).output, QByteArray("[]\n"));
}

void tst_TavoroCtl::refusalIsReportedOnceAndEndsWithFour()
{
    const Run write = call({"Device.writeSwap", R"({"swap":2})"});
    QCOMPARE(write.errors,
             QByteArray("Set device swap status information failed: hardware error:4 (a value is "
                        "out of range) .\n"));
    QCOMPARE(write.output, QByteArray());
    QCOMPARE(write.exitCode, 4);

    // This operation fails without a text, so the tool gives one.
    const Run silent = call({"Interface.writeActualTiming", "[]"});
    QCOMPARE(silent.errors, QByteArray("Interface.writeActualTiming failed.\n"));
    QCOMPARE(silent.exitCode, 1);
}

void tst_TavoroCtl::errorNamesAnUnreachableHost()
{
    QTcpSocket reserved; // Reserves a port without listening.
    QVERIFY2(reserved.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress),
             qPrintable(reserved.errorString()));
    const QByteArray gone = "127.0.0.1:" + QByteArray::number(reserved.localPort());
    const Run write = run({"--timeout", "2000", "call", gone, "Device.writeSwap", R"({"swap":0})"});
    QVERIFY2(write.errors.contains(gone), write.errors.constData());
    QCOMPARE(write.errors.count('\n'), 1);
    QCOMPARE(write.output, QByteArray());
    QCOMPARE(write.exitCode, 3);
}

void tst_TavoroCtl::errorNamesASilentHost()
{
    QTcpServer silent; // Accepts the connection and sends nothing.
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    const QByteArray place = "127.0.0.1:" + QByteArray::number(silent.serverPort());
    const Run write = run({"--timeout", "300", "call", place, "Device.writeSwap", R"({"swap":0})"});
    QVERIFY2(write.errors.contains(place), write.errors.constData());
    QCOMPARE(write.exitCode, 3);
}

void tst_TavoroCtl::recordWithMissingKeysIsRefused()
{
    const QByteArray layers = call({"Layer.readDetails", "1", "1", "2", "-1"}).output;
    const Run write = call({"Layer.writeWindow", partialWindow});
    QCOMPARE(write.errors,
             QByteArray("tavoroctl: Layer.writeWindow, argument 1: missing keys: "
                        "[0].window.height, [0].window.width, [0].window.y; give them, or send "
                        "their defaults with --defaults\n"));
    QCOMPARE(write.exitCode, 2);
    QCOMPARE(call({"Layer.readDetails", "1", "1", "2", "-1"}).output, layers);
}

void tst_TavoroCtl::defaultsSendsMissingKeysAtTheirDefaults()
{
    const Run write =
        run({"--verbose", "call", "--defaults", host(), "Layer.writeWindow", partialWindow});
    QVERIFY2(
        write.errors.contains(R"(\"window\":{\"x\":100,\"y\":0,\"width\":1920,\"height\":1080})"),
        write.errors.constData());
    const Run batch = run({"batch", "--defaults", host()},
                          "Device.writeDeviceGeneral {\"general\":{\"name\":\"East\"}}\n");
    QCOMPARE(batch.errors, QByteArray("Set device general information successfully.\n"));
    QCOMPARE(batch.exitCode, 0);
}

void tst_TavoroCtl::wrongUsageEndsWithTwoAndSendsNothing_data()
{
    QTest::addColumn<QByteArrayList>("arguments");
    QTest::addColumn<QString>("words");
    const QByteArray swap = "Device.writeSwap";
    // The host does not exist: a command that tried to send would end with 1.
    const QByteArray nowhere = "nowhere.invalid";
    // clang-format off
    QTest::newRow("no command")        << QByteArrayList{}                               << "expected a command; --help lists all commands";
    QTest::newRow("unknown command")   << QByteArrayList{"dance"}                        << "unknown command \"dance\"; --help lists all commands";
    QTest::newRow("unknown option")    << QByteArrayList{"--fly"}                        << "Unknown option 'fly'.";
    QTest::newRow("bad timeout")       << QByteArrayList{"--timeout", "soon", "list"}    << "\"soon\" is not a number of milliseconds above 0";
    QTest::newRow("bad request timeout") << QByteArrayList{"list", "--request-timeout", "0"} << "\"0\" is not a number of milliseconds above 0";
    QTest::newRow("no host")           << QByteArrayList{"call"}                         << "call takes HOST[:PORT] OPERATION [ARGUMENT ...]";
    QTest::newRow("bad host")          << QByteArrayList{"call", "a:b:c", swap, "{}"}    << "\"a:b:c\" is not HOST[:PORT]";
    QTest::newRow("no operation")      << QByteArrayList{"call", nowhere}                << "call takes HOST[:PORT] OPERATION [ARGUMENT ...]";
    QTest::newRow("unknown operation") << QByteArrayList{"call", nowhere, "Device.swap"}
        << "unknown operation \"Device.swap\"; did you mean \"Device.writeSwap\"; \"tavoroctl list\" lists all operations";
    QTest::newRow("misspelt command")  << QByteArrayList{"discver"}
        << "unknown command \"discver\"; did you mean \"discover\"; --help lists all commands";
    QTest::newRow("misspelt pair")     << QByteArrayList{"preset", "aply", "a", "1"}
        << "unknown command \"preset\"; did you mean \"preset apply\"; --help lists all commands";
    QTest::newRow("misspelt option")   << QByteArrayList{"list", "--jsno"}               << "Unknown option 'jsno'. Did you mean --json?";
    QTest::newRow("misspelt record")   << QByteArrayList{"call", nowhere, "Scren.writeTake"}
        << "unknown operation \"Scren.writeTake\"; did you mean \"Screen.writeTake\"; \"tavoroctl list\" lists all operations";
    QTest::newRow("out of range")      << QByteArrayList{"call", nowhere, swap, R"({"swap":300})"}
        << "Device.writeSwap, argument 1: line 1, column 9: 300 would be sent as 44; the range is 0 to 255";
    QTest::newRow("help of nothing")   << QByteArrayList{"help", "pul"}
        << "unknown command \"pul\"; did you mean \"pull\"; --help lists all commands";
    QTest::newRow("no record")         << QByteArrayList{"call", nowhere, swap}          << "Device.writeSwap, argument 1: a record is missing";
    QTest::newRow("malformed record")  << QByteArrayList{"call", nowhere, swap, "{\"swap\":1"}
        << "Device.writeSwap, argument 1: line 1, column 10: invalid termination by number";
    QTest::newRow("list for object")   << QByteArrayList{"call", nowhere, swap, "[{\"swap\":1}]"}
        << "Device.writeSwap, argument 1: line 1, column 1: expected an object {...}, found a list";
    QTest::newRow("unknown key")       << QByteArrayList{"call", nowhere, swap, "{\"swop\":1}"}
        << "Device.writeSwap, argument 1: line 1, column 2: unknown key \"swop\"; did you mean \"swap\"; the keys here are: swap";
    QTest::newRow("too many words")    << QByteArrayList{"call", nowhere, swap, R"({"swap":1})", "{}"} << "Device.writeSwap, argument 2: unexpected \"{}\"";
    QTest::newRow("bad filter")        << QByteArrayList{"call", nowhere, "Screen.readDetails", "1", "all", "-1"}
        << "Screen.readDetails, argument 2: \"all\" is not a number";
    QTest::newRow("list of nothing")   << QByteArrayList{"list", "Device.swap"}
        << "unknown operation \"Device.swap\"; did you mean \"Device.writeSwap\"; \"tavoroctl list\" lists all operations";
    QTest::newRow("list of two")       << QByteArrayList{"list", "a", "b"}               << "list takes [OPERATION]";
    QTest::newRow("show nothing")      << QByteArrayList{"show"}                         << "show takes HOST[:PORT]";
    // clang-format on
}

void tst_TavoroCtl::wrongUsageEndsWithTwoAndSendsNothing()
{
    QFETCH(QByteArrayList, arguments);
    QFETCH(QString, words);
    const Run result = run(arguments);
    QCOMPARE(QString::fromUtf8(result.errors), QStringLiteral("tavoroctl: %1\n").arg(words));
    QCOMPARE(result.output, QByteArray());
    QCOMPARE(result.exitCode, 2);
}

void tst_TavoroCtl::requestTimeoutLimitsEachRequest()
{
    // By itself this read may take 100 s.
    m_bench->console(QStringLiteral("fault add silent,code=InterfaceDetail"));
    QElapsedTimer asked;
    asked.start();
    const Run read =
        run({"call", "--request-timeout", "300", host(), "Interface.readDetails", "0", "-1"});
    QVERIFY2(read.errors.startsWith("Get interface detail information failed: "),
             read.errors.constData());
    QCOMPARE(read.exitCode, 5);
    QVERIFY(asked.elapsed() < 20000);
}

void tst_TavoroCtl::verboseShowsTheWholeLog()
{
    const Run read = run({"--verbose", "call", host(), "Device.readDetails"});
    QVERIFY2(read.errors.contains("[tavoro.control] info: TavoroCmd \"Simulated device\""),
             read.errors.constData());
    const QByteArray quoted = read.output.trimmed().replace("\"", "\\\"");
    QVERIFY2(read.errors.contains('"' + quoted + "\"\n"), read.errors.constData());
    QCOMPARE(read.exitCode, 0);
}

void tst_TavoroCtl::withoutVerboseThereIsNoLog()
{
    QVERIFY(!call({"Device.readDetails"}).errors.contains("TavoroCmd"));
}

void tst_TavoroCtl::batchMakesOneCallPerLine()
{
    const Run batch = run({"batch", host()},
                          "# A comment and an empty line.\n\n"
                          "Device.writeDeviceGroupInfo {\"groupInfos\":[{\"groupName\":\"a b\","
                          "\"groupId\":\"7\"}]}\n"
                          "Device.readDeviceGroupInfo\n"
                          "Layer.readDetails 77 -1 -1 -1");
    QCOMPARE(batch.output,
             QByteArray("{\"groupInfos\":[{\"groupName\":\"a b\",\"groupId\":\"7\"}]}\n[]\n"));
    QCOMPARE(batch.errors,
             QByteArray("Set device group information successfully.\n"
                        "Get device group information successfully.\n"
                        "Get layer detail information successfully.\n"));
    QCOMPARE(batch.exitCode, 0);
}

void tst_TavoroCtl::batchLinesMayNameTheHost()
{
    const Run batch =
        run({"batch"},
            host() + " Device.writeSwap '{\"swap\":0}'\n" + host() + " Device.readDetails\n");
    QVERIFY2(batch.output.contains("\"swap\":0"), batch.output.constData());
    QCOMPARE(batch.exitCode, 0);
}

void tst_TavoroCtl::batchContinuesAfterAFailureAndEndsWithTheHighestStatus()
{
    const Run failed =
        run({"batch", host()}, "Device.writeSwap {\"swap\":2}\nDevice.writeSwap {\"swap\":0}\n");
    QCOMPARE(failed.errors,
             QByteArray("line 1 of the batch: Set device swap status information failed: hardware "
                        "error:4 (a value is out of range) .\n"
                        "Set device swap status information successfully.\n"));
    QCOMPARE(failed.exitCode, 4);
    const Run wrong = run({"batch", host()}, "Device.swap\nDevice.writeSwap {\"swap\":2}\n");
    QCOMPARE(wrong.errors,
             QByteArray("tavoroctl: line 1 of the batch: unknown operation \"Device.swap\"; "
                        "did you mean \"Device.writeSwap\"; \"tavoroctl list\" lists all "
                        "operations\n"
                        "line 2 of the batch: Set device swap status information failed: hardware "
                        "error:4 (a value is out of range) .\n"));
    QCOMPARE(wrong.exitCode, 4);
}

void tst_TavoroCtl::helpAndVersion()
{
    const Run help = run({"--help"});
    QVERIFY(help.output.contains("\nExit status:\n  0    Success."));
    QCOMPARE(help.exitCode, 0);
    QVERIFY(run({"--version"}).output.startsWith("tavoroctl 0."));
    QCOMPARE(run({"call", "--help"}).exitCode, 0);
}

QTEST_GUILESS_MAIN(tst_TavoroCtl)
#include "tst_tavoroctl.moc"
