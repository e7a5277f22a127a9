#include <support/common/messagecatcher.h>
#include <support/tavorobizmodel/modeltext.h>
#include <support/tavorobizmodel/rowtext.h>
#include <support/tavorobizmodel/storedmodel.h>
#include <support/tavorobizmodel/storefile.h>
#include <support/tavorosim/simulatedsync.h>

#include <tavorobizmodel/mvrscreen.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/interface.h>
#include <tavorossproxy/devicemanager.h>

#include <QTemporaryDir>
#include <QtTest>

using namespace Tavoro;

/// Synchronisations of a simulated device while a store of devices is open.
class tst_SyncStore : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void storedRowsAreWhatTheModelHolds();
    void nextRunHasWhatTheModelHeld();
    void secondSynchronisationWritesOnlyWhatChanged();
    void deviceOfTheLastRunIsFilledInItsPlace();
    void deviceOfTheLastRunTakesWritesAndAnswersNoRead();
    void deviceOfTheLastRunIsNotReadWithoutAChannel();

private:
    QString file() const { return m_folder->filePath(QStringLiteral("devices.sqlite")); }
    /// One column of the rows of a kind, in hexadecimal digits, in the order of the model.
    QStringList column(const QString &name, int kind) const;
    /// The records of a kind, in the order of the model.
    QStringList records(int kind) const;

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

/// A synchronisation, and the save that ends it.
bool readAndSave(SimulatedSync &sync)
{
    const StoreSignals emitted;
    const bool isRead = sync.run();
    return isRead && QTest::qWaitFor([&] { return !emitted.saved.isEmpty(); })
        && emitted.saved.first() == sync.listed();
}

/// Puts a logo, a preset with its content and a file whose content is not fetched onto the device.
bool importFiles(SimulatedSync &sync)
{
    using namespace std::string_literals;
    return sync.import(2, 1, "\0\xFF\"{\r\n"s) && sync.import(12, 4, std::string(100000, 'z'))
        && sync.import(10, 2, "a log");
}

} // namespace

void tst_SyncStore::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

QStringList tst_SyncStore::column(const QString &name, int kind) const
{
    return StoreFile(file()).query(
        QStringLiteral("SELECT lower(hex(%1)) FROM record WHERE kind = %2 ORDER BY position")
            .arg(name)
            .arg(kind));
}

QStringList tst_SyncStore::records(int kind) const
{
    QStringList texts;
    const auto bodies = column(QStringLiteral("body"), kind);
    for (const QString &body : bodies)
        texts << RowText::of(QByteArray::fromHex(body.toLatin1()));
    return texts;
}

void tst_SyncStore::storedRowsAreWhatTheModelHolds()
{
    const MessageCatcher quiet;
    SimulatedSync sync;
    QVERIFY(importFiles(sync));
    std::unique_ptr<ModelText> held;
    {
        const StoredModel model(file());
        QVERIFY2(model.isOpen, qPrintable(model.error));
        QVERIFY(readAndSave(sync));
        held = std::make_unique<ModelText>(*sync.listed());
    }
    QCOMPARE(held->interfaces.size(), 16);
    QCOMPARE(held->screens.size(), 4);
    QCOMPARE(held->layers.size(), 32);
    QCOMPARE(records(1), QStringList(held->detail));
    QCOMPARE(records(2), held->interfaces);
    QCOMPARE(records(3), held->screens);
    QCOMPARE(records(4), held->layers);
    QCOMPARE(records(5), held->files);
    QCOMPARE(column(QStringLiteral("content"), 5), held->contents);
}

void tst_SyncStore::nextRunHasWhatTheModelHeld()
{
    const MessageCatcher quiet;
    SimulatedSync sync;
    QVERIFY(importFiles(sync));
    QStringList held;
    {
        const StoredModel model(file());
        QVERIFY(readAndSave(sync));
        QVERIFY(sync.listed()->isOnline());
        held = ModelText(*sync.listed()).all();
    }
    QVERIFY(!sync.listed());
    const StoredModel model(file());
    QVERIFY(sync.listed());
    QVERIFY(!sync.listed()->isOnline());
    QCOMPARE(ModelText(*sync.listed()).all(), held);
    const auto layers = sync.listed()->layers();
    for (const auto &layer : layers)
        QVERIFY(layer.lock()->screen().lock());
}

void tst_SyncStore::secondSynchronisationWritesOnlyWhatChanged()
{
    const MessageCatcher quiet;
    SimulatedSync sync;
    QVERIFY(importFiles(sync));
    const StoredModel model(file());
    QVERIFY(readAndSave(sync));
    const StoreFile store(file());
    store.watchWrites();
    QVERIFY(readAndSave(sync));
    QCOMPARE(store.writes(), QStringList());

    ProtoModel::Interface::s_General renamed;
    const auto input = sync.listed()->findInterface({1, 2, 0}).lock();
    QVERIFY(input);
    renamed.connectorId = 2;
    renamed.slotId = 1;
    renamed.general = input->detail().general;
    renamed.general.name = "renamed";
    QString error;
    QVERIFY(Control::Interface(sync.connection.model).writeInterfaceGeneral({renamed}, error));
    QVERIFY(readAndSave(sync));
    QCOMPARE(store.writes(), QStringList(QStringLiteral("UPDATE 2 1/2/0/0/0")));
}

void tst_SyncStore::deviceOfTheLastRunIsFilledInItsPlace()
{
    const MessageCatcher quiet;
    SimulatedSync sync;
    {
        const StoredModel model(file());
        QVERIFY(readAndSave(sync));
    }
    const StoredModel model(file());
    const auto restored = sync.listed();
    QVERIFY(restored);
    const auto multiviewer = [&restored] {
        return std::dynamic_pointer_cast<BizModel::MVRScreen>(restored->screens(8).first().lock());
    };
    multiviewer()->setRowColSpan({5, 2});
    QVERIFY(readAndSave(sync));
    QCOMPARE(multiviewer()->rowColSpan(), QSize(5, 2));
    QCOMPARE(model.onlyDevice(), restored);
    QVERIFY(restored->isOnline());
    QVERIFY(restored->isSyncDataSuccess());
    QCOMPARE(restored->layers().size(), 32);
}

void tst_SyncStore::deviceOfTheLastRunTakesWritesAndAnswersNoRead()
{
    const MessageCatcher quiet;
    SimulatedSync sync;
    {
        const StoredModel model(file());
        QVERIFY(readAndSave(sync));
    }
    const StoredModel model(file());
    const QString name = sync.listed()->name();
    sync.connection.channel->stopChannel();
    SSProxy::DeviceManager::instance()->removeDeviceChannel(sync.connection.channel);
    QString error = QStringLiteral("text from before");
    Control::Device device(sync.listed());
    QVERIFY(device.writeDeviceGeneral({{"East", 1}}, error));
    QCOMPARE(error, QStringLiteral("text from before"));
    QCOMPARE(sync.listed()->name(), name);

    ProtoModel::Device::s_DeviceDetail detail;
    QVERIFY(!device.readDetails(detail, error));
    QCOMPARE(error,
             QStringLiteral("Decode json failed: error at line :0 col :0 "
                            "msg:read object must start with {!"));
}

void tst_SyncStore::deviceOfTheLastRunIsNotReadWithoutAChannel()
{
    const MessageCatcher quiet;
    SimulatedSync sync;
    {
        const StoredModel model(file());
        QVERIFY(readAndSave(sync));
    }
    const StoredModel model(file());
    const QStringList held = ModelText(*sync.listed()).all();
    sync.connection.channel->stopChannel();
    SSProxy::DeviceManager::instance()->removeDeviceChannel(sync.connection.channel);
    Control::DeviceList reader(nullptr);
    QString error;
    QVERIFY(!reader.readDeviceDetail(sync.listed(), error));
    QVERIFY(!sync.listed()->isOnline());
    QCOMPARE(ModelText(*sync.listed()).all(), held);
}

QTEST_GUILESS_MAIN(tst_SyncStore)
#include "tst_syncstore.moc"
