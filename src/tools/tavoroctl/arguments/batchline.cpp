#include "batchline.h"

#include "texts.h"

namespace Tavoro::Ctl {

namespace {

constexpr QLatin1Char quote('\'');

/// Removes the first \a length characters from \a rest and returns them.
QString takeLeft(QString &rest, int length)
{
    QString left = rest.left(length);
    rest.remove(0, length);
    return left;
}

/// Removes a quoted word from \a rest and returns it without its quotes.
QString takeQuoted(QString &rest, QString &fault)
{
    const auto length = static_cast<int>(rest.indexOf(quote, 1)) + 1;
    if (length == 0) {
        fault = Texts::tr("the closing quote is missing");
        return takeLeft(rest, static_cast<int>(rest.size()));
    }
    const QString quoted = takeLeft(rest, length);
    if (!rest.isEmpty() && !rest.at(0).isSpace())
        fault = Texts::tr("expected a space after the closing quote");
    return quoted.mid(1, length - 2);
}

QString takePlain(QString &rest)
{
    int length = 0;
    while (length < rest.size() && !rest.at(length).isSpace())
        ++length;
    return takeLeft(rest, length);
}

/// Removes the word at the start of \a rest and returns it.
QString takeWord(QString &rest, QString &fault)
{
    const QChar first = rest.at(0);
    if (first == quote)
        return takeQuoted(rest, fault);
    if (first == QLatin1Char('{') || first == QLatin1Char('['))
        return takeLeft(rest, static_cast<int>(rest.size()));
    return takePlain(rest);
}

} // namespace

BatchLine splitBatchLine(const QString &line)
{
    BatchLine split;
    QString rest = line.trimmed();
    if (rest.startsWith(QLatin1Char('#')))
        return split;
    while (!rest.isEmpty() && split.fault.isEmpty()) {
        split.words += takeWord(rest, split.fault);
        rest = rest.trimmed();
    }
    return split;
}

} // namespace Tavoro::Ctl
