#pragma once

#include <programhelp/completion.h>

#include <string>

namespace Tavoro::Ctl {

/// The completions of a record in JSON of which \a typed is the beginning: the whole record at its
/// defaults if nothing is typed, and the keys that are not given yet where a key is expected.
/// \a sample is the record at its defaults, see Operations::Argument::sample.
QList<Help::Candidate> completeRecord(const QString &typed, const std::string &sample);

} // namespace Tavoro::Ctl
