#pragma once

#include <tavorosim/commands/packetassembler.h>

#include <QByteArray>
#include <QString>

#include <deque>
#include <functional>
#include <optional>
#include <random>

namespace Tavoro::Sim {

/// What goes back for one request, and what becomes of the connection.
struct Delivery {
    QByteArray bytes;
    /// What the bytes answer when it was not made by carrying the request out.
    std::optional<PacketAssembler::Packet> unworked = {};
    int delay = 0; ///< Milliseconds before the bytes leave.
    bool endsConnection = false; ///< Behind the bytes.
    bool stopsReading = false;
    int readingPause = 0; ///< Milliseconds; 0: until the faults are cleared.
    quint32 reports = 0; ///< That leave in front of the bytes.
    bool restarts = false; ///< The whole device.
};

/// What one connection has behind it.
struct ConnectionPast {
    /// A request that is without an answer; its tag is 0 when there is none.
    SSProxy::Wire::WireHead unanswered;
    /// Answers that wait for the request whose place was taken by theirs.
    std::deque<PacketAssembler::Packet> heldBack;
};

/// Carries out a request and makes its answer. The body belongs to the first call.
using MakeAnswer = std::function<PacketAssembler::Packet(const SSProxy::Wire::WireHead &request)>;

/// A request that falls under a rule.
struct FaultedRequest {
    const SSProxy::Wire::WireHead &head;
    quint32 value; ///< Of the rule.
    const MakeAnswer &makeAnswer;
    ConnectionPast &past;
    std::mt19937 &random;

    PacketAssembler::Packet answer() const { return makeAnswer(head); }
};

/// A fault that the device can have.
struct FaultRow {
    const char *name;
    const char *valueName; ///< Empty when it takes no value.
    quint32 least; ///< Least value.
    quint32 most; ///< Greatest value.
    quint32 usual; ///< The value when none is given; below \c least: one has to be given.
    const char *help;
    void (*act)(const FaultedRequest &request, Delivery &delivery);

    bool takesValue() const { return valueName[0] != '\0'; }
    bool needsValue() const { return takesValue() && usual < least; }
};

/// The fault of this name, null when there is none.
const FaultRow *findFault(const QString &name);

/// The table of faults, one to a line, for people.
QString faultHelp();

} // namespace Tavoro::Sim
