#include <support/tavorobizmodel/faultyvfs.h>
#include <support/tavorobizmodel/storedmodel.h>
#include <support/tavorobizmodel/storefile.h>
#include <support/tavorobizmodel/storefolder.h>

#include <sqlite3.h>

#include <QTemporaryDir>
#include <QtTest>

#include <atomic>
#include <thread>

namespace {

/// Stands for another process that uses the same file.
class OtherProcess {
public:
    explicit OtherProcess(const QString &fileName)
    {
        sqlite3_open(fileName.toUtf8().constData(), &m_database);
        sqlite3_busy_timeout(m_database, 10000);
    }
    ~OtherProcess()
    {
        FaultyVfs::catchWait({});
        finish();
        sqlite3_close(m_database);
    }
    OtherProcess(const OtherProcess &) = delete;
    OtherProcess &operator=(const OtherProcess &) = delete;

    bool run(const QString &statement) const
    {
        return sqlite3_exec(m_database, statement.toUtf8().constData(), nullptr, nullptr, nullptr)
            == SQLITE_OK;
    }

    /// Commits the transaction as soon as the store waits for it.
    void commitWhenWaitedFor()
    {
        FaultyVfs::catchWait([this] {
            m_commit = std::thread([this] { isCommitted = run(QStringLiteral("COMMIT")); });
        });
    }
    /// Waits for that commit.
    void finish()
    {
        if (m_commit.joinable())
            m_commit.join();
    }

    std::atomic<bool> isCommitted = false;

private:
    std::thread m_commit;
    sqlite3 *m_database = nullptr;
};

} // namespace

/// A store that two processes open.
class tst_DeviceStoreShared : public QObject, private StoreFolder {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { FaultyVfs::install(); }
    void init() { m_folder = std::make_unique<QTemporaryDir>(); }

    void storeThatAnotherProcessCreatesMeanwhileIsOpened();
    void saveWaitsForTheSaveOfAnotherProcess();
};

void tst_DeviceStoreShared::storeThatAnotherProcessCreatesMeanwhileIsOpened()
{
    const QString made = m_folder->filePath(QStringLiteral("made.sqlite"));
    {
        const StoredModel model(made);
    }
    QStringList statements = query(
        made, QStringLiteral("SELECT sql FROM sqlite_master WHERE sql IS NOT NULL ORDER BY rowid"));
    QVERIFY(!statements.isEmpty());
    for (const char *pragma : {"application_id", "user_version"}) {
        const QString text = QStringLiteral("PRAGMA ") + QLatin1String(pragma);
        statements << text + QStringLiteral(" = ") + query(made, text).value(0);
    }
    OtherProcess other(file());
    QVERIFY(other.run(QStringLiteral("BEGIN IMMEDIATE")));
    for (const QString &statement : statements)
        QVERIFY2(other.run(statement), qPrintable(statement));
    other.commitWhenWaitedFor();
    {
        const StoredModel model(file());
        QVERIFY2(model.isOpen, qPrintable(model.error));
        other.finish();
        QVERIFY(other.isCommitted);
        model.save(ModelRecords::device());
    }
    const StoredModel model(file());
    QVERIFY(model.onlyDevice());
}

void tst_DeviceStoreShared::saveWaitsForTheSaveOfAnotherProcess()
{
    const StoredModel model(file());
    OtherProcess other(file());
    QVERIFY(other.run(QStringLiteral("BEGIN IMMEDIATE")));
    other.commitWhenWaitedFor();
    const StoreSignals caught;
    model.save(ModelRecords::device());
    other.finish();
    QVERIFY(other.isCommitted);
    QCOMPARE(caught.failures, QStringList());
}

QTEST_GUILESS_MAIN(tst_DeviceStoreShared)
#include "tst_devicestoreshared.moc"
