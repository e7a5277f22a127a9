#include "devicestore_p.h"

#include "devicerows_p.h"
#include "restoreddevice_p.h"
#include "rowpositions_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>

#include <QCryptographicHash>
#include <QVariant>

namespace Tavoro::BizModel {

namespace {

QByteArray digestOf(const DeviceRow &row)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(QByteArray::number(row.body.size()) + ' ');
    hash.addData(row.body);
    hash.addData(row.content);
    return hash.result();
}

} // namespace

StoreOutcome DeviceStore::load(std::vector<std::shared_ptr<Device>> &devices, QString &error)
{
    return m_database.perform([&] { return loadDevices(devices); }, error);
}

bool DeviceStore::loadDevices(std::vector<std::shared_ptr<Device>> &devices)
{
    QSqlQuery query = m_database.query();
    query.setForwardOnly(true);
    if (!m_database.prepare(query,
                            QStringLiteral("SELECT device, kind, key, body, content FROM record"
                                           " ORDER BY device, kind, position"))
        || !m_database.run(query))
        return false;
    qlonglong id = 0;
    std::vector<DeviceRow> rows;
    const auto takeDevice = [&] {
        if (rows.empty())
            return true;
        RestoredDevice device;
        for (const DeviceRow &row : rows) {
            if (!device.take(row))
                return m_database.fail(DeviceList::tr("A record cannot be read."), true);
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

StoreOutcome DeviceStore::save(const Device &device, QString &error)
{
    return m_database.transact([&] { return writeChanges(device); }, error);
}

StoreOutcome DeviceStore::remove(const DeviceIdentity &identity, QString &error)
{
    const auto steps = [&] {
        QSqlQuery query = m_database.query();
        return m_database.prepare(
                   query,
                   QStringLiteral("DELETE FROM device WHERE sn = ? AND mac = ? AND address = ?"))
            && run(query, identity);
    };
    return m_database.transact(steps, error);
}

/// Runs a statement on the device of this identity.
bool DeviceStore::run(QSqlQuery &query, const DeviceIdentity &identity)
{
    for (const QString &value : {identity.sn, identity.mac, identity.address})
        query.addBindValue(value);
    return m_database.run(query);
}

bool DeviceStore::findOrAdd(const DeviceIdentity &identity, qlonglong &id)
{
    QSqlQuery add = m_database.query();
    QSqlQuery find = m_database.query();
    if (!m_database.prepare(
            add, QStringLiteral("INSERT OR IGNORE INTO device (sn, mac, address) VALUES (?, ?, ?)"))
        || !m_database.prepare(
            find, QStringLiteral("SELECT id FROM device WHERE sn = ? AND mac = ? AND address = ?"))
        || !run(add, identity) || !run(find, identity))
        return false;
    id = find.next() ? find.value(0).toLongLong() : 0;
    return true;
}

bool DeviceStore::findRows(qlonglong id, StoredRows &rows)
{
    QSqlQuery query = m_database.query();
    query.setForwardOnly(true);
    if (!m_database.prepare(
            query,
            QStringLiteral("SELECT kind, key, position, digest FROM record WHERE device = ?")))
        return false;
    query.addBindValue(id);
    if (!m_database.run(query))
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
    QSqlQuery write = m_database.query();
    if (!findOrAdd(DeviceIdentity::of(device), id) || !findRows(id, stored)
        || !m_database.prepare(
            write,
            QStringLiteral("INSERT INTO record VALUES (?, ?, ?, ?, ?, ?, ?)"
                           " ON CONFLICT (device, kind, key) DO UPDATE SET"
                           " position = excluded.position, digest = excluded.digest,"
                           " body = excluded.body, content = excluded.content")))
        return false;
    RowPositions positions(stored.isEmpty() ? RowPositions::wideGap : 1);
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
        done = m_database.run(write);
    });
    return done && removeRows(id, stored);
}

bool DeviceStore::removeRows(qlonglong id, const StoredRows &gone)
{
    QSqlQuery query = m_database.query();
    if (!m_database.prepare(
            query, QStringLiteral("DELETE FROM record WHERE device = ? AND kind = ? AND key = ?")))
        return false;
    for (auto row = gone.begin(); row != gone.end(); ++row) {
        query.addBindValue(id);
        query.addBindValue(row.key().first);
        query.addBindValue(row.key().second);
        if (!m_database.run(query))
            return false;
    }
    return true;
}

} // namespace Tavoro::BizModel
