#pragma once

#include "scripteddevice.h"
#include <support/common/requestcommand.h>
#include <support/tavorobizmodel/journal.h>

#include <tavorocontrol/controlhelper.h>

#include <QString>
#include <QStringList>

#include <initializer_list>
#include <memory>
#include <string>

/// Expected lines, as they are written in a test.
inline QStringList textLines(std::initializer_list<const char *> texts)
{
    QStringList lines;
    for (const char *text : texts)
        lines.append(QString::fromUtf8(text));
    return lines;
}

/// Sends requests to a scripted device and keeps the outcome of each.
class RequestPath {
public:
    using Request = std::shared_ptr<Tavoro::SSProxy::DeviceRequestCommand>;

    /// What was reported to the caller and others. \c lines is the journal, with name and identity
    /// of the device as "{device}".
    struct Outcome {
        bool ok = false;
        QString error = QStringLiteral("text from before");
        std::string result = "result from before";
        QStringList lines;
    };

    /// A request whose head holds a different value in each field that a test checks.
    static Request request(quint8 type, quint16 code, const std::string &body = {})
    {
        auto made = requestCommand(type, code, body);
        auto &head = made->head();
        head.lables = 7;
        head.opaque18[0] = 0xA1;
        head.opaque18[1] = 0xA2;
        for (quint8 i = 0; i < 4; ++i)
            head.arg2[i] = static_cast<quint8>(i + 1);
        head.opaque35 = 0xA5;
        return made;
    }

    Outcome read(const Request &request)
    {
        Outcome outcome;
        outcome.ok = helper.sendSyncRequest(device.model, request, outcome.result, outcome.error);
        outcome.lines = takeLines();
        return outcome;
    }

    Outcome write(const Request &request, bool showSuccess = true)
    {
        Outcome outcome;
        outcome.ok = helper.sendSyncRequest(device.model, request, outcome.error, showSuccess);
        outcome.lines = takeLines();
        return outcome;
    }

    QStringList takeLines()
    {
        QStringList lines = journal.lines();
        journal.clear();
        return device.model
            ? lines.replaceInStrings(device.quotedName(), QStringLiteral("{device}"))
            : lines;
    }

    ScriptedDevice device;
    Journal journal;
    Tavoro::Control::ControlHelper helper;
};
