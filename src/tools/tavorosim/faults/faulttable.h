#pragma once

#include <tavorosim/commands/packetassembler.h>

#include <QByteArray>
#include <QString>

#include <deque>
#include <functional>
#include <optional>
#include <random>

namespace Tavoro::Sim {

/// The bytes that answer one request, and the effects on the connection.
struct Delivery {
    QByteArray bytes;
    /// The answer in \c bytes if MakeAnswer did not make it for this request.
    std::optional<PacketAssembler::Packet> preparedAnswer = {};
    int delay = 0; ///< Milliseconds before the bytes are sent.
    bool isHeld = false; ///< The bytes wait until the console releases them.
    bool endsConnection = false; ///< Ends the connection after the bytes.
    bool stopsReading = false;
    int readingPause = 0; ///< Milliseconds; 0: until the faults are cleared.
    quint32 reports = 0; ///< The number of reports to send before the bytes.
    bool restarts = false; ///< Restarts the whole device.
};

/// The part of the history of one connection that faults need.
struct ConnectionHistory {
    /// The last request without an answer; its tag is 0 if there is none.
    SSProxy::Wire::WireHead unanswered;
    /// Packets of swap-packets that wait for the next request.
    std::deque<PacketAssembler::Packet> heldBack;
};

/// Carries out a request and makes its answer. The first call consumes the body.
using MakeAnswer = std::function<PacketAssembler::Packet(const SSProxy::Wire::WireHead &request)>;

/// A request that a rule applies to.
struct FaultedRequest {
    const SSProxy::Wire::WireHead &head;
    quint32 value; ///< The value of the rule.
    const MakeAnswer &makeAnswer;
    ConnectionHistory &history;
    std::mt19937 &random;

    PacketAssembler::Packet answer() const { return makeAnswer(head); }
};

/// A fault that the device can have.
struct FaultRow {
    const char *name;
    const char *valueName; ///< Empty when it takes no value.
    quint32 min; ///< Smallest value.
    quint32 max; ///< Largest value.
    quint32 defaultValue; ///< Below \c min: the rule must give the value.
    const char *help;
    void (*inject)(const FaultedRequest &request, Delivery &delivery);

    bool takesValue() const { return valueName[0] != '\0'; }
    bool needsValue() const { return takesValue() && defaultValue < min; }
};

/// The fault of this name, null when there is none.
const FaultRow *findFault(const QString &name);

/// The table of faults as text, one per line.
QString faultHelp();

} // namespace Tavoro::Sim
