#pragma once

#include <support/common/messagecatcher.h>

#include <QObject>
#include <QString>
#include <QStringList>

#include <mutex>

/// Records the visible effects of the control library in order: log lines, and signals to the
/// application's windows.
///
/// Each is one line of text:
/// \code
/// warning: TavoroCmd …
/// status bar 2 for 5000 ms: Get … failed: … .
/// message box 1: …
/// reading: 0.5
/// sending: 1
/// \endcode
/// Lines may come from any thread. Log lines of other categories than tavoro.control are left out;
/// one without source file, line and function is marked "(nowhere)".
class Journal : public QObject {
public:
    Journal();

    QStringList lines() const;
    void clear();
    /// Adds a line from the test.
    void add(const QString &line);

private:
    void fetchLogLines() const;

    MessageCatcher m_catcher;
    mutable std::mutex m_mutex;
    mutable int m_fetched = 0; // guarded by m_mutex
    mutable QStringList m_lines; // guarded by m_mutex
};
