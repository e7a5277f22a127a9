#include "messages.h"

#include <tavorobizmodel/devicelist.h>

namespace Tavoro::Panel {

using namespace BizModel::Enum;

namespace {

Severity severityOf(StatusBarMsgType type)
{
    switch (type) {
    case StatusBarSuccess:
        return Severity::Detail;
    case StatusBarInformation:
        return Severity::Information;
    case StatusBarFailure:
        return Severity::Warning;
    }
    return Severity::Information;
}

} // namespace

Messages::Messages(QObject *parent) : QAbstractTableModel(parent)
{
    // The library emits the signal on the thread of a call; the context brings it to this one.
    connect(BizModel::DeviceList::instance(), &BizModel::DeviceList::signalShowStatusBarMsg, this,
            [this](StatusBarMsgType type, const QString &text) { report(severityOf(type), text); });
}

void Messages::report(const Outcome &outcome)
{
    if (!outcome && !outcome.isReplaced())
        report(Severity::Error, outcome.text(), outcome.deviceName());
}

void Messages::report(Severity severity, const QString &text, const QString &device)
{
    if (m_messages.size() == maxMessages) {
        beginRemoveRows({}, 0, 0);
        m_messages.pop_front();
        endRemoveRows();
    }
    beginInsertRows({}, rowCount(), rowCount());
    m_messages.push_back({QDateTime::currentDateTime(), severity, device, text});
    endInsertRows();
    Q_EMIT reported(Message(m_messages.back()));
}

QString Messages::severityName(Severity severity)
{
    switch (severity) {
    case Severity::Detail:
        return tr("Detail");
    case Severity::Information:
        return tr("Information");
    case Severity::Warning:
        return tr("Warning");
    case Severity::Error:
        return tr("Error");
    }
    return {};
}

QString Messages::line(const Message &message)
{
    return QStringList{message.time.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")),
                       severityName(message.severity), message.device, message.text}
        .join(QLatin1Char('\t'));
}

int Messages::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_messages.size());
}

int Messages::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

QVariant Messages::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Message &shown = message(index.row());
    if (role == severityRole)
        return static_cast<int>(shown.severity);
    if (role != Qt::DisplayRole)
        return {};
    switch (index.column()) {
    case TimeColumn:
        return shown.time.toString(QStringLiteral("hh:mm:ss.zzz"));
    case SeverityColumn:
        return severityName(shown.severity);
    case DeviceColumn:
        return shown.device;
    case TextColumn:
        return shown.text;
    }
    return {};
}

QVariant Messages::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case TimeColumn:
        return tr("Time");
    case SeverityColumn:
        return tr("Severity");
    case DeviceColumn:
        return tr("Device");
    case TextColumn:
        return tr("Message");
    }
    return {};
}

} // namespace Tavoro::Panel
