#include "journal.h"

#include <tavorobizmodel/devicelist.h>

using Tavoro::BizModel::DeviceList;
namespace Enum = Tavoro::BizModel::Enum;

namespace {

QString levelName(QtMsgType level)
{
    switch (level) {
    case QtDebugMsg:
        return QStringLiteral("debug");
    case QtInfoMsg:
        return QStringLiteral("info");
    case QtWarningMsg:
        return QStringLiteral("warning");
    case QtCriticalMsg:
        return QStringLiteral("critical");
    case QtFatalMsg:
        break;
    }
    return QStringLiteral("fatal");
}

} // namespace

Journal::Journal()
{
    const auto *list = DeviceList::instance();
    const auto onCallersThread = Qt::DirectConnection;
    connect(
        list, &DeviceList::signalShowStatusBarMsg, this,
        [this](Enum::StatusBarMsgType type, const QString &text, int ms) {
            add(QStringLiteral("status bar %1 for %2 ms: %3").arg(int(type)).arg(ms).arg(text));
        },
        onCallersThread);
    connect(
        list, &DeviceList::signalShowFramelessMessageBoxMsg, this,
        [this](Enum::FramelessMessageBoxMsgType type, const QString &text) {
            add(QStringLiteral("message box %1: %2").arg(int(type)).arg(text));
            return 0;
        },
        onCallersThread);
    connect(
        list, &DeviceList::signalReadDataFromHWProgressChanged, this,
        [this](double share) { add(QStringLiteral("reading: %1").arg(share)); }, onCallersThread);
    connect(
        list, &DeviceList::signalSendData2HWProgressChanged, this,
        [this](double share) { add(QStringLiteral("sending: %1").arg(share)); }, onCallersThread);
}

QStringList Journal::lines() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    fetchLogLines();
    return m_lines;
}

void Journal::clear()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_catcher.clear();
    m_fetched = 0;
    m_lines.clear();
}

void Journal::add(const QString &line)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    fetchLogLines();
    m_lines.append(line);
}

void Journal::fetchLogLines() const
{
    const auto messages = m_catcher.messages();
    for (; m_fetched < messages.size(); ++m_fetched) {
        const CaughtMessage &message = messages.at(m_fetched);
        if (message.category != QLatin1String("tavoro.control"))
            continue;
        const QString where = message.hasLocation ? QString() : QStringLiteral("(nowhere) ");
        m_lines.append(levelName(message.level) + QStringLiteral(": ") + where + message.text);
    }
}
