#include "devicedatabase.h"

#include "simlog.h"
#include "texts.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

#include <algorithm>
#include <atomic>

namespace Tavoro::Sim {

namespace {

constexpr int schemaVersion = 1;
constexpr int applicationId = 0x54565344; ///< Distinguishes the file from other SQLite files.
constexpr int lockedFile = 5; ///< SQLite's own result codes.
constexpr int corruptFile = 11;
constexpr int notADatabase = 26;

QString nextConnection()
{
    static std::atomic<int> count = 0;
    return QStringLiteral("tavorosim-%1").arg(++count);
}

} // namespace

DeviceDatabase::DeviceDatabase() : m_connection(nextConnection()) { }

DeviceDatabase::~DeviceDatabase()
{
    if (!m_database.isValid())
        return;
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_connection);
}

bool DeviceDatabase::open(const QString &fileName, QString &error)
{
    m_fileName = fileName;
    m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    m_database.setDatabaseName(fileName);
    m_database.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=0"));
    return report(begin(), error);
}

bool DeviceDatabase::begin()
{
    if (!m_database.open())
        return fail(m_database.lastError());
    return run(QStringLiteral("PRAGMA locking_mode = EXCLUSIVE"))
        && run(QStringLiteral("PRAGMA synchronous = EXTRA"))
        && transact([this] { return checkOrCreate(); }) && checkPages();
}

bool DeviceDatabase::checkOrCreate()
{
    int version = 0;
    int id = 0;
    int tables = 0;
    if (!readNumber(QStringLiteral("PRAGMA user_version"), version)
        || !readNumber(QStringLiteral("PRAGMA application_id"), id)
        || !readNumber(QStringLiteral("SELECT count(*) FROM sqlite_master"), tables))
        return false;
    if (tables == 0) {
        return run(QStringLiteral("CREATE TABLE file (type INTEGER NOT NULL, id INTEGER NOT NULL,"
                                  " record BLOB NOT NULL, PRIMARY KEY (type, id))"))
            && run(QStringLiteral("CREATE TABLE setup (id INTEGER PRIMARY KEY CHECK (id = 0),"
                                  " record BLOB NOT NULL)"))
            && run(QStringLiteral("PRAGMA application_id = %1").arg(applicationId))
            && run(QStringLiteral("PRAGMA user_version = %1").arg(schemaVersion));
    }
    if (id != applicationId || version != schemaVersion)
        return fail(Texts::tr("it was not written by this version of tavorosim"));
    // Fails if the file is read-only, in which case no later change would succeed.
    return run(QStringLiteral("PRAGMA user_version = %1").arg(schemaVersion));
}

bool DeviceDatabase::checkPages()
{
    QSqlQuery check(m_database);
    if (!run(check, QStringLiteral("PRAGMA quick_check(1)")))
        return false;
    if (check.next() && check.value(0).toString() == QLatin1String("ok"))
        return true;
    m_isDamaged = true;
    m_failure = check.value(0).toString();
    return false;
}

bool DeviceDatabase::readFiles(std::vector<QByteArray> &records, QString &error)
{
    return report(readRecords(QStringLiteral("SELECT record FROM file"), records), error);
}

bool DeviceDatabase::readSetup(std::optional<QByteArray> &record, QString &error)
{
    std::vector<QByteArray> records;
    const bool done = readRecords(QStringLiteral("SELECT record FROM setup"), records);
    if (done && !records.empty())
        record = records.front();
    return report(done, error);
}

bool DeviceDatabase::write(const std::vector<Row> &rows, const std::optional<QByteArray> &setup)
{
    const bool done = transact([&] {
        return std::all_of(rows.begin(), rows.end(),
                           [this](const Row &row) { return writeRow(row); })
            && (!setup || writeSetup(*setup));
    });
    if (!done)
        qCWarning(simLog, "cannot write %s: %s", qUtf8Printable(m_fileName),
                  qUtf8Printable(m_failure));
    return done;
}

bool DeviceDatabase::writeRow(const Row &row)
{
    const auto &[key, record] = row;
    QSqlQuery query(m_database);
    return record ? run(query, QStringLiteral("INSERT OR REPLACE INTO file VALUES (?, ?, ?)"),
                        {key.first, key.second, *record})
                  : run(query, QStringLiteral("DELETE FROM file WHERE type = ? AND id = ?"),
                        {key.first, key.second});
}

bool DeviceDatabase::writeSetup(const QByteArray &record)
{
    QSqlQuery query(m_database);
    return run(query, QStringLiteral("INSERT OR REPLACE INTO setup VALUES (0, ?)"), {record});
}

bool DeviceDatabase::transact(const std::function<bool()> &steps)
{
    const bool done =
        run(QStringLiteral("BEGIN IMMEDIATE")) && steps() && run(QStringLiteral("COMMIT"));
    if (!done)
        QSqlQuery(m_database).exec(QStringLiteral("ROLLBACK"));
    return done;
}

bool DeviceDatabase::readRecords(const QString &statement, std::vector<QByteArray> &records)
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (!run(query, statement))
        return false;
    while (query.next())
        records.push_back(query.value(0).toByteArray());
    return true;
}

bool DeviceDatabase::run(const QString &statement)
{
    QSqlQuery query(m_database);
    return run(query, statement);
}

bool DeviceDatabase::run(QSqlQuery &query, const QString &statement, const QList<QVariant> &values)
{
    if (!query.prepare(statement))
        return fail(query.lastError());
    for (const QVariant &value : values)
        query.addBindValue(value);
    return query.exec() || fail(query.lastError());
}

bool DeviceDatabase::readNumber(const QString &statement, int &value)
{
    QSqlQuery query(m_database);
    if (!run(query, statement))
        return false;
    value = query.next() ? query.value(0).toInt() : 0;
    return true;
}

bool DeviceDatabase::fail(const QSqlError &error)
{
    const int code = error.nativeErrorCode().toInt() & 0xFF; // the upper bits hold details
    m_isDamaged = code == corruptFile || code == notADatabase;
    m_failure = code == lockedFile ? Texts::tr("another device uses it") : error.text();
    return false;
}

bool DeviceDatabase::fail(const QString &text)
{
    m_isDamaged = false;
    m_failure = text;
    return false;
}

bool DeviceDatabase::report(bool done, QString &error) const
{
    if (!done) {
        error = (m_isDamaged ? Texts::tr("%1 is damaged: %2") : Texts::tr("cannot use %1: %2"))
                    .arg(m_fileName, m_failure);
    }
    return done;
}

} // namespace Tavoro::Sim
