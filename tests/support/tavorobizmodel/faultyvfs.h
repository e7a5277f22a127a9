#pragma once

#include <functional>

/// A layer between SQLite and the disk that makes one operation fail. It applies to all databases
/// of the process.
namespace FaultyVfs {

enum class Fault {
    None,
    Kill, ///< SIGKILL ends the process before the operation.
    KillHalfway, ///< As Kill, but half of the bytes are written first.
    DiskFull,
    ReadOnly, ///< No operation fails, but files are opened read-only.
};

/// Makes this layer SQLite's default. Call it once per process.
void install();
/// Makes the \a number-th write, sync, truncation or deletion from now fail, counted from 1. A full
/// disk stays full until the next call.
void arm(Fault fault, int number);
/// Calls \a whenBusy once, as soon as a connection finds the file locked by another one. The call
/// is made on the thread of the waiting connection.
void catchWait(const std::function<void()> &whenBusy);
/// The number of operations since the last call of arm().
int operations();

} // namespace FaultyVfs
