#pragma once

#include <functional>

/// A layer between SQLite and the disk, for all databases of the process, that makes one operation
/// fail.
namespace FaultyVfs {

enum class Fault {
    None,
    Kill, ///< The process ends as by SIGKILL, before the operation.
    KillHalfway, ///< As Kill, but half of the bytes are written before.
    DiskFull,
    ReadOnly, ///< No operation: files are opened read-only, as without write permission.
};

/// Becomes SQLite's default; call it once per process.
void install();
/// Makes the \a number-th write, sync, truncation or deletion from now fail; a full disk stays full
/// until the next call. Numbers begin at 1.
void arm(Fault fault, int number);
/// Calls \a whenBusy, once, when a connection finds the file locked by another; on the thread of
/// the one that waits.
void catchWait(const std::function<void()> &whenBusy);
/// Operations since the last call of arm().
int operations();

} // namespace FaultyVfs
