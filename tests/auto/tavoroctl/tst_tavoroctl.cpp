// The tool as a process against a simulated device: what it prints where, and how it ends.

#include <toolbench.h>

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

using Tavoro::Sim::SimOptions;
using Run = ToolRun;

class tst_TavoroCtl : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aWriteReachesTheDevice();
    void aReadPrintsItsAnswerAsJson();
    void aReadTakesFiltersBelowZero();
    void readsAndWritesGoInPackets();
    void operationsThatTakeNumbersAlone();
    void aRefusalIsToldOnceAndEndsWithOne();
    void anUnreachableHostIsNamed();
    void aSilentHostIsNamed();
    void wrongUsageEndsWithTwoAndSendsNothing_data();
    void wrongUsageEndsWithTwoAndSendsNothing();
    void verboseShowsTheLogWhole();
    void withoutVerboseThereIsNoLog();

    void batchMakesOneCallPerLine();
    void batchLinesMayNameTheHost();
    void batchGoesOnAfterAFailureAndTellsTheWorst();

    void listTellsEveryOperation();
    void listShowsTheRecordOfAnOperation();
    void showPrintsTables();
    void showPrintsJson();
    void showMayHaveItsOptionBehindTheHost();
    void discoverListsWhoAnswers();
    void discoverEndsWithOneWhenNobodyAnswers();
    void replayShowsWhatACaptureHolds_data();
    void replayShowsWhatACaptureHolds();
    void replayOfNoFileFails();
    void environmentVariableCapturesTheWire();
    void captureThatCannotBeWrittenIsALineOfTheLog_data();
    void captureThatCannotBeWrittenIsALineOfTheLog();
    void helpAndVersion();

private:
    static Run run(const QByteArrayList &arguments, const QByteArray &input = {});
    Run call(const QByteArrayList &words) const { return m_bench->run("call", words); }
    QByteArray host() const { return m_bench->host(); }

    std::unique_ptr<ToolBench> m_bench;
};

void tst_TavoroCtl::init()
{
    m_bench = std::make_unique<ToolBench>();
}

void tst_TavoroCtl::cleanup()
{
    m_bench.reset();
}

Run tst_TavoroCtl::run(const QByteArrayList &arguments, const QByteArray &input)
{
    return ToolBench::run(arguments, input);
}

void tst_TavoroCtl::aWriteReachesTheDevice()
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

void tst_TavoroCtl::aReadPrintsItsAnswerAsJson()
{
    QCOMPARE(call({"Device.readOutputMapping"}).output,
             QByteArray(R"({"general":{"type":0},"testPattern":{"enable":0,"type":0,"bright":0,)"
                        R"("grid":0,"speed":0,"gridLineWidth":0,"gridType":0}})"
                        "\n"));
    const QByteArray decoded = call({"Device.readDetails"}).output;
    QVERIFY(QJsonDocument::fromJson(decoded).isObject());
    QCOMPARE(call({"Device.sendReadDeviceDetailsCmd"}).output, decoded);
}

void tst_TavoroCtl::aReadTakesFiltersBelowZero()
{
    const Run read = call({"Layer.readDetails", "77", "-1", "-1", "-1"});
    QCOMPARE(read.output, QByteArray("[]\n"));
    QCOMPARE(read.exitCode, 0);
}

void tst_TavoroCtl::readsAndWritesGoInPackets()
{
    SimOptions options;
    options.packetSize = 16;
    m_bench = std::make_unique<ToolBench>(options);
    const QByteArray groups = R"({"groupInfos":[{"groupName":"East","groupId":"7"}]})";
    QCOMPARE(call({"Device.writeDeviceGroupInfo", groups}).exitCode, 0);
    QCOMPARE(call({"Device.readDeviceGroupInfo"}).output, groups + '\n');
}

void tst_TavoroCtl::operationsThatTakeNumbersAlone()
{
    QCOMPARE(call({"Device.writeLoadToPGM", "1"}).exitCode, 0);
    QVERIFY(call({"Device.readDetails"}).output.contains(R"("presetApplyType":1)"));
    QCOMPARE(call({"Layer.writeRemovedAll", "1", "1"}).exitCode, 0);
    QCOMPARE(call({"Layer.readDetails", "1", "1", "-1", "-1"}).output, QByteArray("[]\n"));
}

void tst_TavoroCtl::aRefusalIsToldOnceAndEndsWithOne()
{
    const Run write = call({"Device.writeSwap", R"({"swap":2})"});
    QCOMPARE(write.errors,
             QByteArray("Set device swap status information failed: hardware error:4 .\n"));
    QCOMPARE(write.output, QByteArray());
    QCOMPARE(write.exitCode, 1);

    // Nothing is sent and nothing is said: the tool does.
    const Run silent = call({"Interface.writeActualTiming", "[]"});
    QCOMPARE(silent.errors, QByteArray("Interface.writeActualTiming failed.\n"));
    QCOMPARE(silent.exitCode, 1);
}

void tst_TavoroCtl::anUnreachableHostIsNamed()
{
    QTcpSocket reserved; // A port that nobody listens on, and nobody else gets.
    QVERIFY2(reserved.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress),
             qPrintable(reserved.errorString()));
    const QByteArray gone = "127.0.0.1:" + QByteArray::number(reserved.localPort());
    const Run write = run({"--timeout", "2000", "call", gone, "Device.writeSwap", "{}"});
    QVERIFY2(write.errors.contains(gone), write.errors.constData());
    QCOMPARE(write.errors.count('\n'), 1);
    QCOMPARE(write.output, QByteArray());
    QCOMPARE(write.exitCode, 1);
}

void tst_TavoroCtl::aSilentHostIsNamed()
{
    QTcpServer silent; // Takes the connection and says nothing.
    QVERIFY(silent.listen(QHostAddress::LocalHost));
    const QByteArray place = "127.0.0.1:" + QByteArray::number(silent.serverPort());
    const Run write = run({"--timeout", "300", "call", place, "Device.writeSwap", "{}"});
    QVERIFY2(write.errors.contains(place), write.errors.constData());
    QCOMPARE(write.exitCode, 1);
}

void tst_TavoroCtl::wrongUsageEndsWithTwoAndSendsNothing_data()
{
    QTest::addColumn<QByteArrayList>("arguments");
    QTest::addColumn<QString>("words");
    const QByteArray swap = "Device.writeSwap";
    // The host does not exist: whoever tried to send would end with 1.
    const QByteArray nowhere = "nowhere.invalid";
    // clang-format off
    QTest::newRow("no command")        << QByteArrayList{}                               << "a command is missing; --help tells what there is";
    QTest::newRow("unknown command")   << QByteArrayList{"dance"}                        << "there is no command \"dance\"; --help tells what there is";
    QTest::newRow("unknown option")    << QByteArrayList{"--fly"}                        << "Unknown option 'fly'.";
    QTest::newRow("bad timeout")       << QByteArrayList{"--timeout", "soon", "list"}    << "\"soon\" is not what --timeout takes.";
    QTest::newRow("no host")           << QByteArrayList{"call"}                         << "call takes HOST[:PORT] OPERATION [ARGUMENT ...]";
    QTest::newRow("bad host")          << QByteArrayList{"call", "a:b:c", swap, "{}"}    << "\"a:b:c\" is not HOST[:PORT]";
    QTest::newRow("no operation")      << QByteArrayList{"call", nowhere}                << "call takes HOST[:PORT] OPERATION [ARGUMENT ...]";
    QTest::newRow("unknown operation") << QByteArrayList{"call", nowhere, "Device.swap"}
        << "there is no operation \"Device.swap\"; \"tavoroctl list\" tells what there is";
    QTest::newRow("no record")         << QByteArrayList{"call", nowhere, swap}          << "Device.writeSwap, argument 1: a record is missing";
    QTest::newRow("malformed record")  << QByteArrayList{"call", nowhere, swap, "{\"swap\":1"}
        << "Device.writeSwap, argument 1: line 1, column 10: invalid termination by number";
    QTest::newRow("list for object")   << QByteArrayList{"call", nowhere, swap, "[{\"swap\":1}]"}
        << "Device.writeSwap, argument 1: line 1, column 1: an object is due here, {...}, not a list";
    QTest::newRow("unknown key")       << QByteArrayList{"call", nowhere, swap, "{\"swop\":1}"}
        << "Device.writeSwap, argument 1: line 1, column 2: \"swop\" is none of the keys here: swap";
    QTest::newRow("too many words")    << QByteArrayList{"call", nowhere, swap, "{}", "{}"} << "Device.writeSwap, argument 2: \"{}\" is one too many";
    QTest::newRow("bad filter")        << QByteArrayList{"call", nowhere, "Screen.readDetails", "1", "all", "-1"}
        << "Screen.readDetails, argument 2: \"all\" is not a number";
    QTest::newRow("list of nothing")   << QByteArrayList{"list", "Device.swap"}          << "there is no operation \"Device.swap\"";
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

void tst_TavoroCtl::verboseShowsTheLogWhole()
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

void tst_TavoroCtl::batchGoesOnAfterAFailureAndTellsTheWorst()
{
    const Run failed =
        run({"batch", host()}, "Device.writeSwap {\"swap\":2}\nDevice.writeSwap {\"swap\":0}\n");
    QCOMPARE(failed.errors,
             QByteArray("Set device swap status information failed: hardware error:4 .\n"
                        "Set device swap status information successfully.\n"));
    QCOMPARE(failed.exitCode, 1);
    const Run wrong = run({"batch", host()}, "Device.swap\nDevice.writeSwap {\"swap\":2}\n");
    QCOMPARE(wrong.errors,
             QByteArray("tavoroctl: line 1 of the batch: there is no operation \"Device.swap\"; "
                        "\"tavoroctl list\" tells what there is\n"
                        "Set device swap status information failed: hardware error:4 .\n"));
    QCOMPARE(wrong.exitCode, 2);
}

void tst_TavoroCtl::listTellsEveryOperation()
{
    const Run list = run({"list"});
    QCOMPARE(list.exitCode, 0);
    const QStringList lines = QString::fromUtf8(list.output).split(QLatin1Char('\n'));
    QVERIFY(lines.contains(
        QStringLiteral("Device.writeSwap                           0x1107  Device::s_swap")));
    QVERIFY(lines.contains(QStringLiteral("Screen.readDetails                         0x1300  "
                                          "FILTER FILTER FILTER -> [Screen::s_ScreenFullDetail]")));
    QVERIFY(lines.contains(
        QStringLiteral("Screen.writeFTB                            0x130a  [Screen::s_FTB]")));
}

void tst_TavoroCtl::listShowsTheRecordOfAnOperation()
{
    QCOMPARE(run({"list", "Screen.writeFTB"}).output,
             QByteArray(R"([{"screenId":0,"screenType":0,"FTB":{"enable":0,"time":0}}])"
                        "\n"));
}

void tst_TavoroCtl::showPrintsTables()
{
    SimOptions options;
    options.inputs = 1;
    options.outputs = 2;
    options.screens = 1;
    options.layersPerScreen = 2;
    m_bench = std::make_unique<ToolBench>(options);
    m_bench->console(QStringLiteral("cable 1 1"));
    const Run show = run({"show", host()});
    QCOMPARE(show.output, QByteArray(R"(DEVICE          Simulated device
status          1
swap            1
genlock signal  1
power supplies  1: 1, 2: 1
cards           2
groups

INTERFACE  TYPE  NAME      TIMING        DEPTH  HDCP
1.1.0      1     Input 1   no signal     8      0
2.1.0      2     Output 1  1920x1080p60  8      0
2.2.0      2     Output 2  1920x1080p60  8      0

SCREEN      NAME  WINDOW            FREEZE  FTB  T-BAR  OUTPUTS
1 (type 1)  Main  3840x1080 at 0,0  0       0    0      2.1.0 2.2.0

LAYER  SCREEN      SCENE      TYPE  Z  NAME        SOURCE   WINDOW            OPACITY
0      1 (type 1)  preview    2     0  Background  1:65792  3840x1080 at 0,0  100
1      1 (type 1)  preview    1     1  Layer 1     1:65792  3840x1080 at 0,0  100
0      1 (type 1)  programme  2     0  Background  1:65792  3840x1080 at 0,0  100
1      1 (type 1)  programme  1     1  Layer 1     1:65792  3840x1080 at 0,0  100
)"));
    QCOMPARE(show.exitCode, 0);
}

void tst_TavoroCtl::showPrintsJson()
{
    const QJsonObject shown =
        QJsonDocument::fromJson(run({"--json", "show", host()}).output).object();
    QCOMPARE(shown.keys(),
             QString::fromLatin1("device interfaces layers screens").split(QLatin1Char(' ')));
}

void tst_TavoroCtl::showMayHaveItsOptionBehindTheHost()
{
    QVERIFY(run({"show", host(), "--json"}).output.startsWith("{\"device\":{"));
}

void tst_TavoroCtl::discoverListsWhoAnswers()
{
    SimOptions options;
    options.discoveryPort = 0;
    m_bench = std::make_unique<ToolBench>(options);
    const QByteArray target = "127.0.0.1:" + QByteArray::number(m_bench->device->discoveryPort());
    const Run discover = run({"discover", target});
    QCOMPARE(discover.errors, QByteArray());
    QCOMPARE(discover.output, host().leftJustified(21) + "  53494D0000000001  Simulated device\n");
    QCOMPARE(discover.exitCode, 0);
}

void tst_TavoroCtl::discoverEndsWithOneWhenNobodyAnswers()
{
    const Run discover = run({"discover", "127.0.0.1:9"});
    QCOMPARE(discover.errors, QByteArray("No device has answered.\n"));
    QCOMPARE(discover.output, QByteArray());
    QCOMPARE(discover.exitCode, 1);
    QCOMPARE(run({"discover", "127.0.0.1:99999"}).exitCode, 2);
}

void tst_TavoroCtl::replayShowsWhatACaptureHolds_data()
{
    QTest::addColumn<QString>("name");
    const QStringList names =
        QDir(QStringLiteral(TEST_DATA_DIR "/captures")).entryList(QDir::Files);
    QCOMPARE(names.size(), 8);
    for (const QString &name : names)
        QTest::newRow(qUtf8Printable(name)) << name;
}

void tst_TavoroCtl::replayShowsWhatACaptureHolds()
{
    QFETCH(QString, name);
    QFile shown(QStringLiteral(TEST_DATA_DIR "/replays/%1").arg(name));
    QVERIFY(shown.open(QIODevice::ReadOnly));
    const Run replay = run({"replay", TEST_DATA_DIR "/captures/" + name.toUtf8()});
    QCOMPARE(replay.output.split('\n'), shown.readAll().split('\n'));
    QCOMPARE(replay.errors, QByteArray());
    QCOMPARE(replay.exitCode, 0);
}

void tst_TavoroCtl::replayOfNoFileFails()
{
    const Run missing = run({"replay", "/no/such/capture"});
    QCOMPARE(missing.errors, QByteArray("/no/such/capture: No such file or directory\n"));
    QCOMPARE(missing.exitCode, 1);
}

void tst_TavoroCtl::environmentVariableCapturesTheWire()
{
    const QByteArray capture = m_bench->path("capture.txt");
    qputenv("TAVORO_CAPTURE", capture);
    const Run write = call({"Device.writeSwap", R"({"swap":0})"});
    qunsetenv("TAVORO_CAPTURE");
    QCOMPARE(write.exitCode, 0);
    const Run replay = run({"replay", capture});
    QVERIFY(replay.output.contains("1 > request 0x1107 type 2 tag 1 packet 0/0 status 0, "
                                   "10 bytes {\"swap\":0}\n"));
    QVERIFY(
        replay.output.contains("1 < response 0x1107 type 2 tag 1 packet 0/1 status 0, 0 bytes"));
}

void tst_TavoroCtl::captureThatCannotBeWrittenIsALineOfTheLog_data()
{
    QTest::addColumn<QByteArray>("capture");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("no folder") << QByteArray("/no/such/folder/capture")
                               << QByteArray("/no/such/folder/capture: No such file or directory");
    QTest::newRow("no room") << QByteArray("/dev/full")
                             << QByteArray("/dev/full: No space left on device");
}

void tst_TavoroCtl::captureThatCannotBeWrittenIsALineOfTheLog()
{
    QFETCH(QByteArray, capture);
    QFETCH(QByteArray, line);
    qputenv("TAVORO_CAPTURE", capture);
    const Run write = run({"--verbose", "call", host(), "Device.writeSwap", R"({"swap":0})"});
    qunsetenv("TAVORO_CAPTURE");
    QCOMPARE(write.exitCode, 0);
    QCOMPARE(write.errors.count(line), 1);
}

void tst_TavoroCtl::helpAndVersion()
{
    const Run help = run({"--help"});
    QVERIFY(help.output.contains("Exit status: 0 done, 1 a device or an operation failed, "));
    QCOMPARE(help.exitCode, 0);
    QVERIFY(run({"--version"}).output.startsWith("tavoroctl 0."));
    QCOMPARE(run({"call", "--help"}).exitCode, 0);
}

QTEST_GUILESS_MAIN(tst_TavoroCtl)
#include "tst_tavoroctl.moc"
