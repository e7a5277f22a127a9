#include <support/common/filecontent.h>
#include <support/common/messagecatcher.h>
#include <support/tavorobizmodel/faultyvfs.h>
#include <support/tavorobizmodel/storedstates.h>

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>

using namespace StoredStates;

namespace {

/// Runs in a child process: saves the new state and is killed at the \a number-th operation. Prints
/// the number of operations if it survives.
int saveAsChild(const QString &fileName, FaultyVfs::Fault fault, int number)
{
    StoredModel model(fileName);
    const auto changed = deviceIn(New);
    FaultyVfs::arm(fault, number);
    model.save(changed);
    std::printf("%d\n", FaultyVfs::operations());
    return 0;
}

/// Runs in a child process: requests a save of the new state and ends without closing the store.
int leaveAsChild(const QString &fileName)
{
    auto *const list = Tavoro::BizModel::DeviceList::instance();
    Tavoro::BizModel::s_DeviceStoreOptions options;
    options.fileName = fileName;
    QString error;
    if (!list->openDeviceStore(options, error))
        return 1;
    list->saveDeviceDataThread()->saveDevicesInfor(list->append(deviceIn(New)));
    return 0;
}

} // namespace

/// A disk that fails, and a process that is killed during a save.
class tst_DeviceStoreFaults : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void killedSaveLeavesTheLastCompleteOne_data();
    void killedSaveLeavesTheLastCompleteOne();
    void endOfTheApplicationDoesTheSaves();
    void fullDiskIsReportedAndTheSaveRetried();
    void failedSaveWaitsForItsTimeOrTheEnd();
    void fullDiskLeavesTheLastCompleteSave();
    void readOnlyFileIsRefused();
};

void tst_DeviceStoreFaults::killedSaveLeavesTheLastCompleteOne_data()
{
    QTest::addColumn<int>("fault");
    QTest::newRow("between operations") << int(FaultyVfs::Fault::Kill);
    QTest::newRow("within a write") << int(FaultyVfs::Fault::KillHalfway);
}

void tst_DeviceStoreFaults::killedSaveLeavesTheLastCompleteOne()
{
    QFETCH(int, fault);
    const QTemporaryDir folder;
    int last = Old;
    int killed = 0;
    for (int number = 1;; ++number) {
        const QString file = folder.filePath(QStringLiteral("%1.sqlite").arg(number));
        {
            const StoredModel model(file);
            model.save(deviceIn(Old));
        }
        QProcess child;
        child.start(
            QCoreApplication::applicationFilePath(),
            {QStringLiteral("--save"), file, QString::number(fault), QString::number(number)});
        QVERIFY(child.waitForFinished());
        const bool isKilled = child.exitStatus() == QProcess::CrashExit;
        killed += isKilled;

        const StoreSignals caught;
        const StoredModel model(file);
        QVERIFY2(model.isOpen, qPrintable(model.error));
        QCoreApplication::processEvents();
        QCOMPARE(caught.quarantined, QStringList());
        QVERIFY(model.onlyDevice());
        const State state = stateOf(*model.onlyDevice());
        QVERIFY2(state == Old || state == New, qPrintable(QString::number(number)));
        QVERIFY(state >= last); // a save stays complete at every later operation
        last = state;
        const int operations = child.readAllStandardOutput().trimmed().toInt();
        if (!isKilled && number > operations)
            break;
    }
    QCOMPARE(last, int(New));
    QVERIFY(killed > 10);
}

void tst_DeviceStoreFaults::endOfTheApplicationDoesTheSaves()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("devices.sqlite"));
    QProcess child;
    child.start(QCoreApplication::applicationFilePath(), {QStringLiteral("--leave"), file});
    QVERIFY(child.waitForFinished());
    QCOMPARE(child.exitStatus(), QProcess::NormalExit);
    QCOMPARE(child.exitCode(), 0);
    QCOMPARE(child.readAllStandardError(), QByteArray()); // no warning about an open database
    const StoredModel model(file);
    QVERIFY(model.onlyDevice());
    QCOMPARE(stateOf(*model.onlyDevice()), New);
}

void tst_DeviceStoreFaults::fullDiskIsReportedAndTheSaveRetried()
{
    const QTemporaryDir folder;
    const StoredModel model(folder.filePath(QStringLiteral("devices.sqlite")), 20);
    const StoreSignals caught;
    const auto changed = deviceIn(New);
    FaultyVfs::arm(FaultyVfs::Fault::DiskFull, 1);
    model.list->saveDeviceDataThread()->saveDevicesInfor(changed);
    const auto other = ModelRecords::device(2);
    model.list->saveDeviceDataThread()->saveDevicesInfor(other);
    QTRY_VERIFY(caught.failures.size() >= 2);
    QVERIFY(caught.failures[0].contains(QStringLiteral("full")));
    QVERIFY(caught.saved.isEmpty());
    FaultyVfs::arm(FaultyVfs::Fault::None, 0);
    QTRY_COMPARE(caught.saved, (QList<std::shared_ptr<StoredModel::Device>>{changed, other}));
}

void tst_DeviceStoreFaults::failedSaveWaitsForItsTimeOrTheEnd()
{
    const MessageCatcher quiet;
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("devices.sqlite"));
    const auto changed = deviceIn(New);
    {
        const StoredModel model(file, 600000);
        const StoreSignals caught;
        FaultyVfs::arm(FaultyVfs::Fault::DiskFull, 1);
        model.list->saveDeviceDataThread()->saveDevicesInfor(changed);
        QTRY_COMPARE(caught.failures.size(), 1);
        FaultyVfs::arm(FaultyVfs::Fault::None, 0);
        QTest::qWait(100); // a saver that does not wait would have saved by now
        QCOMPARE(caught.failures.size(), 1);
        QCOMPARE(FaultyVfs::operations(), 0);
    }
    const StoredModel model(file);
    QVERIFY(model.onlyDevice());
    QCOMPARE(stateOf(*model.onlyDevice()), New);
}

void tst_DeviceStoreFaults::fullDiskLeavesTheLastCompleteSave()
{
    const MessageCatcher quiet;
    const QTemporaryDir folder;
    int failed = 0;
    int operations = 1; // of a save; counted in round 0
    for (int number = 0; number <= operations; ++number) {
        const QString file = folder.filePath(QStringLiteral("%1.sqlite").arg(number));
        const StoreSignals caught;
        {
            const StoredModel model(file);
            model.save(deviceIn(Old));
            QTRY_COMPARE(caught.saved.size(), 1);
            const auto changed = deviceIn(New);
            FaultyVfs::arm(number ? FaultyVfs::Fault::DiskFull : FaultyVfs::Fault::None, number);
            model.list->saveDeviceDataThread()->saveDevicesInfor(changed);
            QTRY_COMPARE(caught.saved.size() + caught.failures.size(), 2);
            operations = number ? operations : FaultyVfs::operations();
            model.list->saveDeviceDataThread()->setTemporaryStop(
                true); // no further attempt at the end
        }
        FaultyVfs::arm(FaultyVfs::Fault::None, 0);
        const StoredModel model(file);
        model.list->saveDeviceDataThread()->setTemporaryStop(false);
        QVERIFY(model.onlyDevice());
        const State expected = caught.failures.isEmpty() ? New : Old;
        QVERIFY2(stateOf(*model.onlyDevice()) == expected, qPrintable(QString::number(number)));
        failed += expected == Old;
    }
    QVERIFY(failed > 3);
}

void tst_DeviceStoreFaults::readOnlyFileIsRefused()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("devices.sqlite"));
    {
        const StoredModel model(file);
        model.save(deviceIn(New));
    }
    const QByteArray before = contentOf(file);
    FaultyVfs::arm(FaultyVfs::Fault::ReadOnly, 0);
    {
        const StoredModel model(file);
        FaultyVfs::arm(FaultyVfs::Fault::None, 0);
        QVERIFY(!model.isOpen);
        QCOMPARE(model.error,
                 QStringLiteral("attempt to write a readonly database Unable to fetch row"));
        QVERIFY(model.list->devices().isEmpty());
    }
    QCOMPARE(contentOf(file), before);
    const StoredModel model(file);
    QVERIFY(model.onlyDevice());
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    FaultyVfs::install();
    const QStringList arguments = application.arguments();
    if (arguments.size() == 5 && arguments[1] == QLatin1String("--save"))
        return saveAsChild(arguments[2], FaultyVfs::Fault(arguments[3].toInt()),
                           arguments[4].toInt());
    if (arguments.size() == 3 && arguments[1] == QLatin1String("--leave"))
        return leaveAsChild(arguments[2]);
    tst_DeviceStoreFaults test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_devicestorefaults.moc"
