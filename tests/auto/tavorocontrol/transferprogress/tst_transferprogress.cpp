#include <support/tavorocontrol/requestpath.h>

#include <tavorocontrol/autoreportmanager.h>

#include <QtTest>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <thread>

using namespace Tavoro;
using Control::AutoReportManager;
using Progress = Control::s_DeviceFileTransferProgress;
using Percent = ProtoModel::File::s_FileTransPercent;
using Percents = std::vector<Percent>;

/// The records of file transfers that the manager keeps for each device.
class tst_TransferProgress : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void deviceThatNeverReportedIsNotFound();
    void reportIsStoredWithItsTime();
    void laterReportReplacesTheFirst_data();
    void laterReportReplacesTheFirst();
    void foundRecordIsACopy();
    void devicesAreKeptApart();
    void resetEmptiesTheRecordAndKeepsIt();
    void resetTakesANewTime();
    void reportAfterAResetUpdatesTheSameRecord();
    void resetOfADeviceWithoutARecordAddsNone();
    void resetDoesNotChangeOtherDevices();
    void expiredDeviceIsLoggedByAllThree();
    void recordOfAGoneDeviceMatchesNothing();
    void recordsAreUsedFromManyThreadsAtOnce();
};

namespace {

AutoReportManager &manager()
{
    return *AutoReportManager::instance();
}

/// Each test uses a different device, since records are never removed.
std::shared_ptr<BizModel::Device> makeDevice()
{
    return std::make_shared<BizModel::Device>(quint16(1), nullptr);
}

qint64 now()
{
    const auto time = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::nanoseconds(time).count() / 1000000;
}

Percent percent(int fileId, int share)
{
    Percent made;
    made.fileId = fileId;
    made.fileType = 6;
    made.type = 1;
    made.percent = share;
    made.status = 2;
    return made;
}

QString quoted(const Percents &percents)
{
    QStringList figures;
    for (const Percent &p : percents)
        figures << QStringLiteral("%1/%2/%3:%4%/%5")
                       .arg(p.fileType)
                       .arg(p.fileId)
                       .arg(p.type)
                       .arg(p.percent)
                       .arg(p.status);
    return figures.join(QLatin1Char(' '));
}

/// An output record that was not written to.
Progress untouched(const std::shared_ptr<BizModel::Device> &device)
{
    return {device, {percent(77, 7)}, -5, true};
}

bool isUntouched(const Progress &record, const std::shared_ptr<BizModel::Device> &device)
{
    return record.device.lock() == device && quoted(record.percents) == quoted({percent(77, 7)})
        && record.lastTime == -5 && record.isTransferring;
}

} // namespace

void tst_TransferProgress::deviceThatNeverReportedIsNotFound()
{
    const auto device = makeDevice();
    const auto another = makeDevice();
    const Journal journal;
    Progress record = untouched(another);
    QVERIFY(!manager().findDeviceFileTransferProgressRecord(device, record));
    QVERIFY(isUntouched(record, another));
    QVERIFY(journal.lines().isEmpty());
}

void tst_TransferProgress::reportIsStoredWithItsTime()
{
    const auto device = makeDevice();
    const Journal journal;
    const qint64 before = now();
    manager().updateDeviceFileTransferProgressRecord(device, {percent(1, 10), percent(2, 20)});
    const qint64 after = now();

    Progress record;
    QVERIFY(manager().findDeviceFileTransferProgressRecord(device, record));
    QCOMPARE(record.device.lock(), device);
    QCOMPARE(quoted(record.percents), QStringLiteral("6/1/1:10%/2 6/2/1:20%/2"));
    QVERIFY(record.lastTime >= before);
    QVERIFY(record.lastTime <= after);
    QVERIFY(record.isTransferring);
    QVERIFY(journal.lines().isEmpty());
}

void tst_TransferProgress::laterReportReplacesTheFirst_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");

    QTest::newRow("shorter") << 3 << 1;
    QTest::newRow("as long") << 2 << 2;
    QTest::newRow("longer") << 1 << 3;
}

void tst_TransferProgress::laterReportReplacesTheFirst()
{
    QFETCH(const int, first);
    QFETCH(const int, second);
    const auto device = makeDevice();
    Percents early;
    for (int id = 1; id <= first; ++id)
        early.push_back(percent(id, 10));
    Percents late;
    for (int id = 11; id <= 10 + second; ++id)
        late.push_back(percent(id, 90));
    manager().updateDeviceFileTransferProgressRecord(device, early);
    manager().updateDeviceFileTransferProgressRecord(device, late);

    Progress record;
    QVERIFY(manager().findDeviceFileTransferProgressRecord(device, record));
    QCOMPARE(quoted(record.percents), quoted(late));
}

void tst_TransferProgress::foundRecordIsACopy()
{
    const auto device = makeDevice();
    manager().updateDeviceFileTransferProgressRecord(device, {percent(1, 10)});
    Progress record;
    QVERIFY(manager().findDeviceFileTransferProgressRecord(device, record));
    record.percents.clear();
    record.isTransferring = false;

    Progress again;
    QVERIFY(manager().findDeviceFileTransferProgressRecord(device, again));
    QCOMPARE(quoted(again.percents), QStringLiteral("6/1/1:10%/2"));
    QVERIFY(again.isTransferring);
}

void tst_TransferProgress::devicesAreKeptApart()
{
    const auto one = makeDevice();
    const auto other = makeDevice();
    manager().updateDeviceFileTransferProgressRecord(one, {percent(1, 10)});
    manager().updateDeviceFileTransferProgressRecord(other, {percent(2, 20)});
    Progress record;
    QVERIFY(manager().findDeviceFileTransferProgressRecord(one, record));
    QCOMPARE(quoted(record.percents), QStringLiteral("6/1/1:10%/2"));
    QVERIFY(manager().findDeviceFileTransferProgressRecord(other, record));
    QCOMPARE(quoted(record.percents), QStringLiteral("6/2/1:20%/2"));
    QCOMPARE(record.device.lock(), other);
}

void tst_TransferProgress::resetEmptiesTheRecordAndKeepsIt()
{
    const auto device = makeDevice();
    const Journal journal;
    manager().updateDeviceFileTransferProgressRecord(device, {percent(1, 10)});
    manager().resetDeviceFileTransferProgressRecord(device);
    Progress record = untouched(device);
    QVERIFY(manager().findDeviceFileTransferProgressRecord(device, record));
    QCOMPARE(record.device.lock(), device);
    QVERIFY(record.percents.empty());
    QVERIFY(!record.isTransferring);
    QVERIFY(journal.lines().isEmpty());
}

void tst_TransferProgress::resetTakesANewTime()
{
    const auto device = makeDevice();
    manager().updateDeviceFileTransferProgressRecord(device, {percent(1, 10)});
    Progress record;
    QVERIFY(manager().findDeviceFileTransferProgressRecord(device, record));
    while (now() == record.lastTime) { } // at most a millisecond
    manager().resetDeviceFileTransferProgressRecord(device);
    Progress later;
    QVERIFY(manager().findDeviceFileTransferProgressRecord(device, later));
    QVERIFY(later.lastTime > record.lastTime);
}

void tst_TransferProgress::reportAfterAResetUpdatesTheSameRecord()
{
    const auto device = makeDevice();
    manager().updateDeviceFileTransferProgressRecord(device, {percent(1, 10), percent(2, 20)});
    manager().resetDeviceFileTransferProgressRecord(device);
    manager().updateDeviceFileTransferProgressRecord(device, {percent(3, 30)});
    Progress record;
    QVERIFY(manager().findDeviceFileTransferProgressRecord(device, record));
    QCOMPARE(quoted(record.percents), QStringLiteral("6/3/1:30%/2"));
    QVERIFY(record.isTransferring);

    // If there were a second record, the reset would leave its percentage.
    manager().resetDeviceFileTransferProgressRecord(device);
    QVERIFY(manager().findDeviceFileTransferProgressRecord(device, record));
    QVERIFY(record.percents.empty());
}

void tst_TransferProgress::resetOfADeviceWithoutARecordAddsNone()
{
    const auto device = makeDevice();
    const Journal journal;
    manager().resetDeviceFileTransferProgressRecord(device);
    Progress record = untouched(device);
    QVERIFY(!manager().findDeviceFileTransferProgressRecord(device, record));
    QVERIFY(isUntouched(record, device));
    QVERIFY(journal.lines().isEmpty());
}

void tst_TransferProgress::resetDoesNotChangeOtherDevices()
{
    const auto one = makeDevice();
    const auto other = makeDevice();
    manager().updateDeviceFileTransferProgressRecord(one, {percent(1, 10)});
    manager().updateDeviceFileTransferProgressRecord(other, {percent(2, 20)});
    manager().resetDeviceFileTransferProgressRecord(other);
    Progress record;
    QVERIFY(manager().findDeviceFileTransferProgressRecord(one, record));
    QVERIFY(record.isTransferring);
    QCOMPARE(quoted(record.percents), QStringLiteral("6/1/1:10%/2"));
}

void tst_TransferProgress::expiredDeviceIsLoggedByAllThree()
{
    Journal journal;
    const QStringList warning =
        textLines({"warning: Update file transfer progress array failed. Device is nullptr. "});
    const auto takeLines = [&journal] {
        const QStringList lines = journal.lines();
        journal.clear();
        return lines;
    };
    const std::weak_ptr<BizModel::Device> expired;

    const auto device = makeDevice();
    Progress record = untouched(device);
    QVERIFY(!manager().findDeviceFileTransferProgressRecord(expired, record));
    QVERIFY(isUntouched(record, device));
    QCOMPARE(takeLines(), warning);
    manager().updateDeviceFileTransferProgressRecord(expired, {percent(1, 10)});
    QCOMPARE(takeLines(), warning);
    manager().resetDeviceFileTransferProgressRecord(expired);
    QCOMPARE(takeLines(), warning);
}

void tst_TransferProgress::recordOfAGoneDeviceMatchesNothing()
{
    auto gone = makeDevice();
    const std::weak_ptr<BizModel::Device> weakGone = gone;
    manager().updateDeviceFileTransferProgressRecord(gone, {percent(1, 10)});
    gone.reset();
    QVERIFY(weakGone.expired());

    const Journal journal;
    Progress record;
    QVERIFY(!manager().findDeviceFileTransferProgressRecord(weakGone, record));
    const auto device = makeDevice();
    QVERIFY(!manager().findDeviceFileTransferProgressRecord(device, record));
    manager().updateDeviceFileTransferProgressRecord(device, {percent(2, 20)});
    QVERIFY(manager().findDeviceFileTransferProgressRecord(device, record));
    QCOMPARE(quoted(record.percents), QStringLiteral("6/2/1:20%/2"));
}

// One thread reports, like the manager's thread; others find and reset records meanwhile.
void tst_TransferProgress::recordsAreUsedFromManyThreadsAtOnce()
{
    constexpr int rounds = 400;
    const auto device = makeDevice();
    const auto other = makeDevice();
    manager().updateDeviceFileTransferProgressRecord(device, {percent(0, 0)});
    std::atomic<bool> isOver{false};
    std::atomic<int> torn{0};

    std::thread asking([&] {
        Progress record;
        while (!isOver) {
            const bool found = manager().findDeviceFileTransferProgressRecord(device, record);
            // Both figures come from the same report; after a reset both are missing.
            const bool isWhole =
                std::all_of(record.percents.begin(), record.percents.end(),
                            [](const Percent &p) { return p.fileId == p.percent; });
            if (!found || !isWhole || record.percents.empty() == record.isTransferring)
                ++torn;
        }
    });
    std::thread resetting([&] {
        while (!isOver) {
            manager().resetDeviceFileTransferProgressRecord(device);
            manager().resetDeviceFileTransferProgressRecord(other);
        }
    });
    for (int round = 1; round <= rounds; ++round) {
        manager().updateDeviceFileTransferProgressRecord(
            device, Percents(std::size_t(round % 5 + 1), percent(round, round)));
        manager().updateDeviceFileTransferProgressRecord(makeDevice(), {percent(1, 1)});
    }
    isOver = true;
    asking.join();
    resetting.join();
    QCOMPARE(torn.load(), 0);
    Progress record;
    QVERIFY(manager().findDeviceFileTransferProgressRecord(device, record));
}

QTEST_GUILESS_MAIN(tst_TransferProgress)
#include "tst_transferprogress.moc"
