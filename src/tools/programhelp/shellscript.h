#pragma once

#include <QString>

namespace Tavoro::Help {

/// The completion script of a program for \a shell: bash, zsh or fish. The script calls the program
/// for the candidates. Empty for another shell.
QString completionScript(const QString &program, const QString &shell);

} // namespace Tavoro::Help
