#include "printable.h"

#include <QStringList>

namespace Tavoro::Ctl {

namespace {

bool isControl(QChar character)
{
    return character.unicode() < 0x20
        || (character.unicode() >= 0x7F && character.unicode() <= 0x9F);
}

QString escaped(QChar character)
{
    switch (character.unicode()) {
    case '\n':
        return QStringLiteral("\\n");
    case '\r':
        return QStringLiteral("\\r");
    case '\t':
        return QStringLiteral("\\t");
    default:
        return QStringLiteral("\\x%1").arg(character.unicode(), 2, 16, QLatin1Char('0'));
    }
}

} // namespace

QString printable(const QString &text)
{
    QString shown;
    shown.reserve(text.size());
    for (const QChar character : text)
        shown += isControl(character) ? escaped(character) : QString(character);
    return shown;
}

QString printableLines(const QString &text)
{
    QStringList lines = text.split(QLatin1Char('\n'));
    for (QString &line : lines)
        line = printable(line);
    return lines.join(QLatin1Char('\n'));
}

} // namespace Tavoro::Ctl
