#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>

namespace Tavoro::BizModel {

/// How a step of the store ended.
enum class StoreOutcome {
    Done,
    Failed, ///< May succeed later: the disk is full, the file locked.
    Damaged, ///< The file is not a sound store any more.
};

/// The SQLite file of a store: its schema, its transactions, and why a statement failed. Used by
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
///     damaged  as record              rows that were set aside, the last one of each key
class StoreDatabase {
public:
    StoreDatabase();
    ~StoreDatabase();
    StoreDatabase(const StoreDatabase &) = delete;
    StoreDatabase &operator=(const StoreDatabase &) = delete;

    /// Opens the file, and creates it if it does not exist. Waits up to 10 s for another process
    /// that uses it. Leaves a file of another kind or of a
    /// later version alone: Failed. The database is closed unless the result is Done.
    StoreOutcome open(const QString &fileName, QString &error);
    bool isOpen() const { return m_database.isValid(); }
    void close();

    /// \name Statements
    /// Returns false after a failure, whose reason outcome() gives.
    /// @{
    QSqlQuery query() const { return QSqlQuery(m_database); }
    bool prepare(QSqlQuery &query, const QString &statement);
    bool run(QSqlQuery &query);
    bool run(const QString &statement);
    /// Keeps why a step failed. Always returns false.
    bool fail(const QString &text, bool isDamage = false);
    /// @}

    /// Runs \a steps as one transaction, which is rolled back when they return false.
    template <class Steps>
    StoreOutcome transact(const Steps &steps, QString &error)
    {
        m_failure = {};
        const bool done =
            run(QStringLiteral("BEGIN IMMEDIATE")) && steps() && run(QStringLiteral("COMMIT"));
        if (!done)
            query().exec(QStringLiteral("ROLLBACK"));
        return outcome(done, error);
    }

    /// Runs \a steps, which need no transaction.
    template <class Steps>
    StoreOutcome perform(const Steps &steps, QString &error)
    {
        m_failure = {};
        return outcome(steps(), error);
    }

    /// Gives a damaged file another name next to its own. Returns the name, or an empty text when
    /// that failed.
    static QString setAside(const QString &fileName);

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
