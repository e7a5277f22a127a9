#pragma once

#include <support/tavorobizmodel/journal.h>

#include <QString>

#include <functional>
#include <string>

using StreamCallback = std::function<void(bool, double, const std::string &, QString &)>;

/// One call of the callback of a streamed read, as a journal shows it.
inline QString streamedCall(bool ok, double progress, const std::string &data,
                            const QString &error = {})
{
    return QStringLiteral("callback: %1 %2 \"%3\" \"%4\"")
        .arg(ok ? QStringLiteral("true") : QStringLiteral("false"))
        .arg(progress)
        .arg(QString::fromStdString(data), error);
}

/// A callback that records each of its calls in \a journal, and then calls \a then.
inline StreamCallback recordCallsIn(Journal &journal, const StreamCallback &then = {})
{
    return [&journal, then](bool ok, double progress, const std::string &data, QString &error) {
        journal.add(streamedCall(ok, progress, data, error));
        if (then)
            then(ok, progress, data, error);
    };
}

/// Whether \a call throws std::bad_function_call.
template <class Call>
bool throwsBadFunctionCall(Call call)
{
    try {
        call();
    } catch (const std::bad_function_call &) {
        return true;
    }
    return false;
}
