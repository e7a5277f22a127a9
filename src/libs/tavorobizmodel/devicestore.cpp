#include "devicestore_p.h"

#include "devicerows_p.h"
#include "restoreddevice_p.h"
#include "rowpositions_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>

#include <QVariant>

#include <optional>
#include <utility>

namespace Tavoro::BizModel {

StoreOutcome DeviceStore::load(Loaded &loaded, QString &error)
{
    std::vector<qlonglong> damaged;
    const StoreOutcome outcome =
        m_database.outsideTransaction([&] { return loadDevices(loaded, damaged); }, error);
    if (outcome != StoreOutcome::Done || damaged.empty())
        return outcome;
    QString moveError; // if the move fails, the row stays and is found again next time
    m_database.inTransaction([&] { return quarantine(damaged); }, moveError);
    return outcome;
}

bool DeviceStore::loadDevices(Loaded &loaded, std::vector<qlonglong> &damaged)
{
    QSqlQuery query = m_database.query();
    query.setForwardOnly(true);
    if (!m_database.prepare(
            query,
            QStringLiteral("SELECT device.id, sn, mac, address, record.rowid, kind, key, digest,"
                           " body, content FROM record JOIN device ON device.id = record.device"
                           " ORDER BY device.id, kind, position"))
        || !m_database.run(query))
        return false;
    qlonglong id = 0;
    std::optional<RestoredDevice> device;
    while (query.next()) {
        const DeviceIdentity identity{query.value(1).toString(), query.value(2).toString(),
                                      query.value(3).toString()};
        if (std::exchange(id, query.value(0).toLongLong()) != query.value(0).toLongLong()) {
            if (device)
                loaded.devices.push_back(device->make());
            device.emplace(identity);
        }
        const DeviceRow row{static_cast<RowKind>(query.value(5).toInt()), query.value(6).toString(),
                            query.value(8).toByteArray(), query.value(9).toByteArray()};
        if (row.digest() == query.value(7).toByteArray() && device->take(row))
            continue;
        damaged.push_back(query.value(4).toLongLong());
        loaded.quarantined << DeviceList::tr("%1 of the device %2 %3 %4")
                                  .arg(row.name(), identity.sn, identity.mac, identity.address)
                                  .trimmed();
    }
    if (device)
        loaded.devices.push_back(device->make());
    return true;
}

bool DeviceStore::quarantine(const std::vector<qlonglong> &rows)
{
    for (const char *statement :
         {"INSERT OR REPLACE INTO damaged SELECT * FROM record WHERE rowid = ?",
          "DELETE FROM record WHERE rowid = ?"}) {
        QSqlQuery query = m_database.query();
        if (!m_database.prepare(query, QLatin1String(statement)))
            return false;
        for (const qlonglong row : rows) {
            query.addBindValue(row);
            if (!m_database.run(query))
                return false;
        }
    }
    return true;
}

StoreOutcome DeviceStore::save(const Device &device, QString &error)
{
    return m_database.inTransaction([&] { return writeChanges(device); }, error);
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
    return m_database.inTransaction(steps, error);
}

/// Runs a statement on the device with this identity.
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
        const StoredRow now{positions.next(kind, old.position), row.digest()};
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
