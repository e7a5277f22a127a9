#include "console.h"

#include "printable.h"
#include "standardstreams.h"

#include <tavorobizmodel/devicelist.h>

#include <QLoggingCategory>

#include <algorithm>
#include <cstdio>
#include <utility>

#include <unistd.h> // isatty

namespace Tavoro::Ctl {

namespace {

void writeErrorLine(const QString &text)
{
    QString ignored; // There is no place left to report it.
    const std::string line = printable(text).toStdString() + '\n';
    writeBytes(stderr, line.data(), line.size(), ignored);
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

Console::Console(bool mayDraw) : m_draws(mayDraw && isatty(fileno(stderr)) != 0)
{
    connect(BizModel::DeviceList::instance(), &BizModel::DeviceList::signalShowStatusBarMsg, this,
            [this](BizModel::Enum::StatusBarMsgType type, const QString &text) {
                const bool isFailure = type == BizModel::Enum::StatusBarFailure;
                if (m_statusBar == StatusBar::Nothing
                    || (m_statusBar == StatusBar::Failures && !isFailure))
                    return;
                m_lastShown = text;
                wipe();
                writeErrorLine(text);
            });
}

Console::~Console()
{
    wipe();
}

void Console::answer(const QString &text)
{
    answerJson(printableLines(text).toStdString());
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
    error(QStringLiteral("Cannot write standard output: %1.").arg(reason));
}

ExitStatus Console::statusWithOutput(ExitStatus status) const
{
    return m_hasOutputFailed ? std::max(status, Failed) : status;
}

void Console::error(const QString &text)
{
    wipe();
    if (text != m_lastShown)
        writeErrorLine(text);
    m_lastShown.clear();
}

void Console::progress(int percent, const QString &text)
{
    if (m_draws)
        QMetaObject::invokeMethod(this, [this, percent, text] { draw(percent, text); });
}

void Console::draw(int percent, const QString &text)
{
    constexpr int width = 30;
    const int full = std::clamp(percent, 0, 100) * width / 100;
    const QString bar = QString(full, QLatin1Char('#')) + QString(width - full, QLatin1Char('-'));
    const QString line =
        QStringLiteral("\r[%1] %2 %  %3\x1b[K").arg(bar).arg(percent, 3).arg(printable(text));
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
