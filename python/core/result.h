#pragma once

#include <tavorosession/outcome.h>

#include <string>

namespace Tavoro::Python {

/// What became of a Pending, as Python reads it. A value without Qt types.
struct Result {
    Outcome::Kind kind = Outcome::NotSent; ///< Done, or the reason for a missing answer.
    int status = 0; ///< See Outcome::status().
    std::string meaning; ///< The reason of the outcome, without a full stop.
    std::string text; ///< The sentence for the user.
    std::string operation; ///< Name of the command.
    bool isCanceled = false; ///< Whether the caller has cancelled it.
    std::string answer; ///< JSON, or the content of a file.
};

/// The result that Python gets for an outcome of a session.
Result resultOf(const Outcome &outcome, std::string answer = {});
/// The result of something that succeeded without a call to the device.
Result success(std::string answer = {});
/// The result of something that ended before the device received it, for this reason.
Result notSent(const std::string &meaning, const std::string &text);

} // namespace Tavoro::Python
