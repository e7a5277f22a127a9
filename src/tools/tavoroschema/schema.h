#pragma once

#include <string>

/// The committed description of all bodies, for programs in other languages.
namespace Tavoro::Schema {

/// docs/schema/commands.json: for each command the schemas of its request, answer and report.
std::string commandsDocument();

} // namespace Tavoro::Schema
