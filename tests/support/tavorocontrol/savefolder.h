#pragma once

#include <support/common/filecontent.h>

#include <QString>
#include <QTemporaryDir>

/// The folder of one test of the queued writer, and what is reported to it.
struct SaveFolder {
    QString path(const char *name) const { return folder.filePath(QString::fromLatin1(name)); }

    QTemporaryDir folder;
    QString error = QStringLiteral("text from before");
};
