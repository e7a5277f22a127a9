#include <support/common/messagecatcher.h>
#include <support/tavorobizmodel/storedmodel.h>
#include <support/tavorobizmodel/storefolder.h>

#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

using namespace Tavoro;

/// The location of the store file, and files that a store cannot read or can no longer read.
class tst_DeviceStoreFile : public QObject, private StoreFolder {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void secondStoreIsRefused();
    void defaultPlaceIsTheApplicationsDataFolder();
    void folderThatCannotBeCreatedIsReported();

    void schemaVersionIsKept();
    void rowHoldsTheRecordInTheFormatOfTheStore();
    void fileOfALaterVersionIsNotChanged();
    void fileOfAnEarlierVersionIsQuarantined();
    void fileOfAnotherKindIsNotChanged();

    void damagedFileIsQuarantined();
    void fileDamagedWhileOpenIsCreatedAgain();
    void damagedRowIsQuarantinedAndTheOthersLoad();
    void damagedRowIsWrittenAgainByTheNextSave();
    void rowThatIsNotARecordIsQuarantined_data();
    void rowThatIsNotARecordIsQuarantined();
    void unknownFieldIsSkipped();
    void missingFieldKeepsItsDefault();
    void deviceWhoseIdentityIsDamagedKeepsTheRest();

private:
    /// Replaces the body of a row and corrects its digest.
    void writeBody(int kind, const QString &key, const QByteArray &body) const;
};

void tst_DeviceStoreFile::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
}

void tst_DeviceStoreFile::secondStoreIsRefused()
{
    const StoredModel model(file());
    const StoredModel second(m_folder->filePath(QStringLiteral("other.sqlite")));
    QVERIFY(!second.isOpen);
    QCOMPARE(second.error, QStringLiteral("A store of devices is open already."));
}

void tst_DeviceStoreFile::defaultPlaceIsTheApplicationsDataFolder()
{
    QStandardPaths::setTestModeEnabled(true);
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
    {
        const StoredModel model((QString()));
        QVERIFY2(model.isOpen, qPrintable(model.error));
        QVERIFY(QFile::exists(folder + QStringLiteral("/devices.sqlite")));
    }
    QDir(folder).removeRecursively();
    QStandardPaths::setTestModeEnabled(false);
}

void tst_DeviceStoreFile::folderThatCannotBeCreatedIsReported()
{
    QFile inTheWay(file());
    QVERIFY(inTheWay.open(QIODevice::WriteOnly));
    const StoredModel model(file() + QStringLiteral("/below.sqlite"));
    QVERIFY(!model.isOpen);
    QVERIFY(!model.error.isEmpty());
}

void tst_DeviceStoreFile::schemaVersionIsKept()
{
    {
        const StoredModel model(file());
    }
    QCOMPARE(query(file(), QStringLiteral("PRAGMA user_version")),
             QStringList(QStringLiteral("2")));
}

void tst_DeviceStoreFile::rowHoldsTheRecordInTheFormatOfTheStore()
{
    const auto device = ModelRecords::device();
    QString error;
    device->updateCutoutRGB({1, -2, 300}, error);
    {
        const StoredModel model(file());
        model.save(device);
    }
    QCOMPARE(query(file(), QStringLiteral("SELECT hex(body) FROM record WHERE kind = 7")),
             QStringList(QStringLiteral("01"
                                        "72"
                                        "01527501"
                                        "01476E01"
                                        "014275AC02"
                                        "00")));
}

void tst_DeviceStoreFile::fileOfALaterVersionIsNotChanged()
{
    {
        const StoredModel model(file());
    }
    query(file(), QStringLiteral("PRAGMA user_version = 3"));
    const StoredModel model(file());
    QVERIFY(!model.isOpen);
    QCOMPARE(model.error,
             QStringLiteral("The file %1 was written by a later version.").arg(file()));
    QVERIFY(!model.list->saveDeviceDataThread());
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 1);
}

void tst_DeviceStoreFile::fileOfAnEarlierVersionIsQuarantined()
{
    {
        const StoredModel model(file());
    }
    query(file(), QStringLiteral("PRAGMA user_version = 1"));
    const MessageCatcher quiet;
    const StoreSignals caught;
    const StoredModel model(file());
    QVERIFY2(model.isOpen, qPrintable(model.error));
    QTRY_COMPARE(caught.quarantined, QStringList(QStringLiteral("%1 as %1.damaged-1").arg(file())));
}

void tst_DeviceStoreFile::fileOfAnotherKindIsNotChanged()
{
    query(file(), QStringLiteral("CREATE TABLE recipes (title TEXT)"));
    const StoredModel model(file());
    QVERIFY(!model.isOpen);
    QCOMPARE(model.error, QStringLiteral("The file %1 is not a store of devices.").arg(file()));
}

void tst_DeviceStoreFile::damagedFileIsQuarantined()
{
    const QByteArray garbage(5000, 'x');
    for (const char *kept : {"/devices.sqlite.damaged-1", "/devices.sqlite.damaged-2"}) {
        QFile damaged(file());
        QVERIFY(damaged.open(QIODevice::WriteOnly));
        damaged.write(garbage);
        damaged.close();
        const StoreSignals caught;
        const MessageCatcher log;
        const StoredModel model(file());
        QVERIFY2(model.isOpen, qPrintable(model.error));
        const QString quarantineFile = m_folder->path() + QLatin1String(kept);
        QTRY_COMPARE(caught.quarantined,
                     QStringList(file() + QStringLiteral(" as ") + quarantineFile));
        QCOMPARE(log.texts("tavoro.model", QtWarningMsg).size(), 1);
        QFile aside(quarantineFile);
        QVERIFY(aside.open(QIODevice::ReadOnly));
        QCOMPARE(aside.readAll(), garbage);
        model.save(ModelRecords::device());
    }
}

void tst_DeviceStoreFile::fileDamagedWhileOpenIsCreatedAgain()
{
    const MessageCatcher quiet;
    {
        const StoredModel model(file());
        const auto first = ModelRecords::device(1);
        const auto second = ModelRecords::device(2);
        model.list->append(first);
        model.list->append(second);
        model.save(first);
        model.save(second);
        QFile damaged(file());
        QVERIFY(damaged.open(QIODevice::WriteOnly));
        damaged.write(QByteArray(5000, 'x'));
        damaged.close();

        const StoreSignals caught;
        model.list->saveDeviceDataThread()->saveDevicesInfor(first);
        QTRY_COMPARE(caught.saved, (QList<std::shared_ptr<BizModel::Device>>{first, second}));
        QCOMPARE(caught.quarantined, QStringList(QStringLiteral("%1 as %1.damaged-1").arg(file())));
        QCOMPARE(caught.failures, QStringList());
    }
    const StoredModel model(file());
    QCOMPARE(model.list->devices().size(), 2);
}

void tst_DeviceStoreFile::writeBody(int kind, const QString &key, const QByteArray &body) const
{
    const QByteArray digest =
        QCryptographicHash::hash(QByteArray::number(kind) + ' ' + key.toUtf8() + ' '
                                     + QByteArray::number(body.size()) + ' ' + body,
                                 QCryptographicHash::Sha1);
    const auto result =
        query(file(),
              QStringLiteral(
                  "UPDATE record SET body = X'%1', digest = X'%2' WHERE kind = %3 AND key = '%4'")
                  .arg(QString::fromLatin1(body.toHex()), QString::fromLatin1(digest.toHex()),
                       QString::number(kind), key));
    QCOMPARE(result, QStringList());
}

void tst_DeviceStoreFile::damagedRowIsQuarantinedAndTheOthersLoad()
{
    {
        const StoredModel model(file());
        model.save(ModelRecords::device(1));
        model.save(ModelRecords::device(2));
    }
    // Flips one bit in the content of a file.
    query(file(),
          QStringLiteral("UPDATE record SET content = X'610063' WHERE kind = 5 AND device = 2"));
    const StoreSignals caught;
    const MessageCatcher log;
    const StoredModel model(file());
    QVERIFY2(model.isOpen, qPrintable(model.error));
    QCOMPARE(model.list->devices().size(), 2);
    QCOMPARE(model.list->devices().first().lock()->files().size(), 1);
    const auto second = model.list->devices().last().lock();
    QVERIFY(second->files().isEmpty());
    QCOMPARE(second->interfaces().size(), 2);

    const QString record =
        QStringLiteral("File 2/5/0/0/0 of the device 0000000000000002 000000000002");
    QTRY_COMPARE(caught.damagedRecords, QStringList(file() + QStringLiteral(": ") + record));
    QCOMPARE(
        log.texts("tavoro.model", QtWarningMsg),
        QStringList(QStringLiteral("A row in the store of devices is damaged and was quarantined:"
                                   " \"%1\"")
                        .arg(record)));
    QCOMPARE(caught.quarantined, QStringList());
    QCOMPARE(query(file(), QStringLiteral("SELECT hex(content) FROM damaged")),
             QStringList(QStringLiteral("610063")));
}

void tst_DeviceStoreFile::damagedRowIsWrittenAgainByTheNextSave()
{
    const auto device = ModelRecords::device();
    {
        const StoredModel model(file());
        model.save(device);
    }
    query(file(), QStringLiteral("UPDATE record SET content = X'610063' WHERE kind = 5"));
    const MessageCatcher quiet;
    {
        const StoredModel model(file());
        QVERIFY(model.onlyDevice()->files().isEmpty());
        model.save(device);
    }
    const StoreSignals caught;
    const StoredModel model(file());
    QCOMPARE(model.onlyDevice()->files().first().lock()->detail().binary, std::string("a\0b", 3));
    QCoreApplication::processEvents();
    QCOMPARE(caught.damagedRecords, QStringList());
}

void tst_DeviceStoreFile::rowThatIsNotARecordIsQuarantined_data()
{
    QTest::addColumn<QByteArray>("body");
    const QByteArray sound = QByteArray::fromHex("017201527501014775010142750100");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("{\"R\":1}");
    QTest::newRow("another version") << "\x02" + sound.mid(1);
    QTest::newRow("end is missing") << sound.left(sound.size() - 1);
    QTest::newRow("bytes after the end") << sound + "x";
    QTest::newRow("list instead of a number") << QByteArray::fromHex("01720152"
                                                                     "6C00"
                                                                     "00");
    QTest::newRow("number too large") << QByteArray::fromHex("01720152"
                                                             "75FFFFFFFF0F"
                                                             "00");
    QTest::newRow("number without an end") << QByteArray::fromHex("01720152"
                                                                  "75FFFFFFFFFFFFFFFFFFFF"
                                                                  "00");
    QTest::newRow("unknown tag") << QByteArray::fromHex("01720158"
                                                        "78"
                                                        "00");
    QTest::newRow("endless list") << QByteArray::fromHex("01720158"
                                                         "6CFFFFFFFFFFFFFFFF7F"
                                                         "00");
    QTest::newRow("nested without end")
        << QByteArray::fromHex("0172") + QByteArray::fromHex("017872").repeated(100000);
}

void tst_DeviceStoreFile::rowThatIsNotARecordIsQuarantined()
{
    QFETCH(QByteArray, body);
    {
        const StoredModel model(file());
        model.save(ModelRecords::device());
    }
    writeBody(7, {}, body);
    const MessageCatcher quiet;
    const StoreSignals caught;
    const StoredModel model(file());
    QVERIFY(model.onlyDevice());
    QCOMPARE(model.onlyDevice()->interfaces().size(), 2);
    QTRY_COMPARE(caught.damagedRecords,
                 QStringList(file()
                             + QStringLiteral(": CutoutRGB of the device 0000000000000001"
                                              " 000000000001")));
}

// A later version of the records has fields that this version does not have.
void tst_DeviceStoreFile::unknownFieldIsSkipped()
{
    {
        const StoredModel model(file());
        model.save(ModelRecords::device());
    }
    writeBody(7, {},
              QByteArray::fromHex("0172"
                                  "0158"
                                  "72"
                                  "0141"
                                  "6C02"
                                  "74"
                                  "6E05"
                                  "00"
                                  "0159"
                                  "62"
                                  "03"
                                  "FF0061"
                                  "0147"
                                  "7507"
                                  "00"));
    const StoreSignals caught;
    const StoredModel model(file());
    QCOMPARE(model.onlyDevice()->cutoutRGB().G, 7);
    QCoreApplication::processEvents();
    QCOMPARE(caught.damagedRecords, QStringList());
}

void tst_DeviceStoreFile::missingFieldKeepsItsDefault()
{
    {
        const StoredModel model(file());
        model.save(ModelRecords::device());
    }
    writeBody(7, {},
              QByteArray::fromHex("0172"
                                  "0147"
                                  "7507"
                                  "00"));
    const StoredModel model(file());
    QCOMPARE(model.onlyDevice()->cutoutRGB().R, 50);
    QCOMPARE(model.onlyDevice()->cutoutRGB().G, 7);
}

void tst_DeviceStoreFile::deviceWhoseIdentityIsDamagedKeepsTheRest()
{
    {
        const StoredModel model(file());
        model.save(ModelRecords::device());
    }
    query(file(), QStringLiteral("UPDATE record SET body = X'00' WHERE kind = 0"));
    const MessageCatcher quiet;
    const StoredModel model(file());
    QVERIFY(model.onlyDevice());
    QCOMPARE(model.onlyDevice()->sn(), QStringLiteral("0000000000000001"));
    QCOMPARE(model.onlyDevice()->MAC(), QStringLiteral("000000000001"));
    QCOMPARE(model.onlyDevice()->name(), QStringLiteral("box"));
    QCOMPARE(model.onlyDevice()->layers().size(), 2);
}

QTEST_GUILESS_MAIN(tst_DeviceStoreFile)
#include "tst_devicestorefile.moc"
