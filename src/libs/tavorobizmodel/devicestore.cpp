#include "devicestore_p.h"

#include "devicerows_p.h"
#include "restoreddevice_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QVariant>

#include <atomic>

namespace Tavoro::BizModel {

namespace {

constexpr int schemaVersion = 2;
constexpr int applicationId =
    0x54565253; ///< Marks the file, so that no other file is taken for one.
constexpr int corruptFile = 11; ///< SQLite's own result codes.
constexpr int notADatabase = 26;

QString nextConnection()
{
    static std::atomic<int> count = 0;
    return QStringLiteral("tavorobizmodel-%1").arg(++count);
}

QByteArray digestOf(const DeviceRow &row)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(QByteArray::number(row.body.size()) + ' ');
    hash.addData(row.body);
    hash.addData(row.content);
    return hash.result();
}

/// Gives rows their places in the order of their kind. A row keeps the place that it has as long as
/// that is behind the one before, so that a row that comes or goes moves few others.
class Positions {
public:
    /// \a gap is left between new rows.
    explicit Positions(qlonglong gap) : m_gap(gap) { }

    qlonglong next(int kind, qlonglong stored)
    {
        qlonglong &last = m_last[kind];
        last = stored > last ? stored : last + m_gap;
        return last;
    }

private:
    const qlonglong m_gap;
    QHash<int, qlonglong> m_last;
};

constexpr qlonglong firstGap = 1024;

} // namespace

DeviceStore::DeviceStore() : m_connection(nextConnection()) { }

DeviceStore::~DeviceStore()
{
    close();
}

DeviceStore::Outcome DeviceStore::open(const QString &fileName, QString &error)
{
    m_fileName = fileName;
    m_failure = {};
    QDir().mkpath(QFileInfo(fileName).absolutePath());
    m_database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), m_connection);
    m_database.setDatabaseName(fileName);
    const Outcome result = outcome(begin(), error);
    if (result != Outcome::Done)
        close();
    return result;
}

bool DeviceStore::begin()
{
    if (!m_database.open())
        return fail(m_database.lastError().text());
    return run(QStringLiteral("PRAGMA foreign_keys = ON"))
        && run(QStringLiteral("PRAGMA synchronous = EXTRA")) && checkFile() && checkWritable();
}

/// SQLite opens a file for reading only when it cannot have it otherwise; then no save would ever
/// succeed.
bool DeviceStore::checkWritable()
{
    return run(QStringLiteral("BEGIN"))
        && run(QStringLiteral("PRAGMA user_version = %1").arg(schemaVersion))
        && run(QStringLiteral("ROLLBACK"));
}

void DeviceStore::close()
{
    if (!m_database.isValid())
        return;
    m_database.close();
    m_database = QSqlDatabase();
    QSqlDatabase::removeDatabase(m_connection);
}

bool DeviceStore::checkFile()
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
    if (id != applicationId) {
        return fail(DeviceList::tr("The file %1 is no store of devices.").arg(m_fileName));
    }
    if (version > schemaVersion) {
        return fail(DeviceList::tr("The file %1 was written by a later version.").arg(m_fileName));
    }
    if (version < schemaVersion) {
        return fail(DeviceList::tr("The file was written by an earlier version, which this one"
                                   " cannot read."),
                    true);
    }
    QSqlQuery check(m_database);
    if (!prepare(check, QStringLiteral("PRAGMA quick_check(1)")) || !run(check))
        return false;
    if (check.next() && check.value(0).toString() == QLatin1String("ok"))
        return true;
    return fail(check.value(0).toString(), true);
}

bool DeviceStore::makeTables()
{
    QString error;
    const auto steps = [this] {
        return run(QStringLiteral("CREATE TABLE device (id INTEGER PRIMARY KEY, sn TEXT NOT NULL,"
                                  " mac TEXT NOT NULL, UNIQUE (sn, mac))"))
            && run(QStringLiteral(
                "CREATE TABLE record (device INTEGER NOT NULL REFERENCES device ON DELETE CASCADE,"
                " kind INTEGER NOT NULL, key TEXT NOT NULL, position INTEGER NOT NULL,"
                " digest BLOB NOT NULL, body BLOB, content BLOB, UNIQUE (device, kind, key))"))
            && run(QStringLiteral("PRAGMA application_id = %1").arg(applicationId))
            && run(QStringLiteral("PRAGMA user_version = %1").arg(schemaVersion));
    };
    return transact(steps, error) == Outcome::Done;
}

DeviceStore::Outcome DeviceStore::load(std::vector<std::shared_ptr<Device>> &devices,
                                       QString &error)
{
    m_failure = {};
    return outcome(loadDevices(devices), error);
}

bool DeviceStore::loadDevices(std::vector<std::shared_ptr<Device>> &devices)
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (!prepare(query,
                 QStringLiteral("SELECT device, kind, key, body, content FROM record"
                                " ORDER BY device, kind, position"))
        || !run(query))
        return false;
    qlonglong id = 0;
    std::vector<DeviceRow> rows;
    const auto takeDevice = [&] {
        if (rows.empty())
            return true;
        RestoredDevice device;
        for (const DeviceRow &row : rows) {
            if (!device.take(row))
                return fail(DeviceList::tr("A record cannot be read."), true);
        }
        rows.clear();
        devices.push_back(device.make());
        return true;
    };
    while (query.next()) {
        if (query.value(0).toLongLong() != id && !takeDevice())
            return false;
        id = query.value(0).toLongLong();
        rows.push_back({static_cast<RowKind>(query.value(1).toInt()), query.value(2).toString(),
                        query.value(3).toByteArray(), query.value(4).toByteArray()});
    }
    return takeDevice();
}

DeviceStore::Outcome DeviceStore::save(const Device &device, QString &error)
{
    return transact([&] { return writeChanges(device); }, error);
}

DeviceStore::Outcome DeviceStore::remove(const QString &sn, const QString &mac, QString &error)
{
    const auto steps = [&] {
        QSqlQuery query(m_database);
        if (!prepare(query, QStringLiteral("DELETE FROM device WHERE sn = ? AND mac = ?")))
            return false;
        query.addBindValue(sn);
        query.addBindValue(mac);
        return run(query);
    };
    return transact(steps, error);
}

bool DeviceStore::findOrAdd(const Device &device, qlonglong &id)
{
    QSqlQuery add(m_database);
    QSqlQuery find(m_database);
    if (!prepare(add, QStringLiteral("INSERT OR IGNORE INTO device (sn, mac) VALUES (?, ?)"))
        || !prepare(find, QStringLiteral("SELECT id FROM device WHERE sn = ? AND mac = ?")))
        return false;
    for (QSqlQuery *query : {&add, &find}) {
        query->addBindValue(device.sn());
        query->addBindValue(device.MAC());
        if (!run(*query))
            return false;
    }
    id = find.next() ? find.value(0).toLongLong() : 0;
    return true;
}

bool DeviceStore::findRows(qlonglong id, StoredRows &rows)
{
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (!prepare(query,
                 QStringLiteral("SELECT kind, key, position, digest FROM record WHERE device = ?")))
        return false;
    query.addBindValue(id);
    if (!run(query))
        return false;
    while (query.next())
        rows.insert({query.value(0).toInt(), query.value(1).toString()},
                    {query.value(2).toLongLong(), query.value(3).toByteArray()});
    return true;
}

bool DeviceStore::writeChanges(const Device &device)
{
    qlonglong id = 0;
    StoredRows stored;
    QSqlQuery write(m_database);
    if (!findOrAdd(device, id) || !findRows(id, stored)
        || !prepare(write,
                    QStringLiteral("INSERT INTO record VALUES (?, ?, ?, ?, ?, ?, ?)"
                                   " ON CONFLICT (device, kind, key) DO UPDATE SET"
                                   " position = excluded.position, digest = excluded.digest,"
                                   " body = excluded.body, content = excluded.content")))
        return false;
    Positions positions(stored.isEmpty() ? firstGap : 1);
    bool done = true;
    visitRows(device, [&](const DeviceRow &row) {
        const int kind = static_cast<int>(row.kind);
        const StoredRow old = stored.take({kind, row.key});
        const StoredRow now{positions.next(kind, old.position), digestOf(row)};
        if (!done || (now.position == old.position && now.digest == old.digest))
            return;
        for (const QVariant &value :
             {QVariant(id), QVariant(kind), QVariant(row.key), QVariant(now.position),
              QVariant(now.digest), QVariant(row.body), QVariant(row.content)})
            write.addBindValue(value);
        done = run(write);
    });
    return done && removeRows(id, stored);
}

bool DeviceStore::removeRows(qlonglong id, const StoredRows &gone)
{
    QSqlQuery query(m_database);
    if (!prepare(query,
                 QStringLiteral("DELETE FROM record WHERE device = ? AND kind = ? AND key = ?")))
        return false;
    for (auto row = gone.begin(); row != gone.end(); ++row) {
        query.addBindValue(id);
        query.addBindValue(row.key().first);
        query.addBindValue(row.key().second);
        if (!run(query))
            return false;
    }
    return true;
}

QString DeviceStore::setAside(const QString &fileName)
{
    QString kept;
    for (int number = 1; kept.isEmpty() || QFile::exists(kept); ++number)
        kept = QStringLiteral("%1.damaged-%2").arg(fileName).arg(number);
    if (!QFile::rename(fileName, kept))
        return {};
    // What a broken-off save left beside the file belongs to it and must not meet a new one.
    QFile::rename(fileName + QStringLiteral("-journal"), kept + QStringLiteral("-journal"));
    return kept;
}

template <class Steps>
DeviceStore::Outcome DeviceStore::transact(const Steps &steps, QString &error)
{
    m_failure = {};
    const bool done =
        run(QStringLiteral("BEGIN IMMEDIATE")) && steps() && run(QStringLiteral("COMMIT"));
    if (!done)
        QSqlQuery(m_database).exec(QStringLiteral("ROLLBACK"));
    return outcome(done, error);
}

DeviceStore::Outcome DeviceStore::outcome(bool done, QString &error) const
{
    if (done)
        return Outcome::Done;
    error = m_failure.text;
    return m_failure.damaged ? Outcome::Damaged : Outcome::Failed;
}

bool DeviceStore::run(const QString &statement)
{
    QSqlQuery query(m_database);
    return prepare(query, statement) && run(query);
}

bool DeviceStore::prepare(QSqlQuery &query, const QString &statement)
{
    return query.prepare(statement) || fail(query.lastError());
}

bool DeviceStore::run(QSqlQuery &query)
{
    return query.exec() || fail(query.lastError());
}

bool DeviceStore::number(const QString &statement, int &value)
{
    QSqlQuery query(m_database);
    if (!prepare(query, statement) || !run(query))
        return false;
    value = query.next() ? query.value(0).toInt() : 0;
    return true;
}

bool DeviceStore::fail(const QSqlError &error)
{
    const int code = error.nativeErrorCode().toInt() & 0xFF; // the rest of the code tells details
    return fail(error.text(), code == corruptFile || code == notADatabase);
}

bool DeviceStore::fail(const QString &text, bool damaged)
{
    m_failure = {text, damaged};
    return false;
}

} // namespace Tavoro::BizModel
