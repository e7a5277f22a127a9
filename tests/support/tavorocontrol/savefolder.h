#pragma once

#include <support/common/filecontent.h>

#include <QString>
#include <QTemporaryDir>

/// Where one test of the queued writer keeps its files, and what it gets to know.
struct SaveFolder {
    QString path(const char *name) const { return folder.filePath(QString::fromLatin1(name)); }

    QTemporaryDir folder;
    QString error = QStringLiteral("text from before");
};
