#pragma once

#include <QByteArray>
#include <QHash>
#include <QPair>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>

#include <memory>
#include <vector>

namespace Tavoro::BizModel {

class Device;

/// Devices in an SQLite file. Used by one thread.
///
/// Schema, version 2 (\c user_version):
///
///     device   id, sn, mac            one row per device, found by serial number and MAC
///     record   device, kind, key,     one row per record; kind as in RowKind, key unique in it
///              position,              order within the kind
///              digest,                of body and content
///              body,                 the record, as rowformat_p.h describes it
///              content               the bytes of a file
///
/// A save is one transaction. What is stored is compared by digest: only rows that are new, other
/// than before or gone are written.
class DeviceStore {
public:
    enum class Outcome {
        Done,
        Failed, ///< May succeed when tried again: the disk is full, the file locked.
        Damaged, ///< The file is no store any more.
    };

    DeviceStore();
    ~DeviceStore();
    DeviceStore(const DeviceStore &) = delete;
    DeviceStore &operator=(const DeviceStore &) = delete;

    /// Opens the file, made if there is none. A file of another kind or of a later version is left
    /// alone: Failed. The store is closed unless this is Done.
    Outcome open(const QString &fileName, QString &error);
    bool isOpen() const { return m_database.isValid(); }
    void close();
    Outcome load(std::vector<std::shared_ptr<Device>> &devices, QString &error);
    Outcome save(const Device &device, QString &error);
    Outcome remove(const QString &sn, const QString &mac, QString &error);

    /// Gives a damaged file another name, beside the one that it had. Empty when that fails.
    static QString setAside(const QString &fileName);

private:
    using RowId = QPair<int, QString>; ///< Kind and key.
    struct StoredRow {
        qlonglong position = 0;
        QByteArray digest;
    };
    using StoredRows = QHash<RowId, StoredRow>;

    /// \name Steps. False after a failure, which is kept in m_failure
    /// @{
    bool run(const QString &statement);
    bool run(QSqlQuery &query);
    bool prepare(QSqlQuery &query, const QString &statement);
    bool number(const QString &statement, int &value);
    bool begin();
    bool checkFile();
    bool checkWritable();
    bool makeTables();
    bool loadDevices(std::vector<std::shared_ptr<Device>> &devices);
    bool findOrAdd(const Device &device, qlonglong &id);
    bool findRows(qlonglong id, StoredRows &rows);
    bool writeChanges(const Device &device);
    bool removeRows(qlonglong id, const StoredRows &gone);
    /// @}

    /// Runs \a steps as one transaction.
    template <class Steps>
    Outcome transact(const Steps &steps, QString &error);
    Outcome outcome(bool done, QString &error) const;
    /// Keep why a step failed. Always false.
    bool fail(const QSqlError &error);
    bool fail(const QString &text, bool damaged = false);

    const QString m_connection; // name, as Qt's connections have one
    QString m_fileName;
    QSqlDatabase m_database;

    struct Failure {
        QString text;
        bool damaged = false;
    } m_failure;
};

} // namespace Tavoro::BizModel
