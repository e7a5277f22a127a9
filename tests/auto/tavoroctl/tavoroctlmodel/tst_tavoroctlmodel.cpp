// sync and watch: reading a device into the model, and the changes by its reports.

#include <support/tavoroctl/toolbench.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpSocket>
#include <QTest>

#include <csignal>

using Tavoro::Sim::SimOptions;

class tst_TavoroCtlModel : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void syncShowsTheModelAsATree();
    void syncShowsTheModelAsJson();
    void syncShowsWhatCommandsChanged();
    void syncOfALostDeviceEndsWithOne();
    void partlyFailedSyncShowsTheRest();
    void syncDrawsItsProgressOnATerminal();
    void syncWorksWhileAnotherClientHasControl();
    void syncReportsARefusedClock();

    void watchShowsReportedChanges_data();
    void watchShowsReportedChanges();
    void watchShowsFileTransfers();
    void watchLeavesControlToOthers();
    void watchEndsWithZero_data();
    void watchEndsWithZero();
    void watchReadsTheDeviceAgainAfterAReconnect();
    void watchRepeatsAReadThatTheConnectionDoesNotSurvive();
    void watchOfAMissingDeviceEndsWithThree();

private:
    ToolRun stop(RunningTool &tool) const;

    std::unique_ptr<ToolBench> m_bench;
};

namespace {

const QByteArray watching = "Watching Simulated device; press Ctrl-C to stop.\n";

SimOptions smallDevice()
{
    SimOptions options;
    options.inputs = 2;
    options.outputs = 2;
    options.screens = 1;
    options.layersPerScreen = 2;
    options.clockSpeed = 2000;
    return options;
}

} // namespace

void tst_TavoroCtlModel::init()
{
    m_bench = std::make_unique<ToolBench>(smallDevice());
}

void tst_TavoroCtlModel::cleanup()
{
    m_bench.reset();
}

void tst_TavoroCtlModel::syncShowsTheModelAsATree()
{
    m_bench->console(QStringLiteral("cable 1 2"));
    m_bench->console(QStringLiteral("power 2 0"));
    m_bench->console(QStringLiteral("group 7 East"));
    QCOMPARE(m_bench->run("push", {m_bench->makeFile("wall.png", "123456789")}).exitCode, 0);
    const QByteArray freeze = R"([{"screenId":1,"screenType":1,"freeze":1}])";
    QCOMPARE(m_bench->run("call", {"Screen.writeFreeze", freeze}).exitCode, 0);
    const ToolRun sync = m_bench->run("sync", {});
    QCOMPARE(
        sync.output,
        QByteArray(
            R"(Simulated device  127.0.0.1  MAC 02005E100001  serial number 53494D0000000001  model 0x7701  online
  cards
    slot 1  0x7710  2 connectors  online
    slot 2  0x7720  2 connectors  online
  power supplies
    1  works
    2  fails
  groups
    7  East
  inputs
    1.1.0  Input 1  1920x1080p60
    1.2.0  Input 2  no signal
  outputs
    2.1.0  Output 1  1920x1080p60  on screen 1 (type 1)
    2.2.0  Output 2  1920x1080p60  on screen 1 (type 1)
  screen 1 (type 1)  Main  3840x1080 at 0,0  frozen
    preview
      layer 0  z 0  Background  1.2.0 Input 2  3840x1080 at 0,0  opacity 100
      layer 1  z 1  Layer 1     1.1.0 Input 1  3840x1080 at 0,0  opacity 100
    programme
      layer 0  z 0  Background  1.1.0 Input 1  3840x1080 at 0,0  opacity 100
      layer 1  z 1  Layer 1     1.2.0 Input 2  3840x1080 at 0,0  opacity 100
  files
    background  0  wall.png  9 bytes
)"));
    QCOMPARE(sync.errors, QByteArray());
    QCOMPARE(sync.exitCode, 0);
}

void tst_TavoroCtlModel::syncShowsTheModelAsJson()
{
    QCOMPARE(m_bench->run("push", {m_bench->makeFile("wall.png", "123456789")}).exitCode, 0);
    const ToolRun sync = m_bench->run("sync", {"--json"});
    const QJsonObject model = QJsonDocument::fromJson(sync.output).object();
    QCOMPARE(model.keys().join(QLatin1Char(' ')),
             QStringLiteral("device files formatVersion interfaces layers screens"));
    QCOMPARE(model.value(QLatin1String("interfaces")).toArray().size(), 4);
    QCOMPARE(model.value(QLatin1String("screens")).toArray().size(), 1);
    QCOMPARE(model.value(QLatin1String("layers")).toArray().size(), 4);
    QCOMPARE(model.value(QLatin1String("files"))
                 .toArray()
                 .at(0)
                 .toObject()
                 .value(QLatin1String("size"))
                 .toObject()
                 .value(QLatin1String("length")),
             QJsonValue(9));
    QCOMPARE(model.value(QLatin1String("device"))
                 .toObject()
                 .value(QLatin1String("powers"))
                 .toArray()
                 .size(),
             2);
}

void tst_TavoroCtlModel::syncShowsWhatCommandsChanged()
{
    const QByteArray take = R"([{"screenId":1,"screenType":1,)"
                            R"("switchEffect":{"time":5,"direction":0,"type":1}}])";
    QCOMPARE(m_bench->run("call", {"Screen.writeTake", take}).exitCode, 0);
    const QByteArray after = m_bench->run("sync", {}).output;
    QVERIFY2(after.contains("    programme\n      layer 0  z 0  Background  1.2.0 Input 2"),
             after.constData());
}

void tst_TavoroCtlModel::syncOfALostDeviceEndsWithOne()
{
    SimOptions options = smallDevice();
    options.latencyMilliseconds = 200;
    m_bench = std::make_unique<ToolBench>(options);
    RunningTool sync(m_bench->line("sync", {"--verbose"}));
    QVERIFY(sync.waitForErrors("Get device detail information"));
    m_bench->device.reset();
    const ToolRun run = sync.finish();
    QVERIFY2(run.errors.contains("\nThe device could not be read completely.\n"),
             run.errors.right(2000).constData());
    QCOMPARE(run.exitCode, 1);
}

void tst_TavoroCtlModel::partlyFailedSyncShowsTheRest()
{
    m_bench->console(QStringLiteral("fault add status=9,code=LayerDetail"));
    const ToolRun sync = m_bench->run("sync", {});
    QVERIFY(sync.output.contains("  screen 1 (type 1)  Main"));
    QVERIFY(!sync.output.contains("layer"));
    QCOMPARE(sync.errors,
             QByteArray("Get layer detail information failed: hardware error:9 (length or hash of "
                        "a file's content differ from those announced) .\n"
                        "The device could not be read completely.\n"));
    QCOMPARE(sync.exitCode, 1);
}

void tst_TavoroCtlModel::syncDrawsItsProgressOnATerminal()
{
    Terminal terminal;
    RunningTool sync(m_bench->line("sync"), terminal.name());
    QCOMPARE(sync.finish().exitCode, 0);
    const QByteArray drawn = terminal.drawn();
    QVERIFY2(drawn.contains("  0 %  Get screen detail information successfully.\x1b[K"),
             drawn.constData());
    QVERIFY(drawn.endsWith("\x1b[K\r\x1b[K"));
}

void tst_TavoroCtlModel::syncWorksWhileAnotherClientHasControl()
{
    RunningTool other(m_bench->line("batch"));
    other.say("Device.writeSwap {\"swap\":1}\n");
    QVERIFY(other.waitForErrors("Set device swap status information successfully.\n"));
    const ToolRun sync = m_bench->run("sync", {});
    QCOMPARE(sync.errors, QByteArray());
    QVERIFY(sync.output.contains("layer 1  z 1  Layer 1"));
    QCOMPARE(sync.exitCode, 0);
    other.say("Device.writeSwap {\"swap\":0}\n");
    QCOMPARE(other.finish().exitCode, 0);
}

void tst_TavoroCtlModel::syncReportsARefusedClock()
{
    m_bench->console(QStringLiteral("fault add status=67,code=AuxiliaryDeviceTime"));
    const ToolRun sync = m_bench->run("sync", {});
    QVERIFY2(sync.errors.startsWith("Set set device time information failed: The current device "
                                    "is already under control"),
             sync.errors.constData());
    QCOMPARE(sync.errors.count('\n'), 1);
    QVERIFY(sync.output.contains("layer 1  z 1  Layer 1"));
    QCOMPARE(sync.exitCode, 0);
}

void tst_TavoroCtlModel::watchShowsReportedChanges_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QByteArray>("message");
    // clang-format off
    QTest::newRow("power")    << "power 1 0"   << QByteArray("device: powers[0].iSignal 1 -> 0, powers[0].status 1 -> 0\n");
    QTest::newRow("card")     << "card 1 0"    << QByteArray("device: subcards[0].online 1 -> 0\n");
    QTest::newRow("genlock")  << "genlock 0"   << QByteArray("device: genlockSignal.extSignalIn 1 -> 0, genlockSignal.status 1 -> 0\n");
    QTest::newRow("group")    << "group 7 East" << QByteArray("device: groupInfos[0] nothing -> {\"groupId\":\"7\",\"groupName\":\"East\"}\n");
    QTest::newRow("depth")    << "depth 1 2 10" << QByteArray("interface 1.2.0: colorDepths.actualColorDepth 8 -> 10\n");
    // clang-format on
}

void tst_TavoroCtlModel::watchShowsReportedChanges()
{
    QFETCH(QString, line);
    QFETCH(QByteArray, message);
    RunningTool watch(m_bench->line("watch"));
    QVERIFY(watch.waitForErrors(watching));
    m_bench->console(line);
    QVERIFY(watch.waitForOutput(message.split('\n').at(0)));
    QCOMPARE(stop(watch).output, message);
}

/// Ends the tool after it has shown a last change.
ToolRun tst_TavoroCtlModel::stop(RunningTool &tool) const
{
    const QByteArray last = "device: powers[1].iSignal 1 -> 0, powers[1].status 1 -> 0\n";
    m_bench->console(QStringLiteral("power 2 0"));
    const bool isShown = tool.waitForOutput(last);
    tool.interrupt();
    ToolRun run = tool.finish();
    if (isShown && run.output.endsWith(last))
        run.output.chop(last.size());
    return run;
}

void tst_TavoroCtlModel::watchShowsFileTransfers()
{
    RunningTool watch(m_bench->line("watch"));
    QVERIFY(watch.waitForErrors(watching));
    const QByteArray file = m_bench->makeFile("wall", QByteArray(100000, 'w'));
    QCOMPARE(m_bench->run("push", {file, "--type", "logo", "--id", "3"}).exitCode, 0);
    QCOMPARE(stop(watch).output,
             QByteArray("file 2:3: transfer of type 1 at 50 %, status 0\n"
                        "file 2:3: transfer of type 1 at 100 %, status 1\n"));
}

void tst_TavoroCtlModel::watchLeavesControlToOthers()
{
    RunningTool watch(m_bench->line("watch"));
    QVERIFY(watch.waitForErrors(watching));
    const ToolRun write = m_bench->run("call", {"Device.writeSwap", R"({"swap":1})"});
    QCOMPARE(write.errors, QByteArray("Set device swap status information successfully.\n"));
    QCOMPARE(write.exitCode, 0);
}

void tst_TavoroCtlModel::watchEndsWithZero_data()
{
    QTest::addColumn<int>("signalNumber");
    QTest::newRow("Ctrl-C") << SIGINT;
    QTest::newRow("end of the session") << SIGTERM;
}

void tst_TavoroCtlModel::watchEndsWithZero()
{
    QFETCH(int, signalNumber);
    RunningTool watch(m_bench->line("watch"));
    QVERIFY(watch.waitForErrors(watching));
    watch.interrupt(signalNumber);
    const ToolRun run = watch.finish();
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.errors, watching);
}

void tst_TavoroCtlModel::watchReadsTheDeviceAgainAfterAReconnect()
{
    SimOptions options = smallDevice();
    options.clockSpeed = 0; // The device that restarts does not report that it loads its files.
    m_bench = std::make_unique<ToolBench>(options);
    QCOMPARE(m_bench->run("push", {m_bench->makeFile("wall", "123456789")}).exitCode, 0);
    RunningTool watch(m_bench->line("watch"));
    QVERIFY(watch.waitForErrors(watching));
    // The device reports neither change.
    QCOMPARE(m_bench->run("preset save", {"1"}).exitCode, 0);
    QCOMPARE(
        m_bench->run("call", {"File.writeDeleteFiles", R"([{"fileId":0,"fileType":0}])"}).exitCode,
        0);
    m_bench->console(QStringLiteral("switch 0"));
    QVERIFY(watch.waitForErrors("Connection lost.\n"));
    m_bench->console(QStringLiteral("switch 1"));
    QVERIFY(watch.waitForErrors("Reconnected.\n" + watching));
    const ToolRun run = stop(watch);
    QCOMPARE(run.output, QByteArray("file 0:0: gone\nfile 6:1: new\n"));
    QCOMPARE(run.exitCode, 0);
}

void tst_TavoroCtlModel::watchRepeatsAReadThatTheConnectionDoesNotSurvive()
{
    m_bench->console(QStringLiteral("fault add drop-before,code=ScreenDetail,count=1"));
    RunningTool watch(m_bench->line("watch"));
    QVERIFY(watch.waitForErrors("The device could not be read completely.\n"));
    QVERIFY(watch.waitForErrors("Reconnected.\n" + watching));
    const ToolRun run = stop(watch);
    QVERIFY2(run.output.contains("screen 1 (type 1): new\n"), run.output.constData());
    QCOMPARE(run.exitCode, 0);
}

void tst_TavoroCtlModel::watchOfAMissingDeviceEndsWithThree()
{
    QTcpSocket reserved; // Reserves a port without listening.
    QVERIFY2(reserved.bind(QHostAddress::LocalHost, 0, QAbstractSocket::DontShareAddress),
             qPrintable(reserved.errorString()));
    const QByteArray place = "127.0.0.1:" + QByteArray::number(reserved.localPort());
    const ToolRun watch = ToolBench::run({"watch", place, "--timeout", "1000"});
    QVERIFY2(watch.errors.contains(place), watch.errors.constData());
    QCOMPARE(watch.exitCode, 3);
}

QTEST_GUILESS_MAIN(tst_TavoroCtlModel)
#include "tst_tavoroctlmodel.moc"
