#pragma once

namespace Tavoro::Ctl {

/// Standard error as a terminal.
/// @{
bool isTerminal();
/// Whether it may be coloured: it is a terminal, not a dumb one, and NO_COLOR is not set.
bool mayUseColours();
/// Its columns; 80 if they are not known.
int terminalWidth();
/// @}

} // namespace Tavoro::Ctl
