#pragma once

#include <QDir>
#include <QString>

/// Open descriptors and threads of the process. Counted on Linux only.
struct Resources {
    static Resources now() { return {entriesOf("/proc/self/fd"), entriesOf("/proc/self/task")}; }

    /// Fewer are accepted too: \a limit may include a thread that had already ended.
    bool isWithin(const Resources &limit) const
    {
        return descriptors <= limit.descriptors && threads <= limit.threads;
    }

    /// For failure messages.
    QString text() const
    {
        return QStringLiteral("%1 descriptors, %2 threads").arg(descriptors).arg(threads);
    }

    int descriptors;
    int threads;

private:
    static int entriesOf(const char *folder)
    {
        const QDir::Filters all =
            QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot;
        return static_cast<int>(QDir(QLatin1String(folder)).entryList(all).size());
    }
};
