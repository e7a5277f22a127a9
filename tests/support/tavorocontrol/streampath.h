#pragma once

#include "requestpath.h"
#include "streamedcalls.h"

#include <QList>
#include <QMetaType>

using Answers = QList<ScriptedAnswer>;

/// What may happen during a transfer.
enum Change {
    Nothing,
    ControlIsLost,
    IsCancelled,
    GoesOffline,
};

constexpr double third = 1.0 / 3;
constexpr double twoThirds = 2.0 / 3;

constexpr auto packet = &ScriptedAnswer::packet;
constexpr auto refusal = &ScriptedAnswer::refusal;
constexpr auto noResponse = &ScriptedAnswer::noResponse;

// Most tests read this object of three packets.

inline ScriptedAnswer one()
{
    return packet("one", 3, 0);
}

inline ScriptedAnswer two()
{
    return packet("two", 3, 1);
}

inline ScriptedAnswer three()
{
    return packet("three", 3, 2);
}

/// The calls of the callback that the first \a count of the three packets make.
inline QStringList packetCalls(int count)
{
    const QStringList calls{streamedCall(true, third, "one"), streamedCall(true, twoThirds, "two"),
                            streamedCall(true, 1, "three")};
    return calls.mid(0, count);
}

inline QStringList callbackLines(const QStringList &lines)
{
    return lines.filter(QStringLiteral("callback: "));
}

/// Streams from a scripted device. The lines of the outcome contain the calls of the callback, in
/// their order.
class StreamPath : public RequestPath {
public:
    Outcome stream(const Request &request, const StreamCallback &then = {})
    {
        Outcome outcome;
        outcome.ok = helper.sendSyncRequest(device.model, request, recordCallsIn(journal, then));
        outcome.lines = takeLines();
        return outcome;
    }

    void answer(const Answers &answers)
    {
        for (const ScriptedAnswer &scripted : answers)
            device.channel->answer(scripted);
    }

    void make(Change change)
    {
        switch (change) {
        case Nothing:
            break;
        case ControlIsLost:
            device.channel->master = false;
            break;
        case IsCancelled:
            helper.setCancelledState(true);
            break;
        case GoesOffline:
            device.channel->ready = false;
            break;
        }
    }
};

inline StreamPath::Request exportRequest()
{
    return RequestPath::request(3, 0xFA04);
}

constexpr char requestLine[] =
    R"(info: TavoroCmd {device} "BC(fa), FC(4)." "Get file export information.arg2 values:" 4 3 2 1 " lables: 7")";

Q_DECLARE_METATYPE(ScriptedAnswer)
