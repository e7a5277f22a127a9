#pragma once

#include "deviceidentity_p.h"
#include "storedatabase_p.h"

#include <QByteArray>
#include <QHash>
#include <QPair>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace Tavoro::BizModel {

class Device;

/// Devices in an SQLite file. Used by one thread.
///
/// Each save is one transaction. It compares rows by digest, writes new and changed rows, and
/// deletes rows that the device no longer has.
class DeviceStore {
public:
    /// Opens the file, as StoreDatabase::open() does.
    StoreOutcome open(const QString &fileName, QString &error)
    {
        return m_database.open(fileName, error);
    }
    bool isOpen() const { return m_database.isOpen(); }
    void close() { m_database.close(); }

    /// The contents of a file.
    struct Loaded {
        std::vector<std::shared_ptr<Device>> devices;
        /// Names of the damaged rows, which were moved to the table \c damaged.
        QStringList quarantined;
    };

    StoreOutcome load(Loaded &loaded, QString &error);
    StoreOutcome save(const Device &device, QString &error);
    StoreOutcome remove(const DeviceIdentity &identity, QString &error);

private:
    using RowId = QPair<int, QString>; ///< Kind and key.
    struct StoredRow {
        qlonglong position = 0;
        QByteArray digest;
    };
    using StoredRows = QHash<RowId, StoredRow>;

    bool loadDevices(Loaded &loaded, std::vector<qlonglong> &damaged);
    bool quarantine(const std::vector<qlonglong> &rows);
    bool run(QSqlQuery &query, const DeviceIdentity &identity);
    bool findOrAdd(const DeviceIdentity &identity, qlonglong &id);
    bool findRows(qlonglong id, StoredRows &rows);
    bool writeChanges(const Device &device);
    bool removeRows(qlonglong id, const StoredRows &gone);

    StoreDatabase m_database;
};

} // namespace Tavoro::BizModel
