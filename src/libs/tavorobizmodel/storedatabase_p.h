#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>

namespace Tavoro::BizModel {

/// Outcome of a step of the store.
enum class StoreOutcome {
    Done,
    Failed, ///< May succeed later: the disk is full, the file locked.
    Damaged, ///< The file is damaged, or of an earlier version that cannot be read.
};

/// The SQLite file of a store: its schema, its transactions, and the reasons of failures. Used by
/// one thread.
///
/// Schema, version 2 (\c user_version):
///
///     device   id, sn, mac, address   one row per device, found by its DeviceIdentity
///     record   device, kind, key,     one row per record; kind as in RowKind, key unique in it
///              position,              order within the kind
///              digest,                SHA-1, see DeviceRow::digest()
///              body,                  the record, as rowformat_p.h describes it
///              content                the bytes of a file
///     damaged  as record              rows that were quarantined, the last one of each key
class StoreDatabase {
public:
    StoreDatabase();
    ~StoreDatabase();
    StoreDatabase(const StoreDatabase &) = delete;
    StoreDatabase &operator=(const StoreDatabase &) = delete;

    /// Opens the file, and creates it if it does not exist. Waits up to 10 s while another process
    /// uses it. Returns Failed, and does not change the file, if it is of another kind or was
    /// written by a later version. The database is closed unless the result is Done.
    StoreOutcome open(const QString &fileName, QString &error);
    bool isOpen() const { return m_database.isValid(); }
    void close();

    /// \name Statements
    /// Each function returns false on failure; outcome() then returns the reason.
    /// @{
    QSqlQuery query() const { return QSqlQuery(m_database); }
    bool prepare(QSqlQuery &query, const QString &statement);
    bool run(QSqlQuery &query);
    bool run(const QString &statement);
    /// Stores the reason of a failure. Always returns false.
    bool fail(const QString &text, bool isDamage = false);
    /// @}

    /// Runs \a steps as one transaction, which is rolled back if they return false.
    template <class Steps>
    StoreOutcome inTransaction(const Steps &steps, QString &error)
    {
        m_failure = {};
        const bool done =
            run(QStringLiteral("BEGIN IMMEDIATE")) && steps() && run(QStringLiteral("COMMIT"));
        if (!done)
            query().exec(QStringLiteral("ROLLBACK"));
        return outcome(done, error);
    }

    /// Runs \a steps without a transaction.
    template <class Steps>
    StoreOutcome outsideTransaction(const Steps &steps, QString &error)
    {
        m_failure = {};
        return outcome(steps(), error);
    }

    /// Renames a damaged file within its folder. Returns the new name, or an empty text on failure.
    static QString quarantine(const QString &fileName);

private:
    struct Failure {
        QString text;
        bool isDamage = false;
    };

    bool begin();
    bool checkOrCreate();
    bool checkPages();
    bool checkWritable();
    bool makeTables();
    bool number(const QString &statement, int &value);
    StoreOutcome outcome(bool done, QString &error) const;
    bool fail(const QSqlError &error);

    const QString m_connection; ///< Name of the connection, which Qt requires.
    QString m_fileName;
    QSqlDatabase m_database;
    Failure m_failure;
};

} // namespace Tavoro::BizModel
