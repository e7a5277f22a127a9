#pragma once

#include <tavorossproxy/channeloptions.h>

#include <chrono>

namespace Tavoro {

/// How often a session reads the kinds of objects of a device again, to find what other clients
/// change without a report of the device. 0: never.
struct PollIntervals {
    /// The unit of all times.
    using Milliseconds = std::chrono::milliseconds;

    Milliseconds device{0}; ///< The record of the device as a whole.
    Milliseconds interfaces{0}; ///< All interfaces.
    Milliseconds screens{0}; ///< All screens, without their layers.
    Milliseconds layers{0}; ///< The layers of all screens.
    Milliseconds files{0}; ///< The list of files, without their contents.
};

/// Settings of the work with a device. The defaults suit an operator's application.
struct SessionOptions {
    /// The unit of all times.
    using Milliseconds = std::chrono::milliseconds;

    /// Calls that may wait in a lane. Beyond them a call fails at once, as NotSent.
    int maxWaitingCalls = 256;
    /// How long a call whose outcome is not known may wait for the device to say what it did with
    /// it. After this time its outcome is Unknown. 0: the device is not asked.
    Milliseconds outcomeTime{20000};
    /// Sets the clock of the device when it is read. That needs no control and takes none.
    bool setsClock = true;
    /// Reads the contents of files, not only their list, of the types that a synchronisation
    /// (Control::DeviceList) reads.
    bool readsFileContents = true;
    /// How long the session waits before it reads a device again that could not be read although it
    /// is connected. Each further pause is twice as long, up to 16 times this value.
    Milliseconds readPause{1000};
    /// Reads the device again in the background, while it is ready; off by default. A read that
    /// fails is repeated at its next time, and changes no state.
    PollIntervals poll;
    /// Gives up control of the device after this time without a call that takes control (a write,
    /// also one that fails after it was sent, takeControl() or forceControl()), and not while a
    /// call waits or is under way. Repeats a request that fails. 0: keeps control until
    /// releaseControl().
    Milliseconds controlIdleTime{0};
    /// How long an upgrade may continue without a report of its progress, for example while the
    /// device restarts.
    Milliseconds upgradeTime{300000};
    /// Whether the log contains the bodies of requests, answers and reports, see
    /// DeviceSession::setBodiesLogged().
    bool logsBodies = false;
    /// Options of the channels that the session opens.
    SSProxy::ChannelOptions channel;
};

} // namespace Tavoro
