#include <support/tavorobizmodel/modelrecords.h>

#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/deviceupdate.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>

#include <QMetaMethod>
#include <QSignalSpy>
#include <QThread>
#include <QtTest>

using Tavoro::BizModel::Device;
using Tavoro::BizModel::DeviceList;

namespace {

std::shared_ptr<Device> found(const QString &ip, const QString &mac, const QString &sn)
{
    return DeviceList::instance()->findDevice(ip, mac, sn).lock();
}

} // namespace

/// The list of all devices.
class tst_BizModelList : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();
    void deviceIsFoundByItsWholeIdentity();
    void deviceIsFoundAsSoonAsItIsAppended();
    void otherDevicesAreFoundWhileOneComesAndGoes();
    void deviceIsFoundByItsNewIdentity();
    void deviceThatReturnsIsFoundByItsNewIdentity();
    void replacedDeviceThatChangesIsNotFound();
    void deviceIsFoundByTheIdentityOfItsChannel();
    void deviceIsInTheListOnce();
    void deviceOfTheSameIdentityIsReplaced();
    void deviceThatMovedKeepsItsCropsWithoutASignal();
    void devicesWithoutNumbersAreDistinguishedByAddress();
    void nullIsNotAppended();
    void removedDeviceIsGone();
    void thereIsNoSaverWithoutAStore();
    void everyTypeInSignalsIsRegistered();
    void signalOfAnotherThreadArrivesOnThisOne();
    void whatAnotherThreadMakesLivesOnTheApplicationsThread();
};

void tst_BizModelList::cleanup()
{
    const auto devices = DeviceList::instance()->devices();
    for (const auto &device : devices)
        DeviceList::instance()->remove(device);
}

void tst_BizModelList::deviceIsFoundByItsWholeIdentity()
{
    const auto device = ModelRecords::device(0xAB);
    DeviceList::instance()->append(device);
    const auto ip = QStringLiteral("192.0.2.171");
    const auto mac = QStringLiteral("0000000000AB");
    const auto sn = QStringLiteral("00000000000000AB");
    QCOMPARE(found(ip, mac, sn), device);
    QVERIFY(!found(QStringLiteral("192.0.2.172"), mac, sn));
    QVERIFY(!found(ip, QStringLiteral("0000000000AC"), sn));
    QVERIFY(!found(ip, mac, QStringLiteral("00000000000000AC")));
}

// A previous search for it makes no difference.
void tst_BizModelList::deviceIsFoundAsSoonAsItIsAppended()
{
    const auto device = ModelRecords::device();
    QVERIFY(!found(device->IPAddress(), device->MAC(), device->sn()));
    DeviceList::instance()->append(device);
    QCOMPARE(found(device->IPAddress(), device->MAC(), device->sn()), device);
}

void tst_BizModelList::otherDevicesAreFoundWhileOneComesAndGoes()
{
    const auto stays = ModelRecords::device(1);
    const auto goes = ModelRecords::device(2);
    const auto isFound = [](const std::shared_ptr<Device> &device) {
        return found(device->IPAddress(), device->MAC(), device->sn()) == device;
    };
    DeviceList::instance()->append(stays);
    QVERIFY(isFound(stays));
    DeviceList::instance()->append(goes);
    QVERIFY(isFound(stays));
    QVERIFY(isFound(goes));
    DeviceList::instance()->remove(goes);
    QVERIFY(isFound(stays));
    QVERIFY(!isFound(goes));
}

void tst_BizModelList::deviceIsFoundByItsNewIdentity()
{
    const auto device = ModelRecords::device(1);
    DeviceList::instance()->append(device);
    QVERIFY(found(QStringLiteral("192.0.2.1"), device->MAC(), device->sn()));
    device->setIPAddress(QStringLiteral("192.0.2.99"));
    QVERIFY(!found(QStringLiteral("192.0.2.1"), device->MAC(), device->sn()));
    QCOMPARE(found(QStringLiteral("192.0.2.99"), device->MAC(), device->sn()), device);
}

void tst_BizModelList::deviceThatReturnsIsFoundByItsNewIdentity()
{
    const auto device = ModelRecords::device(1);
    const auto isFound = [&] {
        return found(device->IPAddress(), device->MAC(), device->sn()) == device;
    };
    DeviceList::instance()->append(device);
    DeviceList::instance()->remove(device);
    device->setIPAddress(QStringLiteral("192.0.2.99"));
    QVERIFY(!isFound());
    DeviceList::instance()->append(device);
    QVERIFY(isFound());
    device->setIPAddress(QStringLiteral("192.0.2.98"));
    QVERIFY(isFound());
}

void tst_BizModelList::replacedDeviceThatChangesIsNotFound()
{
    const auto replaced = ModelRecords::device(1);
    const auto present = ModelRecords::device(1);
    DeviceList::instance()->append(replaced);
    DeviceList::instance()->append(present);
    replaced->setIPAddress(QStringLiteral("192.0.2.99"));
    QVERIFY(!found(QStringLiteral("192.0.2.99"), replaced->MAC(), replaced->sn()));
    present->setIPAddress(QStringLiteral("192.0.2.98"));
    QCOMPARE(found(QStringLiteral("192.0.2.98"), present->MAC(), present->sn()), present);
}

void tst_BizModelList::deviceIsFoundByTheIdentityOfItsChannel()
{
    const auto device = ModelRecords::device(1);
    DeviceList::instance()->append(device);
    QVERIFY(found(device->IPAddress(), device->MAC(), device->sn()));
    device->updateDeviceBaseInfo(ModelRecords::device(2)->deviceBaseInfo());
    QCOMPARE(device->sn(), QStringLiteral("0000000000000002"));
    QCOMPARE(found(device->IPAddress(), device->MAC(), device->sn()), device);
    Tavoro::BizModel::s_DeviceReading reading;
    reading.baseInfo = ModelRecords::device(3)->deviceBaseInfo();
    QString error;
    QVERIFY2(updateDevice(*device, reading, error), qPrintable(error));
    QCOMPARE(device->sn(), QStringLiteral("0000000000000003"));
    QCOMPARE(found(device->IPAddress(), device->MAC(), device->sn()), device);
}

void tst_BizModelList::deviceIsInTheListOnce()
{
    const QSignalSpy spy(DeviceList::instance(), &DeviceList::signalDeviceAppended);
    const auto device = ModelRecords::device();
    QCOMPARE(DeviceList::instance()->append(device).lock(), device);
    QCOMPARE(DeviceList::instance()->append(device).lock(), device);
    QCOMPARE(DeviceList::instance()->devices().size(), 1);
    QCOMPARE(spy.size(), 1);
}

void tst_BizModelList::deviceOfTheSameIdentityIsReplaced()
{
    auto *const list = DeviceList::instance();
    const auto readFirst = ModelRecords::device(1);
    const auto other = ModelRecords::device(2);
    const auto readLast = ModelRecords::device(1);
    const auto moved = ModelRecords::device(1);
    moved->setIPAddress(QStringLiteral("198.51.100.7"));
    list->append(readFirst);
    list->append(other);
    QStringList signalLines;
    const auto log = [&](const char *what, const std::weak_ptr<Device> &device) {
        signalLines << QLatin1String(what)
                + (device.lock() == readFirst ? QStringLiteral("first") : QStringLiteral("last"));
    };
    QObject context;
    connect(list, &DeviceList::signalDeviceRemoved, &context,
            [&](const auto &device) { log("removed ", device); });
    connect(list, &DeviceList::signalDeviceAppended, &context,
            [&](const auto &device) { log("appended ", device); });
    QCOMPARE(list->append(readLast).lock(), readLast);
    const auto devices = list->devices();
    QCOMPARE(devices.size(), 2);
    QCOMPARE(devices.first().lock(), readLast);
    QCOMPARE(devices.last().lock(), other);
    QCOMPARE(found(readFirst->IPAddress(), readFirst->MAC(), readFirst->sn()), readLast);
    QCOMPARE(signalLines,
             (QStringList{QStringLiteral("removed first"), QStringLiteral("appended last")}));

    list->append(moved); // it was online at its old address until now
    QCOMPARE(list->devices().size(), 2);
    QCOMPARE(list->devices().first().lock(), moved);
}

void tst_BizModelList::deviceThatMovedKeepsItsCropsWithoutASignal()
{
    const auto former = ModelRecords::device();
    const auto input = former->findInterface({1, 2, 3}).lock();
    input->setActualTiming(ModelRecords::timing(1280, 720));
    input->updateLayerInputCrop();
    DeviceList::instance()->append(former);
    const auto moved = ModelRecords::device();
    moved->setIPAddress(QStringLiteral("198.51.100.7"));
    DeviceList::instance()->append(moved);
    QCOMPARE(moved->layers().last().lock()->detail().source.crop[0].rect.width, 640);
    QCOMPARE(moved->findInterface({1, 2, 3}).lock()->detail().crop.rect.width, 1280);
}

void tst_BizModelList::devicesWithoutNumbersAreDistinguishedByAddress()
{
    auto *const list = DeviceList::instance();
    for (const int address : {1, 2, 2}) {
        const auto device = ModelRecords::device(quint8(address));
        device->updateDeviceBaseInfo({});
        list->append(device);
    }
    QCOMPARE(list->devices().size(), 2);
}

void tst_BizModelList::nullIsNotAppended()
{
    QVERIFY(DeviceList::instance()->append(nullptr).expired());
    QVERIFY(DeviceList::instance()->devices().isEmpty());
}

void tst_BizModelList::removedDeviceIsGone()
{
    auto device = ModelRecords::device();
    const std::weak_ptr<Device> weak = device;
    DeviceList::instance()->append(device);
    QVERIFY(found(device->IPAddress(), device->MAC(), device->sn()));
    QVERIFY(DeviceList::instance()->remove(weak));
    QVERIFY(!DeviceList::instance()->remove(weak));
    QVERIFY(!found(device->IPAddress(), device->MAC(), device->sn()));
    device.reset();
    QVERIFY(weak.expired());
    QVERIFY(!DeviceList::instance()->remove(weak));
}

void tst_BizModelList::thereIsNoSaverWithoutAStore()
{
    QVERIFY(!DeviceList::instance()->saveDeviceDataThread());
}

void tst_BizModelList::everyTypeInSignalsIsRegistered()
{
    for (const QMetaObject *meta : {&DeviceList::staticMetaObject, &Device::staticMetaObject}) {
        for (int i = meta->methodOffset(); i < meta->methodCount(); ++i) {
            const QMetaMethod method = meta->method(i);
            for (int parameter = 0; parameter < method.parameterCount(); ++parameter)
                QVERIFY2(method.parameterType(parameter) != QMetaType::UnknownType,
                         method.methodSignature().constData());
        }
    }
}

void tst_BizModelList::signalOfAnotherThreadArrivesOnThisOne()
{
    const auto device = ModelRecords::device();
    int emitted = -1;
    const QThread *thread = nullptr;
    connect(device.get(), &Device::deviceDataChanged, this, [&](auto part) {
        emitted = part;
        thread = QThread::currentThread();
    });
    const std::unique_ptr<QThread> worker(
        QThread::create([&] { device->setDeviceOnlineFlag(true); }));
    worker->start();
    QVERIFY(worker->wait());
    QCOMPARE(emitted, -1);
    QTRY_COMPARE(emitted, 1);
    QCOMPARE(thread, QThread::currentThread());
}

void tst_BizModelList::whatAnotherThreadMakesLivesOnTheApplicationsThread()
{
    std::shared_ptr<Device> device;
    const std::unique_ptr<QThread> worker(
        QThread::create([&] { device = ModelRecords::device(); }));
    worker->start();
    QVERIFY(worker->wait());
    QCOMPARE(device->thread(), qApp->thread());
    QCOMPARE(device->findInterface({1, 2, 3}).lock()->thread(), qApp->thread());
    QCOMPARE(device->findScreen(1, 0).lock()->thread(), qApp->thread());
    QCOMPARE(device->layers().first().lock()->thread(), qApp->thread());
    QCOMPARE(device->files().first().lock()->thread(), qApp->thread());
}

QTEST_GUILESS_MAIN(tst_BizModelList)
#include "tst_bizmodellist.moc"
