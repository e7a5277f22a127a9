#include "completion.h"

#include <QStringList>

#include <algorithm>

namespace Tavoro::Help {

namespace {

const QString dashes = QStringLiteral("--");

const Option *findOption(const QList<Option> &options, const QString &word)
{
    const auto found = std::find_if(options.begin(), options.end(), [&](const Option &option) {
        return word == dashes + option.name;
    });
    return found == options.end() ? nullptr : &*found;
}

/// The words before the one that is completed, without options.
struct ParsedWords {
    QStringList words;
    const Command *command = nullptr;
    const Option *pending = nullptr; ///< The option whose value is completed.
};

/// The options that are accepted after the words so far.
QList<Option> optionsAfter(const Program &program, const ParsedWords &parsed)
{
    return program.options + (parsed.command ? parsed.command->options : QList<Option>());
}

ParsedWords parse(const Program &program, const QList<QString> &before)
{
    ParsedWords parsed;
    for (const QString &word : before) {
        if (parsed.pending) {
            parsed.pending = nullptr;
            continue;
        }
        if (!word.startsWith(dashes)) {
            parsed.words += word;
            if (!parsed.command)
                parsed.command = findCommand(program, parsed.words);
            continue;
        }
        const Option *option = findOption(program.options, word);
        if (!option && parsed.command)
            option = findOption(parsed.command->options, word);
        parsed.pending = option && !option->value.isEmpty() ? option : nullptr;
    }
    return parsed;
}

/// The placeholder for the word at \a index; the last one may repeat.
QString placeholderAt(const QString &usage, int index)
{
    QString plain = usage;
    const bool repeats = plain.contains(QLatin1String("..."));
    plain.remove(QStringLiteral("[:PORT]")).remove(QStringLiteral("..."));
    plain.remove(QLatin1Char('[')).remove(QLatin1Char(']'));
    const QStringList words = plain.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (words.isEmpty())
        return {};
    return index < words.size() || !repeats ? words.value(index) : words.last();
}

bool isFile(const QString &placeholder)
{
    static const QStringList files{QStringLiteral("FILE"), QStringLiteral("FOLDER"),
                                   QStringLiteral("DIR"), QStringLiteral("OUT")};
    return files.contains(placeholder);
}

QList<Candidate> commandWords(const Program &program, const QStringList &before)
{
    QList<Candidate> candidates;
    QStringList seen;
    for (const Command &command : program.commands) {
        const QStringList name = command.name.split(QLatin1Char(' '));
        if (name.size() <= before.size() || name.mid(0, before.size()) != before)
            continue;
        const QString &word = name.at(before.size());
        const bool isWhole = name.size() == before.size() + 1;
        if (!seen.contains(word))
            candidates += {word, isWhole ? command.effect : QString()};
        seen += word;
    }
    return candidates;
}

Completions valuesOf(const QString &placeholder, const ValueCompleter &values,
                     const QStringList &words, const QString &typed)
{
    if (isFile(placeholder))
        return {{}, true};
    if (!placeholder.contains(QLatin1Char('|')))
        return {values ? values(placeholder, words, typed) : QList<Candidate>(), false};
    Completions choices;
    for (const QString &choice : placeholder.split(QLatin1Char('|')))
        choices.candidates += {choice, {}};
    return choices;
}

Completions allAfter(const Program &program, const ValueCompleter &values,
                     const ParsedWords &parsed, const QString &typed)
{
    if (parsed.pending)
        return valuesOf(parsed.pending->value, values, parsed.words, typed);
    if (typed.startsWith(QLatin1Char('-'))) {
        Completions options;
        for (const Option &option : optionsAfter(program, parsed))
            options.candidates += {dashes + option.name, option.effect};
        return options;
    }
    if (!parsed.command && !program.commands.isEmpty())
        return {commandWords(program, parsed.words), false};
    const int taken = parsed.command ? wordCount(*parsed.command) : 0;
    const QString usage = parsed.command ? parsed.command->usage : program.usage;
    const QString placeholder = placeholderAt(usage, static_cast<int>(parsed.words.size()) - taken);
    return valuesOf(placeholder, values, parsed.words.mid(taken), typed);
}

} // namespace

Completions complete(const Program &program, const ValueCompleter &values,
                     const QList<QString> &words)
{
    const QString typed = words.isEmpty() ? QString() : words.last();
    const ParsedWords parsed = parse(program, words.mid(0, words.size() - 1));
    Completions found = allAfter(program, values, parsed, typed);
    const auto isOther = [&](const Candidate &candidate) {
        return !candidate.word.startsWith(typed);
    };
    found.candidates.erase(
        std::remove_if(found.candidates.begin(), found.candidates.end(), isOther),
        found.candidates.end());
    return found;
}

} // namespace Tavoro::Help
