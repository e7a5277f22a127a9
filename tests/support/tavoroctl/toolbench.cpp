#include "toolbench.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcessEnvironment>

#include <csignal>
#include <cstdlib>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace {

constexpr int patience = 30000; ///< Milliseconds.

QStringList texts(const QByteArrayList &words)
{
    QStringList list;
    for (const QByteArray &word : words)
        list += QString::fromUtf8(word);
    return list;
}

} // namespace

Terminal::Terminal() : m_master(::posix_openpt(O_RDWR | O_NOCTTY))
{
    if (m_master < 0 || ::grantpt(m_master) != 0 || ::unlockpt(m_master) != 0)
        qFatal("cannot open a terminal");
    m_held = ::open(::ptsname(m_master), O_RDWR | O_NOCTTY);
}

Terminal::~Terminal()
{
    ::close(m_held);
    ::close(m_master);
}

QString Terminal::name() const
{
    return QString::fromLocal8Bit(::ptsname(m_master));
}

bool Terminal::waitFor(const QByteArray &text)
{
    while (!m_drawn.contains(text)) {
        if (!read(patience))
            return false;
    }
    return true;
}

QByteArray Terminal::drawn()
{
    while (read(0)) { }
    return m_drawn;
}

bool Terminal::read(int milliseconds)
{
    pollfd ready{m_master, POLLIN, 0};
    if (::poll(&ready, 1, milliseconds) != 1)
        return false;
    char piece[1024];
    const auto length = ::read(m_master, piece, sizeof piece);
    if (length > 0)
        m_drawn.append(piece, static_cast<int>(length));
    return length > 0;
}

RunningTool::RunningTool(const QByteArrayList &arguments, const QString &errorFile)
{
    if (!errorFile.isEmpty())
        m_process.setStandardErrorFile(errorFile);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("NO_COLOR"), QStringLiteral("1"));
    m_process.setProcessEnvironment(environment);
    m_process.start(QStringLiteral(TAVOROCTL), texts(arguments));
    m_process.waitForStarted(patience);
}

RunningTool::~RunningTool()
{
    m_process.kill();
    m_process.waitForFinished(patience);
}

void RunningTool::say(const QByteArray &input)
{
    m_process.write(input);
}

void RunningTool::interrupt()
{
    interrupt(SIGINT);
}

void RunningTool::interrupt(int signalNumber)
{
    ::kill(static_cast<pid_t>(m_process.processId()), signalNumber);
}

bool RunningTool::waitForOutput(const QByteArray &text)
{
    return waitFor(text, m_run.output);
}

bool RunningTool::waitForErrors(const QByteArray &text)
{
    return waitFor(text, m_run.errors);
}

bool RunningTool::waitFor(const QByteArray &text, const QByteArray &seen)
{
    const QDeadlineTimer deadline(patience);
    for (collect(); !seen.contains(text); collect()) {
        // Each wait watches only one of the two channels.
        const bool isAlive = m_process.state() == QProcess::Running && !deadline.hasExpired();
        m_process.setReadChannel(&seen == &m_run.errors ? QProcess::StandardError
                                                        : QProcess::StandardOutput);
        if (!isAlive || !m_process.waitForReadyRead(patience)) {
            collect();
            return seen.contains(text);
        }
    }
    return true;
}

void RunningTool::collect()
{
    m_run.output += m_process.readAllStandardOutput();
    m_run.errors += m_process.readAllStandardError();
}

ToolRun RunningTool::finish()
{
    m_process.closeWriteChannel();
    const bool hasEnded =
        m_process.state() == QProcess::NotRunning || m_process.waitForFinished(patience);
    collect();
    if (hasEnded && m_process.exitStatus() == QProcess::NormalExit)
        m_run.exitCode = m_process.exitCode();
    return m_run;
}

ToolBench::ToolBench(const Tavoro::Sim::SimOptions &options)
    : device(std::make_unique<Tavoro::Sim::SimulatedDevice>(options))
{
    QString error;
    if (!device->start(error))
        qFatal("%s", qUtf8Printable(error));
}

ToolRun ToolBench::run(const QByteArrayList &arguments, const QByteArray &input)
{
    RunningTool tool(arguments);
    tool.say(input);
    return tool.finish();
}

ToolRun ToolBench::run(const QByteArray &command, const QByteArrayList &words) const
{
    return run(line(command, words));
}

QByteArrayList ToolBench::line(const QByteArray &command, const QByteArrayList &words) const
{
    return command.split(' ') + QByteArrayList{host()} + words;
}

QByteArray ToolBench::host() const
{
    return "127.0.0.1:" + QByteArray::number(device->port());
}

void ToolBench::console(const QString &line) const
{
    if (!device->execute(line).ok)
        qFatal("the console refused %s", qUtf8Printable(line));
}

QByteArray ToolBench::path(const QByteArray &name) const
{
    return folder.filePath(QString::fromUtf8(name)).toUtf8();
}

QByteArray ToolBench::makeFile(const QByteArray &name, const QByteArray &content) const
{
    QFile file(QString::fromUtf8(path(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot create a file");
    return path(name);
}

QByteArray ToolBench::content(const QByteArray &name) const
{
    QFile file(QString::fromUtf8(path(name)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArrayList ToolBench::fileNames() const
{
    QByteArrayList names;
    for (const QString &name :
         QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name))
        names += name.toUtf8();
    return names;
}

void ToolBench::removeFile(const QByteArray &name) const
{
    if (!QFile::remove(QString::fromUtf8(path(name))))
        qFatal("cannot remove a file");
}
