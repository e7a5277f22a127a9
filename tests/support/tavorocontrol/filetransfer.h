#pragma once

#include "operationtest.h"
#include "streamedcalls.h"

#include <tavorocontrol/file.h>

#include <QRegularExpression>

// Shared by the tests of file transfers.

using ControlledFile = Controlled<Tavoro::Control::File>;

inline QStringList heads(const ControlledFile &it)
{
    QStringList heads;
    for (const SentRequest &request : it.device.channel->sent())
        heads << headHex(request);
    return heads;
}

inline QStringList bodies(const ControlledFile &it)
{
    QStringList bodies;
    for (const SentRequest &request : it.device.channel->sent())
        bodies << asText(request.body);
    return bodies;
}

/// Lines of the journal with this beginning.
inline QStringList linesWith(const ControlledFile &it, const char *beginning)
{
    return it.journal.lines().filter(
        QRegularExpression(QLatin1Char('^') + QLatin1String(beginning)));
}

inline void answerThreePackets(ControlledFile &it)
{
    it.device.channel->answer(ScriptedAnswer::packet("one", 3, 0));
    it.device.channel->answer(ScriptedAnswer::packet("two", 3, 1));
    it.device.channel->answer(ScriptedAnswer::packet("three", 3, 2));
}

/// The heads of the requests that read file 3 of type 6 in three packets.
inline QStringList headsOfThreePackets()
{
    return {QStringLiteral("0000"
                           "03"
                           "00000000"
                           "00000000"
                           "04fa"
                           "06030000"
                           "00"),
            QStringLiteral("0000"
                           "03"
                           "03000000"
                           "01000000"
                           "04fa"
                           "06030000"
                           "00"),
            QStringLiteral("0000"
                           "03"
                           "03000000"
                           "02000000"
                           "04fa"
                           "06030000"
                           "00")};
}
