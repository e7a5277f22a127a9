#pragma once

#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

/// Runs one statement on an SQLite file, with \a value for its placeholder if it has one. Prints a
/// failure and returns false.
inline bool runSql(const QString &fileName, const QString &statement, const QVariant &value = {})
{
    const QString connection = QStringLiteral("test");
    bool done = false;
    {
        QSqlDatabase database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connection);
        database.setDatabaseName(fileName);
        database.open();
        QSqlQuery query(database);
        query.prepare(statement);
        if (value.isValid())
            query.addBindValue(value);
        done = query.exec();
        if (!done)
            qWarning("%s", qUtf8Printable(query.lastError().text()));
    }
    QSqlDatabase::removeDatabase(connection);
    return done;
}
