#pragma once

namespace Tavoro::Ctl {

/// The exit status of the tool. Of several calls the highest counts.
enum ExitStatus {
    Done = 0,
    Failed = 1,
    UsageError = 2,
    Unreachable = 3,
    Refused = 4,
    TimedOut = 5,
    UnknownOutcome = 6,
    OutputFailed = 7,
    Interrupted = 130,
};

/// What an exit status means.
struct ExitStatusRow {
    ExitStatus status;
    const char *name; ///< One word or two, for programs: "refused".
    const char *meaning; ///< A sentence for people.
};

/// All exit statuses, in ascending order, for range loops.
struct ExitStatusRange {
    const ExitStatusRow *begin() const;
    const ExitStatusRow *end() const;
};

/// The row of \a status.
const ExitStatusRow &rowOf(ExitStatus status);

} // namespace Tavoro::Ctl
