#pragma once

/// Stands between SQLite and the disk, for all databases of the process, and makes one operation go
/// wrong.
namespace FaultyVfs {

enum class Fault {
    None,
    Kill, ///< The process ends as by SIGKILL, before the operation.
    KillHalfway, ///< As Kill, but half of the bytes are written before.
    DiskFull,
    ReadOnly, ///< No operation: files are opened for reading only, as without the right to write.
};

/// Goes in as SQLite's default, once per process.
void install();
/// Lets the \a number-th write, sync, truncation or deletion from now go wrong; a full disk stays
/// full until the next call. Numbers begin at 1.
void arm(Fault fault, int number);
/// Operations since the last call of arm().
int operations();

} // namespace FaultyVfs
