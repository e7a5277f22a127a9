#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}
