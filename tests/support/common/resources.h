#pragma once

#include <QDir>
#include <QString>

/// What the process holds of the system; counted on Linux only.
struct Resources {
    static Resources now() { return {entriesOf("/proc/self/fd"), entriesOf("/proc/self/task")}; }

    /// Fewer is well too: what was counted before may have held a thread that had just ended.
    bool isWithin(const Resources &limit) const
    {
        return descriptors <= limit.descriptors && threads <= limit.threads;
    }

    /// For comparisons whose failure message names the excess.
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
