#pragma once

#include "storefile.h"

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// Base class of tests that need a folder for the file of a store.
class StoreFolder {
protected:
    QString file() const { return m_folder->filePath(QStringLiteral("devices.sqlite")); }

    /// Runs a statement on a file, on a separate connection.
    static QStringList query(const QString &fileName, const QString &statement)
    {
        return StoreFile(fileName).query(statement);
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};
