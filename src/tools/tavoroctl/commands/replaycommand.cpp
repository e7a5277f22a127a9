#include "commandlist.h"

#include <tavoroctl/output/printable.h>
#include <tavoroctl/transfers/contenttarget.h>
#include <tavorowire/capture.h>
#include <tavorowire/pcapng.h>

#include <QFile>

namespace Tavoro::Ctl {

namespace {

using SSProxy::Wire::CapturedItem;
using SSProxy::Wire::CapturedKind;
using SSProxy::Wire::WireHead;

constexpr int longestShown = 200; ///< Bytes of a body.

// By FrameKind.
constexpr const char *frameKindNames[] = {
    "kind 0",           "request",         "response", "report",
    "identity request", "identity answer", "ping",     "pong"};

QString kindName(quint8 kind)
{
    return kind < std::size(frameKindNames) ? QLatin1String(frameKindNames[kind])
                                            : QStringLiteral("kind %1").arg(kind);
}

/// The fields of the head of a request, response or report.
QString headText(const WireHead &head)
{
    const QString code = QStringLiteral("%1").arg(head.code(), 4, 16, QLatin1Char('0')).toUpper();
    return QStringLiteral(" 0x%1 type %2 tag %3 packet %4/%5 status %6")
        .arg(code)
        .arg(head.type)
        .arg(head.lables)
        .arg(head.sendCount)
        .arg(head.totalCount)
        .arg(head.status);
}

/// The length of a body, and the text of a JSON body.
QString bodyText(const std::string &body)
{
    QString length = QStringLiteral(", %1 bytes").arg(body.size());
    if (body.empty() || (body.front() != '{' && body.front() != '['))
        return length;
    const QString text = QString::fromUtf8(body.data(), static_cast<int>(body.size()));
    return length + QLatin1Char(' ')
        + (text.size() > longestShown ? text.left(longestShown) + QStringLiteral(" ...") : text);
}

QString frameText(const CapturedItem &item)
{
    if (item.frame.status != 0)
        return QStringLiteral("refused with status %1").arg(item.frame.status);
    const WireHead &head = item.frame.head;
    const bool isExchange = head.kind <= quint8(SSProxy::Wire::FrameKind::Report);
    return kindName(head.kind) + (isExchange ? headText(head) : QString());
}

QString partText(const CapturedItem &item)
{
    const auto size = item.bytes.size();
    if (!item.hasWholeHead())
        return QStringLiteral("part of a frame, %1 bytes").arg(size);
    return QStringLiteral("part of a %1, %2 of %3 bytes")
        .arg(frameText(item))
        .arg(size - sizeof(WireHead))
        .arg(item.frame.head.bodyLength);
}

QString eventText(const CapturedItem &item)
{
    switch (item.kind) {
    case CapturedKind::Opened:
        return QStringLiteral("connected to %1").arg(QString::fromStdString(item.text));
    case CapturedKind::Frame:
        return frameText(item) + (item.frame.status == 0 ? bodyText(item.frame.body) : QString());
    case CapturedKind::Incomplete:
        return partText(item);
    case CapturedKind::Closed:
        return QStringLiteral("closed");
    case CapturedKind::Lost:
        return QStringLiteral("lost: %1").arg(QString::fromStdString(item.text));
    }
    return {};
}

char directionOf(const CapturedItem &item)
{
    if (item.kind != CapturedKind::Frame && item.kind != CapturedKind::Incomplete)
        return '|';
    return item.isFromClient ? '>' : '<';
}

QString lineOf(const CapturedItem &item)
{
    return QStringLiteral("%1 %2 %3 ")
               .arg(static_cast<double>(item.microseconds) / 1e6, 10, 'f', 6)
               .arg(item.channel)
               .arg(QLatin1Char(directionOf(item)))
        + eventText(item);
}

const char *eventName(CapturedKind kind)
{
    switch (kind) {
    case CapturedKind::Opened:
        return "opened";
    case CapturedKind::Frame:
        return "frame";
    case CapturedKind::Incomplete:
        return "incomplete";
    case CapturedKind::Closed:
        return "closed";
    case CapturedKind::Lost:
        return "lost";
    }
    return "";
}

QJsonObject objectOf(const CapturedItem &item)
{
    QJsonObject object{
        {QStringLiteral("event"), QLatin1String(eventName(item.kind))},
        {QStringLiteral("seconds"), static_cast<double>(item.microseconds) / 1e6},
        {QStringLiteral("channel"), static_cast<qint64>(item.channel)},
        {QStringLiteral("text"), eventText(item)},
    };
    if (item.kind != CapturedKind::Frame || item.frame.status != 0)
        return object;
    const WireHead &head = item.frame.head;
    object.insert(QStringLiteral("fromClient"), item.isFromClient);
    object.insert(QStringLiteral("kind"), kindName(head.kind));
    object.insert(QStringLiteral("code"), head.code());
    object.insert(QStringLiteral("type"), head.type);
    object.insert(QStringLiteral("tag"), head.lables);
    object.insert(QStringLiteral("status"), head.status);
    object.insert(QStringLiteral("bytes"), static_cast<qint64>(item.frame.body.size()));
    return object;
}

ExitStatus showCapture(Tool &tool, const std::string &text, std::string &fault)
{
    std::vector<CapturedItem> items;
    SSProxy::Wire::decodeCapture(text, items, fault);
    for (const CapturedItem &item : items) {
        if (tool.console.isJson())
            tool.console.answerObject(objectOf(item));
        else
            tool.console.answer(printable(lineOf(item)));
    }
    return Done;
}

/// Writes the capture for Wireshark. Text does not contain the time of its start: the packets are
/// of the year 1970.
ExitStatus convertCapture(Tool &tool, const std::string &text, const QString &path,
                          std::string &fault)
{
    SSProxy::Wire::PcapngEncoder encoder(0);
    std::string converted = encoder.heading();
    const auto convert = [&](const SSProxy::Wire::CaptureLine &line) {
        converted += encoder.encode(line.channel, line.microseconds, line.event, line.bytes);
    };
    if (!SSProxy::Wire::readCapture(text, convert, fault))
        return Done;
    ContentTarget target(path);
    QString error;
    const bool isWritten =
        target.open(error) && target.write(converted, error) && target.commit(error);
    if (!isWritten)
        return fail(tool, error, Failed);
    return target.isStandardOutput() ? Done : finish(tool, {{QStringLiteral("file"), path}});
}

} // namespace

ExitStatus runReplay(Tool &tool, const Arguments &arguments)
{
    const QString path = arguments.words.at(0);
    if (path.isEmpty())
        return refuseEmpty(tool, QStringLiteral("FILE"));
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(tool, QStringLiteral("%1: %2").arg(path, file.errorString()), Failed);
    const std::string text = file.readAll().toStdString();
    const QString target = arguments.options.value(QStringLiteral("pcapng"));
    std::string fault;
    const ExitStatus status = target.isNull() ? showCapture(tool, text, fault)
                                              : convertCapture(tool, text, target, fault);
    return fault.empty()
        ? status
        : fail(tool, QStringLiteral("%1: %2").arg(path, QString::fromStdString(fault)), Failed);
}

} // namespace Tavoro::Ctl
