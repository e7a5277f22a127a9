#pragma once

#include <tavorosim/simulateddevice.h>

#include <QByteArrayList>
#include <QProcess>
#include <QTemporaryDir>

#include <memory>

/// How a run of the command-line tool ended.
struct ToolRun {
    int exitCode = -1; ///< -1: it did not end by itself.
    QByteArray output;
    QByteArray errors;
};

/// A terminal for the standard error of a tool.
class Terminal {
public:
    Terminal();
    ~Terminal();
    Terminal(const Terminal &) = delete;
    Terminal &operator=(const Terminal &) = delete;

    QString name() const;
    /// Waits until \a text was drawn; false if it never is.
    bool waitFor(const QByteArray &text);
    /// All that was drawn until now.
    QByteArray drawn();

private:
    bool read(int milliseconds);

    int m_master = -1;
    int m_held = -1; ///< Keeps the other side open when no tool does.
    QByteArray m_drawn;
};

/// The tool while it runs.
class RunningTool {
public:
    /// Standard error goes to the file \a errorFile unless that is empty.
    explicit RunningTool(const QByteArrayList &arguments, const QString &errorFile = {});
    ~RunningTool();

    /// Writes to standard input, which stays open.
    void say(const QByteArray &input);
    /// Sends the signal of Ctrl-C, or another one.
    void interrupt();
    void interrupt(int signalNumber);
    /// Waits until \a text was written to standard output or standard error; false if it never is.
    bool waitForOutput(const QByteArray &text);
    bool waitForErrors(const QByteArray &text);
    /// Waits for the end.
    ToolRun finish();

private:
    bool waitFor(const QByteArray &text, const QByteArray &seen);
    void collect();

    QProcess m_process;
    ToolRun m_run;
};

/// A simulated device, the tool, and a folder for files.
class ToolBench {
public:
    explicit ToolBench(const Tavoro::Sim::SimOptions &options = {});

    static ToolRun run(const QByteArrayList &arguments, const QByteArray &input = {});
    /// Runs \a command, which may be two words, on the device.
    ToolRun run(const QByteArray &command, const QByteArrayList &words) const;
    QByteArrayList line(const QByteArray &command, const QByteArrayList &words = {}) const;
    QByteArray host() const;
    void console(const QString &line) const;

    QByteArray path(const QByteArray &name) const;
    /// Makes a file in the folder and returns its path.
    QByteArray makeFile(const QByteArray &name, const QByteArray &content) const;
    /// The content of a file in the folder; null if it is not there.
    QByteArray content(const QByteArray &name) const;
    /// What is in the folder, hidden files included.
    QByteArrayList fileNames() const;
    void removeFile(const QByteArray &name) const;

    QTemporaryDir folder;
    std::unique_ptr<Tavoro::Sim::SimulatedDevice> device;
};
