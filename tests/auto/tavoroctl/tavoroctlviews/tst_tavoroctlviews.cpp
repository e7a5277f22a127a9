// list, show, discover and replay.

#include <support/tavoroctl/toolcalls.h>

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using Tavoro::Sim::SimOptions;

class tst_TavoroCtlViews : public QObject, private ToolCalls {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void listShowsEveryOperation();
    void listShowsTheRecordOfAnOperation();

    void showPrintsTables();
    void showPrintsJson();
    void optionMayFollowTheHost();

    void discoverListsTheDevicesThatAnswer();
    void discoverWithoutAnswersEndsWithThree();

    void replayShowsTheContentOfACapture_data();
    void replayShowsTheContentOfACapture();
    void replayOfAMissingFileFails();
    void replayWritesACaptureForWireshark();
    void replayWritesNothingFromAnInvalidCapture();
    void environmentVariableCapturesTheWire();
    void failedCaptureIsLogged_data();
    void failedCaptureIsLogged();
};

void tst_TavoroCtlViews::init()
{
    m_bench = std::make_unique<ToolBench>();
}

void tst_TavoroCtlViews::cleanup()
{
    m_bench.reset();
}

void tst_TavoroCtlViews::listShowsEveryOperation()
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

void tst_TavoroCtlViews::listShowsTheRecordOfAnOperation()
{
    QCOMPARE(run({"list", "Screen.writeFTB"}).output,
             QByteArray(R"([{"screenId":0,"screenType":0,"FTB":{"enable":0,"time":0}}])"
                        "\n"));
}

void tst_TavoroCtlViews::showPrintsTables()
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

void tst_TavoroCtlViews::showPrintsJson()
{
    const QJsonObject shown =
        QJsonDocument::fromJson(run({"--json", "show", host()}).output).object();
    QCOMPARE(shown.keys(),
             QString::fromLatin1("device formatVersion interfaces layers screens")
                 .split(QLatin1Char(' ')));
}

void tst_TavoroCtlViews::optionMayFollowTheHost()
{
    QVERIFY(run({"show", host(), "--json"}).output.startsWith("{\"formatVersion\":1,\"device\":{"));
}

void tst_TavoroCtlViews::discoverListsTheDevicesThatAnswer()
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

void tst_TavoroCtlViews::discoverWithoutAnswersEndsWithThree()
{
    const Run discover = run({"discover", "127.0.0.1:9"});
    QCOMPARE(discover.errors, QByteArray("No device answered.\n"));
    QCOMPARE(discover.output, QByteArray());
    QCOMPARE(discover.exitCode, 3);
    QCOMPARE(run({"discover", "127.0.0.1:99999"}).exitCode, 2);
}

void tst_TavoroCtlViews::replayShowsTheContentOfACapture_data()
{
    QTest::addColumn<QString>("name");
    const QStringList names =
        QDir(QStringLiteral(TEST_DATA_DIR "/captures")).entryList(QDir::Files);
    QCOMPARE(names.size(), 8);
    for (const QString &name : names)
        QTest::newRow(qUtf8Printable(name)) << name;
}

void tst_TavoroCtlViews::replayShowsTheContentOfACapture()
{
    QFETCH(QString, name);
    QFile shown(QStringLiteral(TEST_DATA_DIR "/replays/%1").arg(name));
    QVERIFY(shown.open(QIODevice::ReadOnly));
    const Run replay = run({"replay", TEST_DATA_DIR "/captures/" + name.toUtf8()});
    QCOMPARE(replay.output.split('\n'), shown.readAll().split('\n'));
    QCOMPARE(replay.errors, QByteArray());
    QCOMPARE(replay.exitCode, 0);
}

void tst_TavoroCtlViews::replayOfAMissingFileFails()
{
    const Run missing = run({"replay", "/no/such/capture"});
    QCOMPARE(missing.errors, QByteArray("/no/such/capture: No such file or directory\n"));
    QCOMPARE(missing.exitCode, 1);
}

void tst_TavoroCtlViews::replayWritesACaptureForWireshark()
{
    const QByteArray capture = m_bench->makeFile(
        "two.txt", "# tavoro wire capture 1\n7 0.000001 open 10.1.2.3\n7 0.5 > 5456\n");
    const Run replay = run({"replay", capture, "--pcapng", m_bench->path("two.pcapng")});
    QCOMPARE(replay.output, QByteArray());
    QCOMPARE(replay.errors, QByteArray());
    QCOMPARE(replay.exitCode, 0);
    const QByteArray bytes = m_bench->content("two.pcapng");
    QCOMPARE(bytes.left(4), QByteArray("\n\r\r\n"));
    QVERIFY(bytes.contains("channel 7"));
    // The two bytes, and two zeros, at the end of the last block, which has 76 bytes.
    QCOMPARE(bytes.right(8).toHex(), QByteArray("545600004c000000"));
    QCOMPARE(run({"replay", "--pcapng", "-", capture}).output, bytes);
}

void tst_TavoroCtlViews::replayWritesNothingFromAnInvalidCapture()
{
    const QByteArray capture = m_bench->makeFile(
        "invalid.txt", "# tavoro wire capture 1\n1 0.0 open 10.1.2.3\n1 0.0 fly\n");
    const Run replay = run({"replay", capture, "--pcapng", m_bench->path("invalid.pcapng")});
    QCOMPARE(replay.errors, capture + ": line 3: not a line of a capture\n");
    QCOMPARE(replay.exitCode, 1);
    QVERIFY(m_bench->content("invalid.pcapng").isNull());
}

void tst_TavoroCtlViews::environmentVariableCapturesTheWire()
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

void tst_TavoroCtlViews::failedCaptureIsLogged_data()
{
    QTest::addColumn<QByteArray>("capture");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("no folder") << QByteArray("/no/such/folder/capture")
                               << QByteArray("/no/such/folder/capture: No such file or directory");
    QTest::newRow("no room") << QByteArray("/dev/full")
                             << QByteArray("/dev/full: No space left on device");
}

void tst_TavoroCtlViews::failedCaptureIsLogged()
{
    QFETCH(QByteArray, capture);
    QFETCH(QByteArray, line);
    qputenv("TAVORO_CAPTURE", capture);
    const Run write = run({"--verbose", "call", host(), "Device.writeSwap", R"({"swap":0})"});
    qunsetenv("TAVORO_CAPTURE");
    QCOMPARE(write.exitCode, 0);
    QCOMPARE(write.errors.count(line), 1);
}

QTEST_GUILESS_MAIN(tst_TavoroCtlViews)
#include "tst_tavoroctlviews.moc"
