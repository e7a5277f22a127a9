#pragma once

#include "request.h"

namespace Tavoro::Sim {

/// One command of the device. A handler is null if the device does not support that kind of access.
struct CommandRow {
    Command command;
    ReadHandler read;
    WriteHandler write;
    ContentHandler readContent = nullptr;
    WriteHandler writeContent = nullptr;
};

/// The row of \a command; null for an unknown one.
const CommandRow *findCommand(Command command);

/// Carries out \a request, or refuses it.
Answer carryOut(SimState &state, const Request &request, Reports &reports);

} // namespace Tavoro::Sim
