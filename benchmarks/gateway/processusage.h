#pragma once

#include <QtGlobal>

namespace Bench {

/// What a running process has used, and has. Linux only.
struct ProcessUsage {
    double seconds = 0; ///< Processor time of all threads so far.
    double resident = 0; ///< Mebibytes of memory that belong to the process.

    static ProcessUsage of(qint64 pid);
};

inline ProcessUsage operator+(const ProcessUsage &left, const ProcessUsage &right)
{
    return {left.seconds + right.seconds, left.resident + right.resident};
}

} // namespace Bench
