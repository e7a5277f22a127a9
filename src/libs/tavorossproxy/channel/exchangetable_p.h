#pragma once

#include "answerwaits_p.h"
#include "exchangestreams_p.h"
#include "sendqueue_p.h"
#include <tavorossproxy/io/clock_p.h>

#include <tavorossproxy/channelstatus.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorowire/frameparser.h>
#include <tavorowire/outcomes.h>

#include <QByteArray>

#include <array>
#include <memory>
#include <mutex>
#include <optional>

namespace Tavoro::SSProxy::Internal {

/// The requests in flight on one connection, by tag.
///
/// | member                               | thread                       |
/// |--------------------------------------|------------------------------|
/// | begin, reserveNumber, submit, await, | that of the caller, in order |
/// | withdraw                             |                              |
/// | takeUnsent                           | any, one at a time           |
/// | answerStarted, complete              | any                          |
/// | endSplitRead                         | any                          |
/// | open, close, refusal and the counts  | any                          |
///
/// The states of a tag. close() ends every request in flight, and frees the tags of requests that
/// timed out:
/// \code
/// Free      --begin-->                Taken
/// Taken     --submit-->               Unsent
/// Taken     --withdraw-->             Free
/// Unsent    --takeUnsent-->           Sent
/// Sent      --complete-->             Completed
/// Completed --await-->                Free
/// Taken, Unsent --await, too late-->  Free
/// Sent      --await, too late-->      TimedOut
/// TimedOut  --complete-->             Free
/// \endcode
class ExchangeTable {
public:
    /// With a \a reader, one of the callers whose requests are in flight receives for all of them.
    explicit ExchangeTable(Clock &clock, AnswerReader *reader = nullptr)
        : m_streams(clock), m_waits(clock, reader)
    { }

    /// Accepts requests with bodies of at most \a maxBody bytes, to be sent over \a connection.
    void open(quint32 maxBody, Wire::ConnectionId connection = {});
    /// Refuses requests with \a refusal from now on. Ends the requests in flight with \a status,
    /// except that with the number \a interruptedAnswer, which ends with AnswerTooShort.
    void close(quint16 refusal, quint16 status, quint32 interruptedAnswer = 0);
    /// The status with which a request is refused now; 0 if requests are accepted.
    quint16 refusal() const;

    struct Ticket {
        quint16 refusal = 0; ///< 0, or the status with which the request is refused.
        Wire::WireHead head; ///< The head of the request, with its tag and its stream.
    };
    /// Assigns a tag to a request, and a stream if it has none. Blocks a request that may begin a
    /// split exchange until the device has a slot for it, until \a deadline at the latest.
    Ticket begin(const DeviceRequestCommand &request, Clock::TimePoint deadline);
    /// Sets the next number aside for a request that has begun, and returns its identity. Returns
    /// nothing if the connection was lost.
    std::optional<Wire::RequestId> reserveNumber(quint8 tag);
    /// Ends a request that has begun and will not be submitted.
    void withdraw(quint8 tag);
    /// Queues the frame of the request for sending.
    void submit(quint8 tag, QByteArray frame);
    /// Blocks until the answer has arrived or \a deadline has passed, and frees the tag. Never
    /// null. \a sent identifies the request at the device; it stays empty if it was not sent.
    std::shared_ptr<DeviceResponseCommand> await(const Wire::WireHead &request,
                                                 Clock::TimePoint deadline,
                                                 std::optional<Wire::RequestId> *sent = nullptr);

    /// The caller does not request a further packet of a split read.
    void endSplitRead(quint16 stream);

    /// Takes the next frame to send, if there is one, and numbers it. Requests for records precede
    /// contents of files, and \a withContents says whether the latter may be sent now.
    std::optional<QByteArray> takeUnsent(bool withContents = true);
    /// The answer with \a head has started to arrive.
    void answerStarted(const Wire::WireHead &head);
    /// Ends the request that waits for \a answer: with the answer, or with a status if the answer
    /// is not valid.
    void complete(Wire::FrameEvent &&answer, quint32 maxPacketCount);

    /// Identifies the last request with this tag. Returns nothing if it was not sent.
    std::optional<Wire::RequestId> lastSent(quint8 tag) const;

    /// Number of requests that timed out and whose answers may still arrive.
    int timedOutRequests() const;

    struct Counts {
        quint64 requests = 0, timeouts = 0, lateAnswers = 0, strayAnswers = 0;
    };
    Counts counts() const;

private:
    enum class State : quint8 {
        Free,
        Taken,
        Unsent,
        Sent,
        Completed,
        TimedOut
    };
    struct Slot {
        State state = State::Free;
        bool hasAnswerStarted = false; ///< A part of the answer has arrived.
        std::optional<Wire::RequestId> sent; ///< Identifies the request at the device.
        /// What the answer must match. Its number is 0 until one is reserved or the frame is sent.
        Wire::WireHead request;
        QByteArray frame; ///< The frame to send, in state Unsent.
        std::shared_ptr<DeviceResponseCommand> response; ///< The result, in state Completed.
        AnswerWaits::Wait wait; ///< Ends in state Completed.
    };

    quint16 refusalOf(const Wire::WireHead &head, std::size_t bodySize) const;
    quint8 freeTag();
    quint32 nextNumber();
    void end(Slot &slot, quint16 status);
    std::shared_ptr<DeviceResponseCommand> giveUp(quint8 tag);

    mutable std::mutex m_mutex; // guards everything below
    quint16 m_refusal = NotInitialized;
    quint32 m_maxBody = 0;
    Wire::ConnectionId m_connection;
    /// The number of the request that was sent last. It is not reset for a new connection, so that
    /// a repeated answer from an earlier connection matches no request.
    quint32 m_lastNumber = 0;
    quint8 m_lastTag = 0;
    ExchangeStreams m_streams;
    AnswerWaits m_waits;
    SendQueue m_unsent; ///< Tags in state Unsent, in the order of submit().
    int m_timedOut = 0;
    Counts m_counts;
    std::array<Slot, 256> m_slots; ///< Indexed by tag; tag 0 is never assigned.
};

} // namespace Tavoro::SSProxy::Internal
