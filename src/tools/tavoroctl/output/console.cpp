#include "console.h"

#include "jsonline.h"
#include "printable.h"
#include "standardstreams.h"
#include "statusmeaning.h"
#include "terminal.h"

#include <tavorobizmodel/devicelist.h>
#include <tavoroctl/arguments/texts.h>

#include <QLoggingCategory>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace Tavoro::Ctl {

namespace {

void writeToStandardError(const std::string &line)
{
    QString ignored; // There is no place left to report it.
    writeBytes(stderr, line.data(), line.size(), ignored);
}

void writeErrorLine(const QString &text, bool isRed = false)
{
    const std::string line = printable(text).toStdString();
    writeToStandardError((isRed ? "\x1b[31m" + line + "\x1b[0m" : line) + '\n');
}

void writeJsonLine(const QJsonObject &object)
{
    writeToStandardError(jsonLine(object) + '\n');
}

const char *levelName(QtMsgType level)
{
    switch (level) {
    case QtDebugMsg:
        return "debug";
    case QtInfoMsg:
        return "info";
    case QtWarningMsg:
        return "warning";
    case QtCriticalMsg:
    case QtFatalMsg:
        break;
    }
    return "critical";
}

/// Writes to standard error. Qt's own handler may choose the system's journal instead.
void writeLog(QtMsgType level, const QMessageLogContext &context, const QString &text)
{
    writeErrorLine(
        QStringLiteral("[%1] %2: %3")
            .arg(QLatin1String(context.category), QLatin1String(levelName(level)), text));
}

} // namespace

Console::Console(const OutputForm &form)
    : m_form(form),
      m_draws(form.mayDraw && !form.isQuiet && !form.isJson && isTerminal()),
      m_colours(!form.isJson && mayUseColours())
{
    connect(BizModel::DeviceList::instance(), &BizModel::DeviceList::signalShowStatusBarMsg, this,
            [this](BizModel::Enum::StatusBarMsgType type, const QString &text) {
                showStatusBarText(type == BizModel::Enum::StatusBarFailure, text);
            });
}

Console::~Console()
{
    flushHeldFailure();
    wipe();
}

void Console::showStatusBarText(bool isFailure, const QString &text)
{
    const StatusBar other = isFailure ? StatusBar::Failures : StatusBar::Successes;
    if (m_statusBar != StatusBar::Everything && m_statusBar != other)
        return;
    if (!isFailure && (m_form.isJson || m_form.isQuiet))
        return;
    if (m_form.isJson) {
        flushHeldFailure();
        m_heldFailure = text;
        return;
    }
    m_lastShown = text;
    wipe();
    writeErrorLine(withMeanings(text), isFailure && m_colours);
}

void Console::flushHeldFailure()
{
    if (!m_heldFailure.isEmpty())
        writeNotice(std::exchange(m_heldFailure, {}));
}

void Console::answer(const QString &text)
{
    answerJson(printableLines(text).toStdString());
}

void Console::answerObject(const QJsonObject &object)
{
    answerJson(jsonLine(object));
}

void Console::answerJson(const std::string &text)
{
    if (m_hasOutputFailed)
        return;
    wipe();
    QString reason;
    const std::string line = text + '\n';
    if (writeBytes(stdout, line.data(), line.size(), reason))
        return;
    m_hasOutputFailed = true;
    error({OutputFailed, Texts::tr("Cannot write standard output: %1.").arg(reason), 0, {}, 0});
}

ExitStatus Console::statusWithOutput(ExitStatus status) const
{
    return m_hasOutputFailed ? std::max(status, OutputFailed) : status;
}

void Console::error(const Failure &failure)
{
    wipe();
    if (m_form.isJson) {
        if (m_heldFailure != failure.text)
            flushHeldFailure();
        m_heldFailure.clear();
        writeJsonLine(failure.toJson());
    } else if (failure.text != m_lastShown) {
        writeErrorLine(failure.sentence(), m_colours);
    }
    m_lastShown.clear();
}

void Console::notice(const QString &text)
{
    if (m_form.isQuiet)
        return;
    wipe();
    writeNotice(text);
}

void Console::writeNotice(const QString &text)
{
    if (m_form.isJson)
        writeJsonLine(
            {{QStringLiteral("event"), QStringLiteral("notice")}, {QStringLiteral("text"), text}});
    else
        writeErrorLine(withMeanings(text));
}

void Console::progress(const Progress &progress)
{
    QMetaObject::invokeMethod(this, [this, progress] { showProgress(progress); });
}

void Console::showProgress(Progress progress)
{
    if (!m_sinceStart.isValid())
        m_sinceStart.start();
    progress.milliseconds = m_sinceStart.elapsed();
    if (m_draws)
        draw(progress);
    else if (m_form.isJson && m_streamsProgress && !m_form.isQuiet)
        answerObject(progressObject(progress));
}

void Console::draw(const Progress &progress)
{
    // The last column stays empty: some terminals begin a new line after it.
    const QString line =
        QLatin1Char('\r') + progressLine(progress, terminalWidth() - 1) + QStringLiteral("\x1b[K");
    std::fputs(qUtf8Printable(line), stderr);
    std::fflush(stderr);
    m_isDrawn = true;
}

void Console::wipe()
{
    if (std::exchange(m_isDrawn, false))
        std::fputs("\r\x1b[K", stderr);
}

void setLogShown(bool shown)
{
    qInstallMessageHandler(writeLog);
    QLoggingCategory::setFilterRules(shown ? QStringLiteral("tavoro.*=true")
                                           : QStringLiteral("*=false"));
}

} // namespace Tavoro::Ctl
