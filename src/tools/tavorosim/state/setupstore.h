#pragma once

#include "simstate.h"

namespace Tavoro::Sim {

/// Keeps \a setup beside the files of a store that has a folder, as \c setup.json. False when it
/// cannot be written, and what was kept before stays.
bool keepSetup(const FileStore &files, const Setup &setup);

/// Puts what was kept in the place of \a setup, if anything was that fits its connectors: a device
/// that was given other cards begins anew. False with a sentence in \a error if it cannot be read.
bool fetchSetup(const FileStore &files, Setup &setup, QString &error);

} // namespace Tavoro::Sim
