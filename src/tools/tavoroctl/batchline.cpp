#include "batchline.h"

namespace Tavoro::Ctl {

namespace {

/// Takes the first word off \a rest, which begins with it.
QString takeWord(QString &rest)
{
    const QChar first = rest.at(0);
    int end = 0; // Of the word in rest, what closes it included.
    QString word;
    if (first == QLatin1Char('\'')) {
        const auto closing = static_cast<int>(rest.indexOf(QLatin1Char('\''), 1));
        end = closing < 0 ? static_cast<int>(rest.size()) : closing + 1;
        word = rest.mid(1, closing < 0 ? -1 : closing - 1);
    } else if (first == QLatin1Char('{') || first == QLatin1Char('[')) {
        end = static_cast<int>(rest.size());
        word = rest;
    } else {
        while (end < rest.size() && !rest.at(end).isSpace())
            ++end;
        word = rest.left(end);
    }
    rest = rest.mid(end).trimmed();
    return word;
}

} // namespace

QStringList splitBatchLine(const QString &line)
{
    QStringList words;
    QString rest = line.trimmed();
    if (rest.startsWith(QLatin1Char('#')))
        return words;
    while (!rest.isEmpty())
        words += takeWord(rest);
    return words;
}

} // namespace Tavoro::Ctl
