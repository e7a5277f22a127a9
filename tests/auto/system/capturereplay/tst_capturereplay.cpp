// A capture is played back as a device.

#include <support/common/capturedcalls.h>
#include <support/tavorosim/recordeddevice.h>

#include <tavorosim/simulateddevice.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/wirecapture.h>

#include <QTemporaryDir>
#include <QTest>

#include <atomic>
#include <memory>
#include <string>

using namespace Tavoro;
using namespace Tavoro::SSProxy;

class tst_CaptureReplay : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void captureIsPlayedBackAsADevice();
    void recordedFaultsArePlayedBack_data();
    void recordedFaultsArePlayedBack();
    void keptWritesArePlayedBack();
    void keptSplitAnswerAndReportArePlayedBack();
};

void tst_CaptureReplay::captureIsPlayedBackAsADevice()
{
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("capture"));
    captureASwap(path);
    RecordedDevice device(path);
    const auto channel = connectTo(device.port());
    QCOMPARE(device.unplayed(), 3);
    QCOMPARE(int(send(*channel, 2, 0x1107, R"({"swap":7})")->status), 4);
    QCOMPARE(int(send(*channel, 2, 0x1107, R"({"swap":0})")->status), 0);
    QCOMPARE(send(*channel, 1, 0x110A)->body(), framesOf(path).at(3).frame.body);
    QCOMPARE(device.unplayed(), 0);
    QCOMPARE(device.surprises(), 0);
}

void tst_CaptureReplay::recordedFaultsArePlayedBack_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("connections");
    QTest::addColumn<int>("reports");
    // clang-format off
    QTest::newRow("lost before the answer")      << QStringLiteral("drop-before")         << 259 << 2 << 0;
    QTest::newRow("lost within the answer")      << QStringLiteral("drop-within")         << 358 << 2 << 0;
    QTest::newRow("lost after the answer")       << QStringLiteral("drop-after")          << 0   << 2 << 0;
    QTest::newRow("flag")                        << QStringLiteral("wrong-flag")          << 359 << 2 << 0;
    QTest::newRow("version")                     << QStringLiteral("wrong-version")       << 359 << 2 << 0;
    QTest::newRow("checksum of the head")        << QStringLiteral("wrong-head-checksum") << 361 << 2 << 0;
    QTest::newRow("checksum index")              << QStringLiteral("wrong-index")         << 360 << 1 << 0;
    QTest::newRow("checksum of the body")        << QStringLiteral("wrong-checksum")      << 361 << 1 << 0;
    QTest::newRow("kind")                        << QStringLiteral("wrong-kind")          << 362 << 1 << 0;
    QTest::newRow("type")                        << QStringLiteral("wrong-type")          << 362 << 1 << 0;
    QTest::newRow("code")                        << QStringLiteral("wrong-code")          << 357 << 1 << 0;
    QTest::newRow("answered twice")              << QStringLiteral("twice")               << 0   << 1 << 0;
    QTest::newRow("reports")                     << QStringLiteral("flood=3")             << 0   << 1 << 3;
    // clang-format on
}

namespace {

/// Makes two reads. Checks the status of the first one, and the counts of connections and reports
/// after it.
void readTwice(quint16 port)
{
    QFETCH(int, status);
    QFETCH(int, connections);
    QFETCH(int, reports);
    const auto channel = connectTo(port);
    QCOMPARE(int(send(*channel, 1, 0x1100)->status), status);
    QTRY_COMPARE(int(channel->statistics().connections), connections);
    QTRY_COMPARE(int(channel->statistics().reports), reports);
    QCOMPARE(int(send(*channel, 1, 0x1100)->status), 0);
    channel->stopChannel();
}

} // namespace

/// Makes a read with a fault and one without, first on a device and then on its capture.
void tst_CaptureReplay::recordedFaultsArePlayedBack()
{
    QFETCH(QString, fault);
    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("capture"));
    QString error;
    Sim::SimOptions options;
    options.faults.push_back(
        *Sim::parseFaultRule(fault + QStringLiteral(",code=0x1100,count=1"), error));
    {
        Sim::SimulatedDevice device(options);
        QVERIFY2(device.start(error), qPrintable(error));
        QVERIFY2(startWireCapture(path, error), qPrintable(error));
        readTwice(device.port());
        stopWireCapture();
    }
    RecordedDevice device(path);
    QCOMPARE(device.unplayed(), 2);
    readTwice(device.port());
    QCOMPARE(device.unplayed(), 0);
    QCOMPARE(device.surprises(), 0);
}

void tst_CaptureReplay::keptWritesArePlayedBack()
{
    RecordedDevice device(QStringLiteral(TEST_DATA_DIR "/captures/swap.txt"));
    const auto channel = connectTo(device.port());
    QCOMPARE(channel->deviceBaseInfo().name, std::string("Simulated device"));
    QCOMPARE(int(send(*channel, 2, 0x1107, R"({"swap":0})")->status), 0);
    QCOMPARE(int(send(*channel, 2, 0x1107, R"({"swap":7})")->status), 4);
    QCOMPARE(send(*channel, 1, 0x110A)->body(), std::string(R"({"groupInfos":[]})"));
    QCOMPARE(device.unplayed(), 0);
}

void tst_CaptureReplay::keptSplitAnswerAndReportArePlayedBack()
{
    RecordedDevice device(QStringLiteral(TEST_DATA_DIR "/captures/splitanswer.txt"));
    const auto channel = connectTo(device.port());
    std::atomic<int> reports{0};
    const auto connection = connect(
        DeviceManager::instance(), &DeviceManager::parseDeviceAutoReportFinished,
        DeviceManager::instance(),
        [&](const auto &, const auto &report) { reports += report->head().BC == 0x12; },
        Qt::DirectConnection);
    const std::string input = R"([{"slotId":1,"connectorId":1,"splitId":0,)"
                              R"("general":{"name":"Cam","nameGB2312":"N/A","type":0}}])";
    QCOMPARE(int(send(*channel, 2, 0x1201, input)->status), 0);
    const auto first = send(*channel, 1, 0x1100);
    QCOMPARE(int(first->status), 0);
    QCOMPARE(first->head().totalCount, quint32(2));
    QCOMPARE(first->body().size(), std::size_t(500));
    QTRY_COMPARE(reports.load(), 1);
    disconnect(connection);

    auto further = std::make_shared<DeviceRequestCommand>();
    further->head() = first->head();
    further->head().sendCount = 1;
    const auto second = channel->sendSyncRequest(further);
    QCOMPARE(int(second->status), 0);
    QCOMPARE(second->body().size(), std::size_t(430));
    QCOMPARE(device.surprises(), 0);
    QCOMPARE(device.unplayed(), 0);
}

QTEST_GUILESS_MAIN(tst_CaptureReplay)
#include "tst_capturereplay.moc"
