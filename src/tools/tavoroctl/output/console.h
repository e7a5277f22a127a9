#pragma once

#include "failure.h"
#include "progress.h"

#include <QElapsedTimer>
#include <QJsonObject>
#include <QObject>
#include <QString>

#include <string>

namespace Tavoro::Ctl {

/// Which messages of the model's status bar are shown.
enum class StatusBar {
    Everything,
    Failures,
    Successes,
    Nothing,
};

/// How the tool writes.
struct OutputForm {
    bool isJson = false; ///< Objects instead of texts, also on standard error.
    bool isQuiet = false; ///< Only answers and errors.
    bool mayDraw = true; ///< Draw progress if standard error is a terminal.
};

/// Where the tool writes. Answers go to standard output; errors, notices, messages of the status
/// bar, the progress and the log go to standard error. Control characters are escaped in everything
/// but JSON.
///
/// Belongs to the main thread, except progress(), which any thread may call.
class Console : public QObject {
public:
    /// Shows failures on the model's status bar from now on.
    explicit Console(const OutputForm &form);
    ~Console() override;

    bool isJson() const { return m_form.isJson; }
    void showStatusBar(StatusBar which) { m_statusBar = which; }

    /// Writes lines to standard output, control characters escaped. The first write that fails is
    /// reported as an error, and nothing is written after it.
    void answer(const QString &text);
    /// Writes JSON to standard output as it is.
    void answerJson(const std::string &text);
    /// Writes an object to standard output, with the version of the form.
    void answerObject(const QJsonObject &object);
    /// Whether a write of standard output has failed. Commands that run until they are interrupted
    /// end then.
    bool hasOutputFailed() const { return m_hasOutputFailed; }
    /// The exit status of a command that ended with \a status: OutputFailed at least, if its output
    /// is incomplete.
    ExitStatus statusWithOutput(ExitStatus status) const;
    /// Shows why something failed, unless the status bar has just shown the same text.
    void error(const Failure &failure);
    /// Shows on standard error what is under way, unless the tool is quiet.
    void notice(const QString &text);

    /// Draws a progress bar instead of the previous one. The next message clears it.
    void progress(const Progress &progress);
    /// With JSON, writes each progress to standard output as an object.
    void streamProgress() { m_streamsProgress = true; }

private:
    void showStatusBarText(bool isFailure, const QString &text);
    void writeNotice(const QString &text);
    void flushHeldFailure();
    void showProgress(Progress progress);
    void draw(const Progress &progress);
    void wipe();

    const OutputForm m_form;
    const bool m_draws;
    const bool m_colours; ///< Errors are red.
    bool m_isDrawn = false;
    bool m_hasOutputFailed = false;
    bool m_streamsProgress = false;
    StatusBar m_statusBar = StatusBar::Failures;
    QString m_lastShown; ///< The last text of the status bar that was shown.
    QString m_heldFailure; ///< With JSON, a failure on the status bar: an error may follow.
    QElapsedTimer m_sinceStart; ///< Of the progress.
};

/// Shows the whole log of this project and the usual one of Qt, or none. QT_LOGGING_RULES takes
/// precedence.
void setLogShown(bool shown);

} // namespace Tavoro::Ctl
