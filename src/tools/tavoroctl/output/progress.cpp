#include "progress.h"

#include "printable.h"

#include <tavoroctl/arguments/texts.h>

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace Tavoro::Ctl {

namespace {

constexpr int widestBar = 30;
constexpr int narrowestBar = 10;
constexpr int leastText = 8; ///< Columns that the text keeps before other parts are left out.

qint64 bytesPerSecond(const Progress &progress)
{
    return progress.milliseconds == 0 ? 0 : progress.bytes * 1000 / progress.milliseconds;
}

/// By the rate so far; by the percentage if bytes are not counted. -1 if it is not known yet.
qint64 secondsLeft(const Progress &progress)
{
    const bool counts = progress.total > 0;
    const qint64 whole = counts ? progress.total : 100;
    const qint64 part = counts ? progress.bytes : progress.percent;
    if (part <= 0 || progress.milliseconds <= 0)
        return -1;
    const double rest = static_cast<double>(whole - part) / static_cast<double>(part);
    return std::llround(static_cast<double>(progress.milliseconds) * rest / 1000);
}

/// "999 B", "1.5 kB", "12.3 MB": decimal units.
QString sizeText(qint64 bytes)
{
    constexpr const char *units[] = {"kB", "MB", "GB"};
    if (bytes < 1000)
        return QStringLiteral("%1 B").arg(bytes);
    double size = static_cast<double>(bytes) / 1000;
    int unit = 0;
    for (; size >= 999.95 && unit < 2; ++unit)
        size /= 1000;
    return QStringLiteral("%1 %2").arg(size, 0, 'f', 1).arg(QLatin1String(units[unit]));
}

/// "0:07", "1:02:03".
QString timeText(qint64 seconds)
{
    const QChar zero = QLatin1Char('0');
    const QString rest = QStringLiteral("%1:%2")
                             .arg(seconds / 60 % 60, seconds < 3600 ? 1 : 2, 10, zero)
                             .arg(seconds % 60, 2, 10, zero);
    return seconds < 3600 ? rest : QStringLiteral("%1:%2").arg(seconds / 3600).arg(rest);
}

/// Bytes, rate and remaining time, the most important one first.
QStringList measurements(const Progress &progress)
{
    QStringList parts;
    const qint64 left = secondsLeft(progress);
    if (progress.total > 0)
        parts += QStringLiteral("%1/%2").arg(sizeText(progress.bytes), sizeText(progress.total));
    if (left >= 0 && progress.percent < 100)
        parts += Texts::tr("%1 left").arg(timeText(left));
    if (progress.total > 0 && bytesPerSecond(progress) > 0)
        parts += sizeText(bytesPerSecond(progress)) + QStringLiteral("/s");
    return parts;
}

QString bar(int percent, int width)
{
    const int full = std::clamp(percent, 0, 100) * width / 100;
    return QLatin1Char('[') + QString(full, QLatin1Char('#'))
        + QString(width - full, QLatin1Char('-')) + QLatin1Char(']');
}

} // namespace

QString progressLine(const Progress &progress, int width)
{
    const QString percent = QStringLiteral(" %1 %").arg(progress.percent, 3);
    const auto gap = QStringLiteral("  ");
    const int barWidth = std::clamp(width / 3, narrowestBar, widestBar);
    QString line = bar(progress.percent, barWidth) + percent;
    if (line.size() > width)
        return percent.trimmed().left(width);
    const QString text = printable(progress.text);
    const auto kept = std::min(static_cast<int>(text.size()), leastText);
    auto room = width - static_cast<int>(line.size() + gap.size()) - kept;
    QString measured;
    for (const QString &part : measurements(progress)) {
        if (gap.size() + part.size() > room)
            break;
        measured += gap + part;
        room -= static_cast<int>(gap.size() + part.size());
    }
    if (room + kept > 0)
        line += gap + text.left(room + kept);
    return line + measured;
}

QJsonObject progressObject(const Progress &progress)
{
    QJsonObject object{
        {QStringLiteral("event"), QStringLiteral("progress")},
        {QStringLiteral("percent"), progress.percent},
        {QStringLiteral("text"), progress.text},
    };
    if (progress.total > 0) {
        object.insert(QStringLiteral("bytes"), progress.bytes);
        object.insert(QStringLiteral("total"), progress.total);
        object.insert(QStringLiteral("bytesPerSecond"), bytesPerSecond(progress));
    }
    if (secondsLeft(progress) >= 0)
        object.insert(QStringLiteral("secondsLeft"), secondsLeft(progress));
    return object;
}

} // namespace Tavoro::Ctl
