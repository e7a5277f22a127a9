#pragma once

#include <tavorosim/simulateddevice.h>

#include <QByteArrayList>
#include <QProcess>
#include <QTemporaryDir>

#include <memory>

/// The result of a run of the command-line tool.
struct ToolRun {
    int exitCode = -1; ///< -1 if the tool did not end by itself.
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
    /// Waits until \a text has been drawn. False after a timeout.
    bool waitFor(const QByteArray &text);
    /// Everything that has been drawn.
    QByteArray drawn();

private:
    bool read(int milliseconds);

    int m_master = -1;
    int m_held = -1; ///< Keeps the other side open while no tool does.
    QByteArray m_drawn;
};

/// A running tool.
class RunningTool {
public:
    /// Standard error goes to the file \a errorFile unless that is empty.
    explicit RunningTool(const QByteArrayList &arguments, const QString &errorFile = {});
    ~RunningTool();

    /// Writes to the standard input of the tool and keeps it open.
    void say(const QByteArray &input);
    /// Sends SIGINT or another signal.
    void interrupt();
    void interrupt(int signalNumber);
    /// Waits until \a text has been written. False after a timeout.
    bool waitForOutput(const QByteArray &text);
    bool waitForErrors(const QByteArray &text);
    /// Closes standard input and waits for the end.
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
    /// Runs \a command, one or two words, with the device as HOST.
    ToolRun run(const QByteArray &command, const QByteArrayList &words) const;
    QByteArrayList line(const QByteArray &command, const QByteArrayList &words = {}) const;
    QByteArray host() const;
    void console(const QString &line) const;

    QByteArray path(const QByteArray &name) const;
    /// Creates a file in the folder and returns its path.
    QByteArray makeFile(const QByteArray &name, const QByteArray &content) const;
    /// The content of a file in the folder; null if it is missing.
    QByteArray content(const QByteArray &name) const;
    /// The names of the files in the folder, hidden ones included.
    QByteArrayList fileNames() const;
    void removeFile(const QByteArray &name) const;

    QTemporaryDir folder;
    std::unique_ptr<Tavoro::Sim::SimulatedDevice> device;
};
