#pragma once

#include <QJsonObject>
#include <QString>

namespace Tavoro::Ctl {

/// How far something has got.
struct Progress {
    int percent = 0;
    QString text; ///< What is under way, such as the name of a file.
    qint64 bytes = 0; ///< Bytes transferred so far; not shown if \c total is 0.
    qint64 total =
        0; ///< Bytes of the whole transfer; 0 if nothing is transferred or it is unknown.
    qint64 milliseconds = 0; ///< Since the start.
};

/// One line for a terminal with \a width columns: a bar, bytes, rate and remaining time as far as
/// they are known and fit, and the text, cut to the rest of the line.
QString progressLine(const Progress &progress, int width);

/// The same for programs: percent, text, bytes, total, bytesPerSecond and secondsLeft.
QJsonObject progressObject(const Progress &progress);

} // namespace Tavoro::Ctl
