#pragma once

#include <QFile>
#include <QList>
#include <QString>
#include <QStringList>

/// The rows of a table in tests/data: one line per row, cells separated by tabs. Empty if the file
/// does not exist.
inline QList<QStringList> dataTable(const QString &fileName)
{
    QList<QStringList> rows;
    QFile file(QStringLiteral(TEST_DATA_DIR "/") + fileName);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return rows;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        rows.append(line.split(QLatin1Char('\t')));
    }
    return rows;
}
