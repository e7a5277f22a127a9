#pragma once

#include "completion.h"

#include <QStringList>

#include <optional>

namespace Tavoro::Help {

/// Options of each program for build systems and shells, which its help does not show. They come
/// first on the command line:
///
/// - <tt>--generate bash|zsh|fish|man</tt> prints the completion script or the man page.
/// - <tt>--complete WORD ...</tt> prints the completions of the last word, one per line, each with
///   a tab and its description. The line ":files" stands for names of files, and ":nospace" says
///   that more has to follow a completed word.
/// - <tt>--complete-line LINE PIECE</tt> does the same for bash. LINE is the line up to the cursor,
///   and PIECE its last part as bash splits it, which the completions replace. No descriptions.
///
/// Prints what such an option asks for, and returns the exit status. Nothing if \a arguments, which
/// begin with the name of the program, have none.
std::optional<int> runHiddenOption(const Program &program, const ValueCompleter &values,
                                   const QStringList &arguments);

/// The words of a line in a shell, without their quotes. The last one is empty if the line ends
/// with a blank.
QStringList shellWords(const QString &line);

} // namespace Tavoro::Help
