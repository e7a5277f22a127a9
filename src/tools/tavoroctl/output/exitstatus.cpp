#include "exitstatus.h"

#include <tavoroctl/arguments/texts.h>

#include <algorithm>
#include <iterator>

namespace Tavoro::Ctl {

namespace {

#define TEXT(text) QT_TRANSLATE_NOOP("Ctl", text)

// clang-format off
constexpr ExitStatusRow exitStatuses[] = {
//   status          name               meaning
    {Done,           "done",            TEXT("Success. Also an interrupted watch.")},
    {Failed,         "failed",          TEXT("Something else failed; for diff: there are differences.")},
    {UsageError,     "usage",           TEXT("The command line or an input is not valid; nothing was sent for it.")},
    {Unreachable,    "unreachable",     TEXT("The device could not be reached, or the connection was lost during a read.")},
    {Refused,        "refused",         TEXT("The device refused the request; it changed nothing.")},
    {TimedOut,       "timed-out",       TEXT("A read was not answered in time.")},
    {UnknownOutcome, "unknown-outcome", TEXT("A write was not answered: the device may have carried it out.")},
    {OutputFailed,   "output-failed",   TEXT("Standard output could not be written.")},
    {Interrupted,    "interrupted",     TEXT("The command was interrupted by a signal.")},
};
// clang-format on

} // namespace

const ExitStatusRow *ExitStatusRange::begin() const
{
    return std::begin(exitStatuses);
}

const ExitStatusRow *ExitStatusRange::end() const
{
    return std::end(exitStatuses);
}

const ExitStatusRow &rowOf(ExitStatus status)
{
    return *std::find_if(std::begin(exitStatuses), std::end(exitStatuses),
                         [=](const ExitStatusRow &row) { return row.status == status; });
}

} // namespace Tavoro::Ctl
