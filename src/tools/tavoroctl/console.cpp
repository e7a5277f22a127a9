#include "console.h"

#include <tavorobizmodel/devicelist.h>

#include <QLoggingCategory>

#include <cstdio>

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

Console::Console()
{
    connect(BizModel::DeviceList::instance(), &BizModel::DeviceList::signalShowStatusBarMsg, this,
            [this](BizModel::Enum::StatusBarMsgType, const QString &text) {
                m_lastShown = text;
                writeLine(stderr, text.toStdString());
            });
}

void Console::answer(const std::string &text)
{
    writeLine(stdout, text);
}

void Console::error(const QString &text)
{
    if (text != m_lastShown)
        writeLine(stderr, text.toStdString());
    m_lastShown.clear();
}

void setLogShown(bool shown)
{
    qInstallMessageHandler(writeLog);
    if (!shown)
        QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false"));
}

} // namespace Tavoro::Ctl
