#pragma once

#include "program.h"

#include <functional>

namespace Tavoro::Help {

/// One completion of a word.
struct Candidate {
    QString word;
    QString description; ///< Empty if the word speaks for itself.
};

/// The completions of a word. The shell completes names of files.
struct Completions {
    QList<Candidate> candidates;
    bool takesFiles = false;
};

/// Completes the value for a placeholder, such as OPERATION. \a words are those of the command that
/// precede the value; \a typed is its beginning.
using ValueCompleter = std::function<QList<Candidate>(
    const QString &placeholder, const QList<QString> &words, const QString &typed)>;

/// The completions of the last one of \a words, the words after the name of the program.
Completions complete(const Program &program, const ValueCompleter &values,
                     const QList<QString> &words);

} // namespace Tavoro::Help
