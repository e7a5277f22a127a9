#include "commandlist.h"

#include <tavorossproxy/wire/capture.h>

#include <QFile>

namespace Tavoro::Ctl {

namespace {

using SSProxy::Wire::CapturedFrame;
using SSProxy::Wire::WireHead;

constexpr int longestShown = 200; ///< Bytes of a body.

// By FrameKind.
constexpr const char *kindNames[] = {"kind 0",           "request",         "response", "report",
                                     "identity request", "identity answer", "ping",     "pong"};

QString kindName(quint8 kind)
{
    return kind < std::size(kindNames) ? QLatin1String(kindNames[kind])
                                       : QStringLiteral("kind %1").arg(kind);
}

/// What the head of a request, response or report tells beyond its kind.
QString tellHead(const WireHead &head)
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

/// JSON as it stands; of other bodies only the length is told.
QString tellBody(const std::string &body)
{
    QString length = QStringLiteral(", %1 bytes").arg(body.size());
    if (body.empty() || (body.front() != '{' && body.front() != '['))
        return length;
    const QString text = QString::fromUtf8(body.data(), static_cast<int>(body.size()));
    return length + QLatin1Char(' ')
        + (text.size() > longestShown ? text.left(longestShown) + QStringLiteral(" ...") : text);
}

QString tell(const CapturedFrame &captured)
{
    const WireHead &head = captured.frame.head;
    const QString place = QStringLiteral("%1 %2 %3 ")
                              .arg(static_cast<double>(captured.microseconds) / 1e6, 10, 'f', 6)
                              .arg(captured.channel)
                              .arg(QLatin1Char(captured.isFromClient ? '>' : '<'));
    if (captured.frame.status != 0)
        return place + QStringLiteral("refused with status %1").arg(captured.frame.status);
    const bool isExchange = head.kind <= quint8(SSProxy::Wire::FrameKind::Report);
    return place + kindName(head.kind) + (isExchange ? tellHead(head) : QString())
        + tellBody(captured.frame.body);
}

} // namespace

ExitStatus runReplay(Tool &tool, const Arguments &arguments)
{
    const QString path = arguments.words.at(0);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return fail(tool, QStringLiteral("%1: %2").arg(path, file.errorString()));
    std::vector<CapturedFrame> frames;
    std::string error;
    const bool isRead = SSProxy::Wire::decodeCapture(file.readAll().toStdString(), frames, error);
    for (const CapturedFrame &frame : frames)
        tool.console.answer(tell(frame).toStdString());
    return isRead ? Done
                  : fail(tool, QStringLiteral("%1: %2").arg(path, QString::fromStdString(error)));
}

} // namespace Tavoro::Ctl
