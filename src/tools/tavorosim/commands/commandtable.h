#pragma once

#include "request.h"

namespace Tavoro::Sim {

/// One command of the device. A command that cannot be read, or not be written, has null there.
struct CommandRow {
    Command command;
    ReadHandler read;
    WriteHandler write;
    ContentHandler readContent = nullptr;
    WriteHandler writeContent = nullptr;
};

/// The row of \a command, null for one that the device does not know.
const CommandRow *findCommand(Command command);

/// Does what \a request asks for, or refuses it.
Answer carryOut(SimState &state, const Request &request, Reports &reports);

} // namespace Tavoro::Sim
