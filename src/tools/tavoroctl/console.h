#pragma once

#include <QObject>
#include <QString>

#include <string>

namespace Tavoro::Ctl {

/// What a run of the tool ends with. The larger one counts.
enum ExitStatus {
    Done = 0,
    Failed = 1, ///< A device could not be reached, or an operation failed.
    UsageError = 2, ///< The command line is wrong; nothing was sent for it.
};

/// Where the tool writes. Answers go to standard output; errors, messages of the status bar and the
/// log go to standard error.
class Console : public QObject {
public:
    /// Shows the status bar messages of the model from now on.
    Console();

    void answer(const std::string &text);
    /// Shows why something failed, unless the status bar has just said so.
    void error(const QString &text);

private:
    QString m_lastShown;
};

/// Shows the log whole, or not at all. QT_LOGGING_RULES still has the last word.
void setLogShown(bool shown);

} // namespace Tavoro::Ctl
