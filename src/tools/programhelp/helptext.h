#pragma once

#include "program.h"

namespace Tavoro::Help {

/// The help of a program: its commands, options and exit statuses.
QString helpText(const Program &program);

/// The help of one command.
QString helpText(const Program &program, const Command &command);

/// "--timeout MS".
QString optionWords(const Option &option);

} // namespace Tavoro::Help
