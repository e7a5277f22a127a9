#pragma once

#include <QObject>
#include <QString>

#include <string>

namespace Tavoro::Ctl {

/// The exit status of the tool. Of several calls the highest counts.
enum ExitStatus {
    Done = 0,
    Failed = 1, ///< A device could not be reached, or an operation failed or was interrupted.
    UsageError = 2, ///< The command line is wrong; nothing was sent for it.
};

/// Which messages of the model's status bar are shown.
enum class StatusBar {
    Everything,
    Failures,
    Nothing,
};

/// Where the tool writes. Answers go to standard output; errors, messages of the status bar, the
/// progress and the log go to standard error. Control characters are escaped in everything but
/// JSON.
///
/// Belongs to the main thread, except progress(), which any thread may call.
class Console : public QObject {
public:
    /// Shows failures on the model's status bar from now on. Progress is drawn if \a mayDraw is
    /// true and standard error is a terminal.
    explicit Console(bool mayDraw);
    ~Console() override;

    void showStatusBar(StatusBar which) { m_statusBar = which; }

    /// Writes lines to standard output, control characters escaped. The first write that fails is
    /// reported as an error, and nothing is written after it.
    void answer(const QString &text);
    /// Writes JSON to standard output as it is.
    void answerJson(const std::string &text);
    /// Whether a write of standard output has failed. Commands that run until they are interrupted
    /// end then.
    bool hasOutputFailed() const { return m_hasOutputFailed; }
    /// The exit status of a command that ended with \a status: failed at least, if its output is
    /// incomplete.
    ExitStatus statusWithOutput(ExitStatus status) const;
    /// Shows why something failed, unless the status bar has just shown the same text.
    void error(const QString &text);

    /// Draws a progress bar with \a text after it, instead of the previous one. The next message
    /// clears it.
    void progress(int percent, const QString &text);

private:
    void draw(int percent, const QString &text);
    void wipe();

    const bool m_draws;
    bool m_isDrawn = false;
    bool m_hasOutputFailed = false;
    StatusBar m_statusBar = StatusBar::Failures;
    QString m_lastShown;
};

/// Shows the whole log of this project and the usual one of Qt, or none. QT_LOGGING_RULES takes
/// precedence.
void setLogShown(bool shown);

} // namespace Tavoro::Ctl
