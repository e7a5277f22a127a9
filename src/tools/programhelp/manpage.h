#pragma once

#include "program.h"

namespace Tavoro::Help {

/// The man page of a program (section 1), for man(1).
QString manPage(const Program &program);

} // namespace Tavoro::Help
