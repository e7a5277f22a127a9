#include "storedatabase_p.h"

#include <tavorobizmodel/devicelist.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QVariant>

#include <atomic>

namespace Tavoro::BizModel {

namespace {

constexpr int schemaVersion = 2;
constexpr int applicationId = 0x54565253; ///< Distinguishes a store from other SQLite files.
constexpr int lockWait = 10000; ///< Milliseconds to wait for another process that uses the file.
constexpr int corruptFile = 11; ///< SQLite's own result codes.
constexpr int notADatabase = 26;

QString nextConnection()
{
    static std::atomic<int> count = 0;
    return QStringLiteral("tavorobizmodel-%1").arg(++count);
}

} // namespace

StoreDatabase::StoreDatabase() : m_connection(nextConnection()) { }

StoreDatabase::~StoreDatabase()
{
    close();
}

StoreOutcome StoreDatabase::open(const QString &fileName, QString &error)
{
    m_fileName = fileName;
    m_failure = {};
    QDir().mkpath(QFileInfo(fileName).absolutePath());
    m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    m_database.setDatabaseName(fileName);
    m_database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(lockWait));
    const StoreOutcome result = outcome(begin(), error);
    if (result != StoreOutcome::Done)
        close();
    return result;
}

void StoreDatabase::close()
{
    if (!m_database.isValid())
        return;
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_connection);
}

bool StoreDatabase::begin()
{
    if (!m_database.open())
        return fail(m_database.lastError().text());
    QString error;
    return run(QStringLiteral("PRAGMA foreign_keys = ON"))
        && run(QStringLiteral("PRAGMA synchronous = EXTRA"))
        && inTransaction([this] { return checkOrCreate(); }, error) == StoreOutcome::Done
        && checkPages() && checkWritable();
}

/// SQLite opens a file that it may not write as read-only; then no save would ever succeed.
bool StoreDatabase::checkWritable()
{
    return run(QStringLiteral("BEGIN"))
        && run(QStringLiteral("PRAGMA user_version = %1").arg(schemaVersion))
        && run(QStringLiteral("ROLLBACK"));
}

/// Runs within a transaction, so that two processes which create the same store wait for each
/// other.
bool StoreDatabase::checkOrCreate()
{
    int version = 0;
    int id = 0;
    int tables = 0;
    if (!number(QStringLiteral("PRAGMA user_version"), version)
        || !number(QStringLiteral("PRAGMA application_id"), id)
        || !number(QStringLiteral("SELECT count(*) FROM sqlite_master"), tables))
        return false;
    if (tables == 0)
        return makeTables();
    if (id != applicationId)
        return fail(DeviceList::tr("The file %1 is not a store of devices.").arg(m_fileName));
    if (version > schemaVersion)
        return fail(DeviceList::tr("The file %1 was written by a later version.").arg(m_fileName));
    if (version < schemaVersion) {
        return fail(DeviceList::tr("The file was written by an earlier version, which this one"
                                   " cannot read."),
                    true);
    }
    return true;
}

bool StoreDatabase::checkPages()
{
    QSqlQuery check = query();
    if (!prepare(check, QStringLiteral("PRAGMA quick_check(1)")) || !run(check))
        return false;
    if (check.next() && check.value(0).toString() == QLatin1String("ok"))
        return true;
    return fail(check.value(0).toString(), true);
}

bool StoreDatabase::makeTables()
{
    const QString recordTable = QStringLiteral(
        "CREATE TABLE %1 (device INTEGER NOT NULL REFERENCES device ON DELETE CASCADE,"
        " kind INTEGER NOT NULL, key TEXT NOT NULL, position INTEGER NOT NULL,"
        " digest BLOB NOT NULL, body BLOB, content BLOB, UNIQUE (device, kind, key))");
    return run(QStringLiteral("CREATE TABLE device (id INTEGER PRIMARY KEY, sn TEXT NOT NULL,"
                              " mac TEXT NOT NULL, address TEXT NOT NULL,"
                              " UNIQUE (sn, mac, address))"))
        && run(recordTable.arg(QStringLiteral("record")))
        && run(recordTable.arg(QStringLiteral("damaged")))
        && run(QStringLiteral("PRAGMA application_id = %1").arg(applicationId))
        && run(QStringLiteral("PRAGMA user_version = %1").arg(schemaVersion));
}

QString StoreDatabase::quarantine(const QString &fileName)
{
    QString kept;
    for (int number = 1; kept.isEmpty() || QFile::exists(kept); ++number)
        kept = QStringLiteral("%1.damaged-%2").arg(fileName).arg(number);
    if (!QFile::rename(fileName, kept))
        return {};
    // The journal of an unfinished save belongs to this file and must not be applied to a new one.
    QFile::rename(fileName + QStringLiteral("-journal"), kept + QStringLiteral("-journal"));
    return kept;
}

StoreOutcome StoreDatabase::outcome(bool done, QString &error) const
{
    if (done)
        return StoreOutcome::Done;
    error = m_failure.text;
    return m_failure.isDamage ? StoreOutcome::Damaged : StoreOutcome::Failed;
}

bool StoreDatabase::run(const QString &statement)
{
    QSqlQuery statementQuery = query();
    return prepare(statementQuery, statement) && run(statementQuery);
}

bool StoreDatabase::prepare(QSqlQuery &query, const QString &statement)
{
    return query.prepare(statement) || fail(query.lastError());
}

bool StoreDatabase::run(QSqlQuery &query)
{
    return query.exec() || fail(query.lastError());
}

bool StoreDatabase::number(const QString &statement, int &value)
{
    QSqlQuery numberQuery = query();
    if (!prepare(numberQuery, statement) || !run(numberQuery))
        return false;
    value = numberQuery.next() ? numberQuery.value(0).toInt() : 0;
    return true;
}

bool StoreDatabase::fail(const QSqlError &error)
{
    const int code = error.nativeErrorCode().toInt() & 0xFF; // the upper bits hold details
    return fail(error.text(), code == corruptFile || code == notADatabase);
}

bool StoreDatabase::fail(const QString &text, bool isDamage)
{
    m_failure = {text, isDamage};
    return false;
}

} // namespace Tavoro::BizModel
