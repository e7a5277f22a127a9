#include "console.h"

#include <tavorobizmodel/devicelist.h>

#include <QLoggingCategory>

#include <algorithm>
#include <cstdio>
#include <utility>

#include <unistd.h> // isatty

namespace Tavoro::Ctl {

namespace {

void writeLine(FILE *stream, const std::string &text)
{
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fputc('\n', stream);
    std::fflush(stream);
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

/// Writes to standard error in any case: the library's own handler may choose the system's journal.
void writeLog(QtMsgType level, const QMessageLogContext &context, const QString &text)
{
    writeLine(stderr,
              QStringLiteral("[%1] %2: %3")
                  .arg(QLatin1String(context.category), QLatin1String(levelName(level)), text)
                  .toStdString());
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
                writeLine(stderr, text.toStdString());
            });
}

Console::~Console()
{
    wipe();
}

void Console::answer(const std::string &text)
{
    wipe();
    writeLine(stdout, text);
}

void Console::error(const QString &text)
{
    wipe();
    if (text != m_lastShown)
        writeLine(stderr, text.toStdString());
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
    const QString line = QStringLiteral("\r[%1] %2 %  %3\x1b[K").arg(bar).arg(percent, 3).arg(text);
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
