#pragma once

#include <tavorosim/state/simstate.h>
#include <tavorosim/state/upload.h>
#include <tavorossproxy/commandcodes.h>
#include <tavorossproxy/packethead.h>
#include <tavorowire/devicestatus.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace Tavoro::Sim {

using SSProxy::Command;
using SSProxy::CommandType;
using SSProxy::Wire::DeviceStatus;

/// A whole request, assembled from its packets. Only contents are passed packet by packet.
struct Request {
    Command command;
    CommandType type;
    std::array<quint8, 4> arg2{}; ///< Positions 31 to 34 of the head.
    std::string body;
    /// \name Of a binary write
    /// @{
    quint32 totalCount = 1;
    quint32 sendCount = 0;
    Uploads *uploads = nullptr; ///< The unfinished contents of this connection.
    /// @}
};

/// An unsolicited report to all clients.
struct Report {
    Command command;
    std::string body;
};
using Reports = std::vector<Report>;

/// The answer to a request: a body, or a content that is read while it is sent. A refusal has
/// neither.
struct Answer {
    DeviceStatus status = DeviceStatus::Success;
    std::string body;
    std::shared_ptr<QIODevice> content;
};

/// Answers a read. Filters without a match give an empty list, not a refusal.
using ReadHandler = std::string (*)(const SimState &state, const Request &request);
/// Carries out a write, or refuses it and changes nothing. Adds the device's reports of the
/// change to \a reports.
using WriteHandler = DeviceStatus (*)(SimState &state, const Request &request, Reports &reports);
/// Answers a binary read.
using ContentHandler = Answer (*)(const SimState &state, const Request &request);

} // namespace Tavoro::Sim
