#pragma once

#include <QByteArray>
#include <QList>
#include <QSqlDatabase>
#include <QString>
#include <QVariant>

#include <functional>
#include <optional>
#include <utility>
#include <vector>

QT_BEGIN_NAMESPACE
class QSqlError;
class QSqlQuery;
QT_END_NAMESPACE

namespace Tavoro::Sim {

/// The data that a simulated device keeps from run to run, in an SQLite file: the records of its
/// files and its setup. Each change is a transaction: after a crash the state is that before or
/// after it.
///
/// \code
/// file   type, id    number of a file
///        record      its record
/// setup  id          0
///        record      the setup that was saved last
/// \endcode
///
/// One device at a time uses a file, locked until it is closed, on the thread that opened it.
class DeviceDatabase {
public:
    using Key = std::pair<qint32, qint32>; ///< Type and number of a file.
    /// A row to be written, or to be removed when it has no record.
    using Row = std::pair<Key, std::optional<QByteArray>>;

    DeviceDatabase();
    ~DeviceDatabase();
    DeviceDatabase(const DeviceDatabase &) = delete;
    DeviceDatabase &operator=(const DeviceDatabase &) = delete;

    /// Opens the file, or creates it. On failure \a error holds a sentence.
    bool open(const QString &fileName, QString &error);

    /// Reads the records of all files. On failure \a error holds a sentence.
    bool readFiles(std::vector<QByteArray> &records, QString &error);
    /// Reads the setup; \a record stays empty when none was saved. On failure \a error holds a
    /// sentence.
    bool readSetup(std::optional<QByteArray> &record, QString &error);

    /// Writes all of \a rows, and the setup if there is one, in one transaction. A failure changes
    /// nothing and is logged.
    bool write(const std::vector<Row> &rows, const std::optional<QByteArray> &setup);

private:
    bool begin();
    bool checkOrCreate();
    bool checkPages();
    bool transact(const std::function<bool()> &steps);
    bool readRecords(const QString &statement, std::vector<QByteArray> &records);
    bool run(const QString &statement);
    bool run(QSqlQuery &query, const QString &statement, const QList<QVariant> &values = {});
    bool readNumber(const QString &statement, int &value);
    bool fail(const QSqlError &error);
    bool fail(const QString &text);
    bool report(bool done, QString &error) const;
    bool writeRow(const Row &row);
    bool writeSetup(const QByteArray &record);

    const QString m_connection;
    QString m_fileName;
    QSqlDatabase m_database;
    QString m_failure; ///< Text of the last failure.
    bool m_isDamaged = false; ///< The last failure was caused by the content of the file.
};

} // namespace Tavoro::Sim
