#pragma once

#include <QDateTime>
#include <QMetaType>
#include <QString>

namespace Tavoro::Panel {

/// How much a message matters to the operator, in increasing order.
enum class Severity : int {
    Detail = 0, ///< A request of the library succeeded.
    Information = 1, ///< Something happened that the operator wants to know.
    Warning = 2, ///< Something failed that the operator did not ask for, such as a read.
    Error = 3, ///< What the operator asked for was not done, or may not have been.
};

/// One message of the log.
struct Message {
    QDateTime time; ///< When it was reported.
    Severity severity = Severity::Information; ///< How much it matters.
    QString device; ///< Name of the device; empty if no device is concerned.
    QString text; ///< One sentence.
};

} // namespace Tavoro::Panel

Q_DECLARE_METATYPE(Tavoro::Panel::Message)
Q_DECLARE_METATYPE(Tavoro::Panel::Severity)
