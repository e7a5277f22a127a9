#pragma once

#include <QFile>
#include <QString>
#include <QStringList>

/// Returns the C++ snippets of a documentation page that do not occur in a source file, without
/// regard to white space. An unreadable file has no text.
inline QStringList snippetsNotIn(const QString &sourceFile, const QString &page)
{
    const auto textOf = [](const QString &name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    };
    const auto packed = [](QString text) {
        return text.remove(QLatin1Char(' ')).remove(QLatin1Char('\n'));
    };
    const QString source = packed(textOf(sourceFile));
    const QStringList parts = textOf(page).split(QStringLiteral("```"));
    QStringList missing;
    for (int i = 1; i < parts.size(); i += 2) {
        if (parts[i].startsWith(QLatin1String("cpp\n"))
            && !source.contains(packed(parts[i].mid(4))))
            missing << parts[i].mid(4);
    }
    return parts.size() < 3 ? QStringList(QStringLiteral("no snippets")) : missing;
}
