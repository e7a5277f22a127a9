#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <utility>

/// Inspects the file of a store with a separate connection.
class StoreFile {
public:
    explicit StoreFile(QString fileName) : m_fileName(std::move(fileName)) { }

    /// The first column of the rows of \a statement, or the reason why it failed.
    QStringList query(const QString &statement) const
    {
        QStringList rows;
        const QString connection = QStringLiteral("look");
        {
            auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
            database.setDatabaseName(m_fileName);
            if (!database.open())
                return {database.lastError().text()};
            QSqlQuery query(database);
            if (!query.exec(statement))
                rows.append(query.lastError().text());
            while (query.next())
                rows.append(query.value(0).toString());
        }
        QSqlDatabase::removeDatabase(connection);
        return rows;
    }

    /// Makes the file log which rows are written from now on.
    void watchWrites() const
    {
        for (const char *event : {"INSERT", "UPDATE"})
            watch(QLatin1String(event), QStringLiteral("NEW"));
        watch(QStringLiteral("DELETE"), QStringLiteral("OLD"));
        query(QStringLiteral("CREATE TABLE log (line TEXT)"));
    }

    /// The rows written since then, one "event kind key" per row.
    QStringList writes() const
    {
        return query(QStringLiteral("SELECT line FROM log ORDER BY rowid"));
    }

    void ignoreWrites() const
    {
        for (const char *event : {"INSERT", "UPDATE", "DELETE"})
            query(QStringLiteral("DROP TRIGGER log%1").arg(QLatin1String(event)));
        query(QStringLiteral("DROP TABLE log"));
    }

private:
    void watch(const QString &event, const QString &row) const
    {
        query(QStringLiteral("CREATE TRIGGER log%1 AFTER %1 ON record BEGIN INSERT INTO log VALUES"
                             " ('%1 ' || %2.kind || ' ' || %2.key); END")
                  .arg(event, row));
    }

    const QString m_fileName;
};
