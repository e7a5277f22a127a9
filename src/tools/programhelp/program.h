#pragma once

#include <QList>
#include <QString>

namespace Tavoro::Help {

/// An option of a program or of a command. It takes a value unless \c value is empty.
struct Option {
    QString name; ///< Without its dashes.
    QString value; ///< The placeholder of the value: "MS".
    QString effect;
};

/// A command of a program.
struct Command {
    QString name; ///< One word or several.
    QString usage; ///< Placeholders of the words after the name; optional ones in brackets.
    QString effect;
    QList<Option> options;
};

/// An exit status and its meaning.
struct Status {
    int number = 0;
    QString meaning;
};

/// What a program takes. Help, man page and completion are made from it.
///
/// A placeholder says what completion offers: FILE, FOLDER, DIR and OUT stand for files, words with
/// | between them for themselves. The program itself completes all others.
struct Program {
    QString name;
    QString version;
    QString summary; ///< A few words, as in the heading of a man page.
    QString usage; ///< Of a program without commands: placeholders of its words.
    QString details; ///< Paragraphs that follow the options; empty lines separate them.
    QList<Option> options; ///< Of the program, and of each of its commands.
    QList<Command> commands;
    QList<Status> statuses;
    QList<QString> seeAlso; ///< Names of other programs.
};

/// The command that \a words begin with; null if there is none.
const Command *findCommand(const Program &program, const QList<QString> &words);

/// How many words the name of a command has.
int wordCount(const Command &command);

} // namespace Tavoro::Help
