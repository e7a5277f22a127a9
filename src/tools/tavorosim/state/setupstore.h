#pragma once

#include "simstate.h"

namespace Tavoro::Sim {

/// Applies \a changes and saves \a setup with the files, in one transaction; a store in memory
/// saves no setup. If writing fails, returns false and changes nothing.
bool saveSetup(FileStore &files, const FileChanges &changes, const Setup &setup);

/// Replaces \a setup by the saved one, if there is one and it has the same connectors: a device
/// with other cards begins with \a setup. On failure \a error holds a sentence.
bool readSetup(FileStore &files, Setup &setup, QString &error);

} // namespace Tavoro::Sim
