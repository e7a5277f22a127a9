#include <support/tavorobizmodel/storedmodel.h>

#include <QSemaphore>
#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <memory>

using namespace Tavoro;

/// The thread that saves devices, and its jobs.
class tst_DeviceSaver : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void emptyPointerIsNothingToSave();
    void stoppedSaverKeepsItsJobs();
    void waitingForAnIdleSaverReturnsAtOnce();
    void waitingForABusySaverReturnsWhenItIsDone();
    void waitingInASlotOfTheSaverReturnsAtOnce();
    void closingDoesTheJobs();
    void closingDropsTheJobsOfAStoppedSaver();
    void devicesThatAreRemovedTogetherAreForgotten();
    void deviceRemovedAndAppendedAgainWhilePausedIsSaved();
    void deviceAppendedAndRemovedAgainWhilePausedIsForgotten();
    void deviceThatIsGoneBeforeItsSaveStaysForgotten();
    void saverResumesWhenEveryPauseHasEnded();
    void endOfAPauseThatNeverBeganChangesNothing();

private:
    QString file() const { return m_folder->filePath(QStringLiteral("devices.sqlite")); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_DeviceSaver::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void tst_DeviceSaver::emptyPointerIsNothingToSave()
{
    const StoredModel model(file());
    const StoreSignals caught;
    model.list->saveDeviceDataThread()->saveDevicesInfor({});
    model.save(ModelRecords::device());
    QCOMPARE(caught.saved.size(), 1);
}

void tst_DeviceSaver::stoppedSaverKeepsItsJobs()
{
    const StoredModel model(file());
    auto *const saver = model.list->saveDeviceDataThread();
    const auto first = ModelRecords::device(1);
    const auto second = ModelRecords::device(2);
    model.save(first);
    saver->setTemporaryStop(true);
    saver->waitForSavingDataFinished();
    const StoreSignals caught;
    saver->saveDevicesInfor(second);
    saver->saveDevicesInfor(second);
    saver->saveDevicesInfor(first);
    saver->waitForSavingDataFinished();
    QCoreApplication::processEvents();
    QVERIFY(caught.saved.isEmpty());
    saver->setTemporaryStop(false);
    QTRY_COMPARE(caught.saved, (QList<std::shared_ptr<BizModel::Device>>{second, first}));
}

void tst_DeviceSaver::waitingForAnIdleSaverReturnsAtOnce()
{
    const StoredModel model(file());
    model.list->saveDeviceDataThread()->waitForSavingDataFinished();
    QVERIFY(model.list->saveDeviceDataThread());
}

void tst_DeviceSaver::waitingForABusySaverReturnsWhenItIsDone()
{
    const StoredModel model(file());
    auto *const saver = model.list->saveDeviceDataThread();
    QSemaphore begun;
    std::atomic<bool> isDone{false};
    QObject onSaversThread;
    connect(
        model.list, &BizModel::DeviceList::signalDeviceDataSaved, &onSaversThread,
        [&] {
            begun.release();
            QSemaphore never;
            never.tryAcquire(1, 200); // a caller that does not wait would have returned by now
            isDone = true;
        },
        Qt::DirectConnection);
    const auto device = ModelRecords::device();
    saver->saveDevicesInfor(device);
    begun.acquire();
    saver->waitForSavingDataFinished();
    QVERIFY(isDone);
}

void tst_DeviceSaver::waitingInASlotOfTheSaverReturnsAtOnce()
{
    const StoredModel model(file());
    auto *const saver = model.list->saveDeviceDataThread();
    QSemaphore returned;
    QObject onSaversThread;
    connect(
        model.list, &BizModel::DeviceList::signalDeviceDataSaved, &onSaversThread,
        [&] {
            saver->waitForSavingDataFinished();
            returned.release();
        },
        Qt::DirectConnection);
    const auto device = ModelRecords::device();
    saver->saveDevicesInfor(device);
    QVERIFY(returned.tryAcquire(1, 10000));
}

void tst_DeviceSaver::closingDropsTheJobsOfAStoppedSaver()
{
    const auto device = ModelRecords::device();
    {
        const StoredModel model(file());
        model.list->saveDeviceDataThread()->setTemporaryStop(true);
        model.list->saveDeviceDataThread()->saveDevicesInfor(device);
    }
    QVERIFY(!BizModel::DeviceList::instance()->saveDeviceDataThread());
    {
        const StoredModel model(file());
        model.list->saveDeviceDataThread()->setTemporaryStop(false);
    }
    const StoredModel model(file());
    QVERIFY(model.list->devices().isEmpty());
}

void tst_DeviceSaver::closingDoesTheJobs()
{
    const auto device = ModelRecords::device();
    {
        const StoredModel model(file());
        model.list->saveDeviceDataThread()->saveDevicesInfor(device);
    }
    const StoredModel model(file());
    QVERIFY(model.onlyDevice());
}

void tst_DeviceSaver::devicesThatAreRemovedTogetherAreForgotten()
{
    {
        const StoredModel model(file());
        const auto first = ModelRecords::device(1);
        const auto second = ModelRecords::device(2);
        for (const auto &device : {first, second}) {
            model.list->append(device);
            model.save(device);
        }
        model.list->saveDeviceDataThread()->setTemporaryStop(true);
        QVERIFY(model.list->remove(first));
        QVERIFY(model.list->remove(second));
        model.list->saveDeviceDataThread()->setTemporaryStop(false);
    }
    const StoredModel model(file());
    QVERIFY(model.list->devices().isEmpty());
}

void tst_DeviceSaver::deviceRemovedAndAppendedAgainWhilePausedIsSaved()
{
    const auto device = ModelRecords::device();
    {
        const StoredModel model(file());
        auto *const saver = model.list->saveDeviceDataThread();
        saver->setTemporaryStop(true);
        model.list->append(device);
        saver->saveDevicesInfor(device);
        QVERIFY(model.list->remove(device));
        model.list->append(device);
        saver->saveDevicesInfor(device);
        saver->setTemporaryStop(false);
    }
    const StoredModel model(file());
    QVERIFY(model.onlyDevice());
}

void tst_DeviceSaver::deviceAppendedAndRemovedAgainWhilePausedIsForgotten()
{
    const auto device = ModelRecords::device();
    {
        const StoredModel model(file());
        auto *const saver = model.list->saveDeviceDataThread();
        model.list->append(device);
        model.save(device);
        saver->setTemporaryStop(true);
        QVERIFY(model.list->remove(device));
        model.list->append(device);
        saver->saveDevicesInfor(device);
        QVERIFY(model.list->remove(device));
        saver->setTemporaryStop(false);
    }
    const StoredModel model(file());
    QVERIFY(model.list->devices().isEmpty());
}

void tst_DeviceSaver::deviceThatIsGoneBeforeItsSaveStaysForgotten()
{
    {
        const StoredModel model(file());
        auto *const saver = model.list->saveDeviceDataThread();
        auto device = ModelRecords::device();
        model.list->append(device);
        model.save(device);
        saver->setTemporaryStop(true);
        QVERIFY(model.list->remove(device));
        saver->saveDevicesInfor(device);
        device.reset();
        saver->setTemporaryStop(false);
    }
    const StoredModel model(file());
    QVERIFY(model.list->devices().isEmpty());
}

void tst_DeviceSaver::saverResumesWhenEveryPauseHasEnded()
{
    const StoredModel model(file());
    auto *const saver = model.list->saveDeviceDataThread();
    const auto device = ModelRecords::device();
    saver->setTemporaryStop(true);
    saver->setTemporaryStop(true);
    saver->saveDevicesInfor(device);
    saver->setTemporaryStop(false);
    model.list->closeDeviceStore(); // drops the jobs of a paused saver
    saver->setTemporaryStop(false);
    const StoredModel next(file());
    QVERIFY(next.list->devices().isEmpty());
    next.save(device);
}

void tst_DeviceSaver::endOfAPauseThatNeverBeganChangesNothing()
{
    const StoredModel model(file());
    auto *const saver = model.list->saveDeviceDataThread();
    const auto device = ModelRecords::device();
    saver->setTemporaryStop(false);
    saver->setTemporaryStop(true);
    saver->saveDevicesInfor(device);
    model.list->closeDeviceStore();
    saver->setTemporaryStop(false);
    const StoredModel next(file());
    QVERIFY(next.list->devices().isEmpty());
}

QTEST_GUILESS_MAIN(tst_DeviceSaver)
#include "tst_devicesaver.moc"
