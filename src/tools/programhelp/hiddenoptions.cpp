#include "hiddenoptions.h"

#include "manpage.h"
#include "shellscript.h"

#include <algorithm>
#include <cstdio>

namespace Tavoro::Help {

namespace {

constexpr int done = 0;
constexpr int usageError = 2;

void print(const QString &text)
{
    std::fputs(text.toUtf8().constData(), stdout);
}

int generate(const Program &program, const QString &what)
{
    const QString text =
        what == QLatin1String("man") ? manPage(program) : completionScript(program.name, what);
    print(text);
    return text.isEmpty() ? usageError : done;
}

/// Keys of records end with a colon, and their value follows.
bool isUnfinished(const QList<Candidate> &candidates)
{
    return std::any_of(candidates.begin(), candidates.end(), [](const Candidate &candidate) {
        return candidate.word.endsWith(QLatin1Char(':'));
    });
}

void printDirectives(const Completions &found)
{
    if (found.takesFiles)
        print(QStringLiteral(":files\n"));
    if (isUnfinished(found.candidates))
        print(QStringLiteral(":nospace\n"));
}

int printForWords(const Completions &found)
{
    printDirectives(found);
    for (const Candidate &candidate : found.candidates) {
        const QString description =
            candidate.description.isEmpty() ? QString() : QLatin1Char('\t') + candidate.description;
        print(candidate.word + description + QLatin1Char('\n'));
    }
    return done;
}

bool beginsWithQuote(const QString &word)
{
    return word.startsWith(QLatin1Char('\'')) || word.startsWith(QLatin1Char('"'));
}

/// zsh leaves the quote of a word that is not complete.
QStringList withoutOpenQuote(QStringList words)
{
    if (!words.isEmpty() && beginsWithQuote(words.last()))
        words.last().remove(0, 1);
    return words;
}

/// \a piece is the end of the word as it stands in the line, perhaps after an opening quote.
int printForBash(const Completions &found, const QString &word, QString piece)
{
    printDirectives(found);
    const bool isQuoted = beginsWithQuote(piece);
    if (isQuoted)
        piece.remove(0, 1);
    const auto kept = word.endsWith(piece) ? static_cast<int>(word.size() - piece.size()) : 0;
    for (const Candidate &candidate : found.candidates) {
        const bool needsQuotes = !isQuoted && candidate.word.contains(QLatin1Char('"'));
        const QString rest = candidate.word.mid(kept);
        print((needsQuotes ? QLatin1Char('\'') + rest + QLatin1Char('\'') : rest)
              + QLatin1Char('\n'));
        // After the only candidate bash would close the quotes.
        if (isQuoted && found.candidates.size() == 1 && isUnfinished(found.candidates))
            print(rest + QStringLiteral(" \n"));
    }
    return done;
}

} // namespace

QStringList shellWords(const QString &line)
{
    QStringList words{QString()};
    QChar quote;
    for (int i = 0; i < line.size(); ++i) {
        const QChar each = line.at(i);
        const bool isEscape = each == QLatin1Char('\\') && quote != QLatin1Char('\'');
        if (isEscape && i + 1 < line.size())
            words.last() += line.at(++i);
        else if (!quote.isNull() && each == quote)
            quote = QChar();
        else if (quote.isNull() && (each == QLatin1Char('\'') || each == QLatin1Char('"')))
            quote = each;
        else if (!quote.isNull() || !each.isSpace())
            words.last() += each;
        else if (!words.last().isEmpty())
            words += QString();
    }
    return words;
}

std::optional<int> runHiddenOption(const Program &program, const ValueCompleter &values,
                                   const QStringList &arguments)
{
    const QString option = arguments.value(1);
    if (option == QLatin1String("--generate"))
        return generate(program, arguments.value(2));
    if (option == QLatin1String("--complete"))
        return printForWords(complete(program, values, withoutOpenQuote(arguments.mid(2))));
    if (option != QLatin1String("--complete-line"))
        return std::nullopt;
    const QStringList words = shellWords(arguments.value(2)).mid(1);
    return printForBash(complete(program, values, words),
                        words.isEmpty() ? QString() : words.last(), arguments.value(3));
}

} // namespace Tavoro::Help
