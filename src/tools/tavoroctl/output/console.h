#pragma once

#include <QObject>
#include <QString>

#include <string>

namespace Tavoro::Ctl {

/// What a run of the tool ends with. The larger one counts.
enum ExitStatus {
    Done = 0,
    Failed = 1, ///< A device could not be reached, an operation failed or was interrupted.
    UsageError = 2, ///< The command line is wrong; nothing was sent for it.
};

/// Which messages of the model's status bar are shown.
enum class StatusBar {
    Everything,
    Failures,
    Nothing,
};

/// Where the tool writes. Answers go to standard output; errors, messages of the status bar, the
/// progress and the log go to standard error.
///
/// Belongs to the main thread, except progress(), which any thread may call.
class Console : public QObject {
public:
    /// Shows failures that the model's status bar tells from now on. Progress is drawn when \a
    /// mayDraw is true and standard error is a terminal.
    explicit Console(bool mayDraw);
    ~Console() override;

    void showStatusBar(StatusBar which) { m_statusBar = which; }

    void answer(const std::string &text);
    /// Shows why something failed, unless the status bar has just said so.
    void error(const QString &text);

    /// Draws a bar that is \a percent full, with \a text behind it, in the place of the one before.
    /// Whatever is written next wipes it away.
    void progress(int percent, const QString &text);

private:
    void draw(int percent, const QString &text);
    void wipe();

    const bool m_draws;
    bool m_isDrawn = false;
    StatusBar m_statusBar = StatusBar::Failures;
    QString m_lastShown;
};

/// Shows all lines of this project's log and those of Qt as usual, or none at all.
/// QT_LOGGING_RULES still has the last word.
void setLogShown(bool shown);

} // namespace Tavoro::Ctl
