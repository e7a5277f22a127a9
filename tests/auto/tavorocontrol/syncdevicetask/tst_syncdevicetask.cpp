#include <support/common/markingtranslator.h>
#include <support/tavorocontrol/requestpath.h>
#include <support/tavorocontrol/synchronised.h>

#include <QDateTime>
#include <QRegularExpression>
#include <QtTest>

using namespace Tavoro;

/// The reads of the task, their order, and the effect of a failure in each step.
/// tst_SyncDeviceModel tests the changes in the model.
class tst_SyncDeviceTask : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void freshTaskIsIdle();
    void runningStatusIsTheOneThatWasSet();
    void setDeviceCreatesTheWorkingDevice();
    void deviceWithoutChannelIsRefused();
    void deviceWithoutChannelGoesOffline();
    void workingDeviceStaysUntilTheReset();
    void resetForgetsDeviceAndRecords();
    void resetReleasesTheStorage();
    void resetKeepsErrorAndOutcome();

    void runReadsInThisOrder();
    void firstRequestSetsTheClock();
    void readsCarryNoBody();
    void runKeepsWhatItRead();
    void runWithoutDeviceDoesNothing();
    void failedReadsAreReported_data();
    void failedReadsAreReported();
    void deviceThatIsNotReadyIsNotReadFurther_data();
    void deviceThatIsNotReadyIsNotReadFurther();
    void notReadyIsTranslated();
    void undecodableAnswerIsAFailure();
};

namespace {

/// The requests of a whole run, in the form of WholeDeviceChannel::asked().
QStringList wholeRun()
{
    return textLines({"2 fc0c 00000000", "1 1100 00000000", "1 1200 00ff0000", "1 1300 00ff00ff",
                      "1 1400 ffffffff", "1 fa00 ffff0000", "3 fa04 06040000", "3 fa04 0c010000"});
}

} // namespace

void tst_SyncDeviceTask::freshTaskIsIdle()
{
    SyncTask task;
    QCOMPARE(task.objectName(), QStringLiteral("SyncDeviceTask"));
    QVERIFY(!task.isRunningStatus());
    QVERIFY(!task.isSyncSucess());
    QVERIFY(task.errorMsg().isEmpty());
    QVERIFY(!task.errorMsg().isNull());
    QVERIFY(task.deviceIp().isEmpty());
    QVERIFY(task.deviceMAC().isEmpty());
    QVERIFY(task.deviceSN().isEmpty());
    QCOMPARE(task.deviceDetail().general.name, std::string("N/A"));
    QVERIFY(task.interfaceDetail().empty());
    QVERIFY(task.screenDetail().empty());
    QVERIFY(task.layerDetail().empty());
    QVERIFY(task.fileDetail().empty());
}

void tst_SyncDeviceTask::runningStatusIsTheOneThatWasSet()
{
    SyncTask task;
    task.setRunningStatus(true);
    QVERIFY(task.isRunningStatus());
    task.setRunningStatus(false);
    QVERIFY(!task.isRunningStatus());
}

void tst_SyncDeviceTask::setDeviceCreatesTheWorkingDevice()
{
    Synchronised it;
    QVERIFY(it.setDevice());
    QCOMPARE(it.task.deviceIp(), it.ip());
    QCOMPARE(it.task.deviceMAC(), it.mac());
    QCOMPARE(it.task.deviceSN(), it.sn());
    QVERIFY(!it.listed()); // it has not been read yet
    QVERIFY(it.asked().isEmpty());
    QVERIFY(it.journal.lines().isEmpty());
}

void tst_SyncDeviceTask::deviceWithoutChannelIsRefused()
{
    Synchronised it;
    it.device.removeChannel();
    QVERIFY(!it.setDevice());
    QCOMPARE(it.task.deviceIp(), QString());
    QCOMPARE(it.journal.lines(),
             textLines({"warning: Sync device model failed, device channel is null"}));
}

void tst_SyncDeviceTask::deviceWithoutChannelGoesOffline()
{
    Synchronised it;
    it.makeKnown();
    it.device.model->setDeviceOnlineFlag(true);
    ScriptedDevice other(8);
    BizModel::DeviceList::instance()->append(other.model);
    other.model->setDeviceOnlineFlag(true);

    it.device.removeChannel();
    QVERIFY(!it.setDevice());
    QVERIFY(!it.device.model->isOnline());
    QVERIFY(other.model->isOnline());
    BizModel::DeviceList::instance()->remove(other.model);
}

void tst_SyncDeviceTask::workingDeviceStaysUntilTheReset()
{
    Synchronised it;
    ScriptedDevice other(8);
    QVERIFY(it.setDevice());
    QVERIFY(it.task.setDevice(other.model->IPAddress(), other.model->MAC(), other.model->sn()));
    QCOMPARE(it.task.deviceIp(), it.ip());
    it.task.resetDevice();
    QVERIFY(it.task.setDevice(other.model->IPAddress(), other.model->MAC(), other.model->sn()));
    QCOMPARE(it.task.deviceIp(), QStringLiteral("192.0.2.8"));
}

void tst_SyncDeviceTask::resetForgetsDeviceAndRecords()
{
    Synchronised it;
    it.run();
    it.task.resetDevice();
    QVERIFY(it.task.deviceIp().isEmpty());
    QVERIFY(it.task.deviceMAC().isEmpty());
    QVERIFY(it.task.deviceSN().isEmpty());
    QCOMPARE(it.task.deviceDetail().general.name, std::string("N/A"));
    QCOMPARE(it.task.deviceDetail().general.status, 0);
}

void tst_SyncDeviceTask::resetReleasesTheStorage()
{
    Synchronised it;
    it.run();
    QVERIFY(!it.task.interfaceDetail().empty());
    QVERIFY(!it.task.screenDetail().empty());
    QVERIFY(!it.task.layerDetail().empty());
    QVERIFY(!it.task.fileDetail().empty());
    it.task.resetDevice();
    QCOMPARE(it.task.interfaceDetail().capacity(), std::size_t(0));
    QCOMPARE(it.task.screenDetail().capacity(), std::size_t(0));
    QCOMPARE(it.task.layerDetail().capacity(), std::size_t(0));
    QCOMPARE(it.task.fileDetail().capacity(), std::size_t(0));
}

void tst_SyncDeviceTask::resetKeepsErrorAndOutcome()
{
    Synchronised it;
    it.channel->replyBody(0x1100, R"({"general":{"status":2}})");
    it.run();
    it.task.resetDevice();
    QCOMPARE(it.task.errorMsg(), QStringLiteral("Device not ready."));
    QVERIFY(it.task.isSyncSucess());
}

void tst_SyncDeviceTask::runReadsInThisOrder()
{
    Synchronised it;
    it.run();
    QCOMPARE(it.asked(), wholeRun());
    QCOMPARE(it.lines(), modelStep());
    QVERIFY(it.task.isSyncSucess());
    QCOMPARE(it.task.errorMsg(), QString());
}

void tst_SyncDeviceTask::firstRequestSetsTheClock()
{
    Synchronised it;
    const QDateTime before = QDateTime::currentDateTime();
    it.run();
    const QDateTime after = QDateTime::currentDateTime();

    const QString body = QString::fromStdString(it.channel->sent().front().body);
    const auto match =
        QRegularExpression(
            QStringLiteral(R"(^\{"year":(\d+),"month":(\d+),"day":(\d+),"hour":(\d+),)"
                           R"("minute":(\d+),"second":(\d+),"millisecond":(\d+)\}$)"))
            .match(body);
    QVERIFY2(match.hasMatch(), qPrintable(body));
    const auto number = [&](int place) {
        return match.captured(place).toInt();
    };
    const QDateTime sent(QDate(number(1), number(2), number(3)),
                         QTime(number(4), number(5), number(6), number(7)));
    // The date is read before the time of day, so it may be a day late at midnight.
    QVERIFY((before <= sent && sent <= after) || before.date() != after.date());
}

void tst_SyncDeviceTask::readsCarryNoBody()
{
    Synchronised it;
    it.run();
    const auto sent = it.channel->sent();
    for (std::size_t i = 1; i < sent.size(); ++i)
        QCOMPARE(sent[i].body, std::string());
}

void tst_SyncDeviceTask::runKeepsWhatItRead()
{
    Synchronised it;
    it.run();
    QCOMPARE(it.task.deviceDetail().general.name, std::string("desk"));
    QCOMPARE(it.task.interfaceDetail().size(), std::size_t(1));
    QCOMPARE(it.task.interfaceDetail().front().interfaceId.connectorId, 2);
    QCOMPARE(it.task.screenDetail().size(), std::size_t(2));
    QCOMPARE(it.task.screenDetail().back().screenType, 3);
    QCOMPARE(it.task.layerDetail().size(), std::size_t(1));
    QCOMPARE(it.task.layerDetail().front().layerIdenti.layerId, quint8(5));
    QCOMPARE(it.task.fileDetail().size(), std::size_t(2));
    QCOMPARE(it.task.fileDetail().front().binary, std::string("a preset"));
    QCOMPARE(it.task.fileDetail().back().binary, std::string("a picture"));
}

void tst_SyncDeviceTask::runWithoutDeviceDoesNothing()
{
    Synchronised it;
    it.channel->replyBody(0x1100, R"({"general":{"status":2}})");
    it.run();
    it.task.resetDevice();
    it.journal.clear();
    const auto known = it.listed();
    const QSignalSpy changes(known.get(), &BizModel::Device::deviceDataChanged);
    const QStringList askedBefore = it.asked();

    it.task.run();
    QVERIFY(it.task.isSyncSucess()); // unchanged
    QCOMPARE(it.task.errorMsg(), QString()); // but the text is cleared
    QCOMPARE(it.asked(), askedBefore);
    QVERIFY(it.journal.lines().isEmpty());
    QVERIFY(changes.isEmpty());

    SyncTask fresh;
    fresh.run();
    QVERIFY(!fresh.isSyncSucess());
}

namespace {

struct FailureRow {
    const char *name;
    quint16 refused;
    QStringList asked;
    QStringList warnings;
    const char *errorMsg;
    bool success; ///< Result of the task. The model always gets false.
};

// clang-format off
const QStringList clockOnly           = textLines({"2 fc0c 00000000"});
const QStringList untilDevice         = clockOnly + textLines({"1 1100 00000000"});
const QStringList untilInterfaces     = untilDevice + textLines({"1 1200 00ff0000"});
const QStringList untilScreens        = untilInterfaces + textLines({"1 1300 00ff00ff"});
const QStringList untilLayers         = untilScreens + textLines({"1 1400 ffffffff"});
const QStringList files               = textLines({"1 fa00 ffff0000", "3 fa04 06040000", "3 fa04 0c010000"});

const std::vector<FailureRow> failureRows = {
//   name                      refused  asked
    {"clock not set",          0xFC0C,  untilLayers + files,
     textLines({R"(warning: set device time failed. "Set set device time information failed: hardware error:5 .")"}),
     "", true},
    {"device not read",        0x1100,  untilDevice,
     textLines({R"(warning: Read device detail failed. "Get device detail information failed: hardware error:5 .")"}),
     "Get device detail information failed: hardware error:5 .", false},
    {"interfaces not read",    0x1200,  untilInterfaces,
     textLines({R"(warning: Read interface details failed. "Get interface detail information failed: hardware error:5 .")"}),
     "Get interface detail information failed: hardware error:5 .", false},
    {"screens not read",       0x1300,  untilScreens + files,
     textLines({R"(warning: Read screen details failed. "Get screen detail information failed: hardware error:5 .")"}),
     "Get screen detail information failed: hardware error:5 .", true},
    {"layers not read",        0x1400,  untilLayers + files,
     textLines({"warning: Read layer details failed."}),
     "Get layer detail information failed: hardware error:5 .", true},
    {"files not read",         0xFA00,  untilLayers + textLines({"1 fa00 ffff0000"}),
     textLines({"warning: Read file details failed."}),
     "Get file detail information failed: hardware error:5 .", true},
    {"a file's content not read", 0,    untilLayers + files,
     textLines({"warning: Read file binary failed."}),
     "Get file export information failed: hardware error:5 .", true},
};
// clang-format on

} // namespace

void tst_SyncDeviceTask::failedReadsAreReported_data()
{
    QTest::addColumn<int>("row");
    for (std::size_t i = 0; i < failureRows.size(); ++i)
        QTest::newRow(failureRows[i].name) << int(i);
}

void tst_SyncDeviceTask::failedReadsAreReported()
{
    QFETCH(const int, row);
    const FailureRow &failure = failureRows[std::size_t(row)];
    Synchronised it;
    if (failure.refused != 0)
        it.channel->reply(failure.refused, ScriptedAnswer::refusal(5));
    else
        it.channel->replyContent(6, 4, ScriptedAnswer::refusal(5));
    it.run();

    QCOMPARE(it.asked(), failure.asked);
    QCOMPARE(it.lines(), failure.warnings + modelStep());
    QCOMPARE(it.task.isSyncSucess(), failure.success);
    QCOMPARE(it.task.errorMsg(), QString::fromLatin1(failure.errorMsg));
    // What could be read still reaches the model.
    QVERIFY(it.listed());
    QVERIFY(it.listed()->isOnline());
    QVERIFY(!it.listed()->isSyncDataSuccess());
}

void tst_SyncDeviceTask::deviceThatIsNotReadyIsNotReadFurther_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("success");

    QTest::newRow("down") << 0 << false;
    QTest::newRow("busy") << 2 << true;
    QTest::newRow("negative") << -1 << true;
}

void tst_SyncDeviceTask::deviceThatIsNotReadyIsNotReadFurther()
{
    QFETCH(const int, status);
    QFETCH(const bool, success);
    Synchronised it;
    it.channel->replyBody(0x1100, R"({"general":{"status":)" + std::to_string(status) + "}}");
    it.run();

    QCOMPARE(it.asked(), untilDevice);
    QCOMPARE(it.lines(), textLines({R"(warning: "Device not ready.")"}) + modelStep());
    QCOMPARE(it.task.errorMsg(), QStringLiteral("Device not ready."));
    QCOMPARE(it.task.isSyncSucess(), success);
    QVERIFY(it.listed());
    QCOMPARE(it.listed()->isSyncDataSuccess(), success);
}

void tst_SyncDeviceTask::notReadyIsTranslated()
{
    MarkingTranslator translator("Tavoro::Control::SyncDeviceTask");
    QVERIFY(QCoreApplication::installTranslator(&translator));
    Synchronised it;
    it.channel->replyBody(0x1100, "{}");
    it.run();
    QCOMPARE(it.task.errorMsg(), QStringLiteral("<Device not ready.>"));
    QCOMPARE(it.lines().first(), QStringLiteral(R"(warning: "<Device not ready.>")"));
}

void tst_SyncDeviceTask::undecodableAnswerIsAFailure()
{
    Synchronised it;
    it.channel->replyBody(0x1200, "{}");
    it.run();
    QCOMPARE(it.asked(), untilInterfaces);
    QCOMPARE(
        it.task.errorMsg(),
        QStringLiteral("Decode json failed: error at line :0 col :1 msg:array must start with [."));
}

QTEST_GUILESS_MAIN(tst_SyncDeviceTask)
#include "tst_syncdevicetask.moc"
