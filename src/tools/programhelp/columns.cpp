#include "columns.h"

#include <algorithm>
#include <iterator>

namespace Tavoro::Help {

namespace {

struct Range {
    ushort first;
    ushort last;
};

/// Characters that terminals show in two columns: East Asian Width W and F of Unicode.
constexpr Range wideRanges[] = {
    {0x1100, 0x115F}, {0x2E80, 0x303E}, {0x3041, 0xA4CF}, {0xAC00, 0xD7A3},
    {0xF900, 0xFAFF}, {0xFE30, 0xFE6F}, {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6},
};

bool isWide(QChar character)
{
    return std::any_of(std::begin(wideRanges), std::end(wideRanges), [=](const Range &range) {
        return character.unicode() >= range.first && character.unicode() <= range.last;
    });
}

/// Chinese punctuation that must not begin a line.
bool isClosing(QChar character)
{
    return QStringLiteral("，。；：、！？）》”").contains(character);
}

/// The part of \a text up to the next place where a line may be broken.
QString firstPiece(const QString &text)
{
    int length = 1;
    const auto mayBreakBefore = [&](QChar next) {
        return next == QLatin1Char(' ')
            || ((isWide(next) || isWide(text.at(length - 1))) && !isClosing(next));
    };
    while (length < text.size() && !mayBreakBefore(text.at(length)))
        ++length;
    return text.left(length);
}

} // namespace

int columnsOf(const QString &text)
{
    const auto wide = std::count_if(text.begin(), text.end(), isWide);
    return static_cast<int>(text.size() + wide);
}

QString padded(const QString &text, int columns)
{
    return text + QString(std::max(0, columns - columnsOf(text)), QLatin1Char(' '));
}

QStringList linesOf(const QString &text, int columns)
{
    QStringList lines;
    QString line;
    QString rest = text;
    while (!rest.isEmpty()) {
        const QString piece = firstPiece(rest);
        rest.remove(0, piece.size());
        const bool fits = columnsOf(line) + columnsOf(piece) <= columns;
        if (!line.isEmpty() && !fits) {
            lines += line;
            line.clear();
        }
        line += line.isEmpty() ? piece.trimmed() : piece;
    }
    return lines += line;
}

} // namespace Tavoro::Help
