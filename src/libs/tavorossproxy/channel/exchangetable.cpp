#include "exchangetable_p.h"

#include "answermatch_p.h"
#include "commands_p.h"
#include "requestkinds_p.h"

#include <tavorowire/frame.h>

#include <algorithm>
#include <utility>

namespace Tavoro::SSProxy::Internal {

void ExchangeTable::open(quint32 maxBody, Wire::ConnectionId connection)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_refusal = 0;
    m_maxBody = maxBody;
    m_connection = std::move(connection);
}

void ExchangeTable::close(quint16 refusal, quint16 status, quint32 interruptedAnswer)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_refusal = refusal;
    m_unsent.clear();
    m_streams.close(refusal);
    m_timedOut = 0;
    const auto isInterrupted = [interruptedAnswer](const Slot &slot) {
        return interruptedAnswer != 0 && slot.request.number == interruptedAnswer;
    };
    for (Slot &slot : m_slots) {
        if (slot.state == State::TimedOut)
            slot.state = State::Free;
        else if (slot.state != State::Free && slot.state != State::Completed)
            end(slot, isInterrupted(slot) ? quint16(AnswerTooShort) : status);
    }
}

quint16 ExchangeTable::refusal() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_refusal;
}

ExchangeTable::Ticket ExchangeTable::begin(const DeviceRequestCommand &request,
                                           Clock::TimePoint deadline)
{
    Ticket ticket;
    ticket.head = Wire::wireHead(request.head());
    ticket.head.kind = static_cast<quint8>(Wire::FrameKind::Request);

    std::unique_lock<std::mutex> lock(m_mutex);
    ticket.refusal = refusalOf(ticket.head, request.body().size());
    if (ticket.refusal == 0)
        ticket.refusal = m_streams.awaitSlot(ticket.head, lock, deadline);
    m_counts.timeouts += ticket.refusal == RequestTimedOut;
    if (ticket.refusal == 0 && (ticket.head.lables = freeTag()) == 0)
        ticket.refusal = NoFreeTag;
    if (ticket.refusal != 0)
        return ticket;

    m_streams.assign(ticket.head);
    Slot &slot = m_slots[ticket.head.lables];
    slot.state = State::Taken;
    slot.hasAnswerStarted = false;
    slot.sent.reset();
    slot.request = ticket.head;
    slot.wait.hasEnded = false;
    ++m_counts.requests;
    return ticket;
}

quint16 ExchangeTable::refusalOf(const Wire::WireHead &head, std::size_t bodySize) const
{
    if (m_refusal != 0)
        return m_refusal;
    return isRequestType(head.type) && bodySize <= m_maxBody ? quint16(0) : quint16(InvalidRequest);
}

std::optional<Wire::RequestId> ExchangeTable::reserveNumber(quint8 tag)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Slot &slot = m_slots[tag];
    if (slot.state != State::Taken)
        return std::nullopt;
    slot.request.number = nextNumber();
    return Wire::RequestId{m_connection, slot.request.number};
}

void ExchangeTable::withdraw(quint8 tag)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Slot &slot = m_slots[tag];
    m_streams.failed(slot.request);
    slot.state = State::Free;
    slot.response.reset();
}

void ExchangeTable::submit(quint8 tag, QByteArray frame)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Slot &slot = m_slots[tag];
    if (slot.state != State::Taken)
        return; // the connection was lost in the meantime
    slot.state = State::Unsent;
    slot.frame = std::move(frame);
    m_unsent.add(tag, isContent(slot.request));
    m_waits.beginReading(slot.wait);
}

std::shared_ptr<DeviceResponseCommand> ExchangeTable::await(const Wire::WireHead &request,
                                                            Clock::TimePoint deadline,
                                                            std::optional<Wire::RequestId> *sent)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    Slot &slot = m_slots[request.lables];
    m_waits.await(slot.wait, lock, deadline);
    if (sent)
        *sent = slot.sent;
    if (slot.state != State::Completed)
        return giveUp(request.lables);
    slot.state = State::Free;
    return std::move(slot.response);
}

void ExchangeTable::endSplitRead(quint16 stream)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_streams.endSplitRead(stream);
}

std::optional<QByteArray> ExchangeTable::takeUnsent(bool withContents)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto tag = m_unsent.take(withContents);
    if (!tag)
        return std::nullopt;
    Slot &slot = m_slots[*tag];
    slot.state = State::Sent;
    if (slot.request.number == 0)
        slot.request.number = nextNumber();
    slot.sent = Wire::RequestId{m_connection, slot.request.number};
    Wire::setNumber(slot.frame, slot.request.number);
    return std::move(slot.frame);
}

void ExchangeTable::answerStarted(const Wire::WireHead &head)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Slot &slot = m_slots[head.lables];
    if (slot.state == State::Sent && isAnswerTo(slot.request, head))
        slot.hasAnswerStarted = true;
}

void ExchangeTable::complete(Wire::FrameEvent &&answer, quint32 maxPacketCount)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Slot &slot = m_slots[answer.head.lables];
    const bool isWaiting = slot.state == State::Sent;
    const bool isLate = slot.state == State::TimedOut;
    if ((!isWaiting && !isLate) || !isAnswerTo(slot.request, answer.head)) {
        ++m_counts.strayAnswers;
        return;
    }
    if (isLate) {
        slot.state = State::Free;
        --m_timedOut;
        ++m_counts.lateAnswers;
        return;
    }
    answer.head = asSinglePacket(answer.head);
    if (answer.status == 0)
        answer.status = mismatch(slot.request, answer.head, maxPacketCount);
    end(slot, answer.status);
    if (answer.status != 0)
        return m_streams.failed(slot.request);
    m_streams.answered(slot.request, answer.head);
    slot.response->head() = Wire::packetHead(answer.head);
    slot.response->body() = std::move(answer.body);
    slot.response->status = answer.head.status;
}

std::optional<Wire::RequestId> ExchangeTable::lastSent(quint8 tag) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_slots[tag].sent;
}

int ExchangeTable::timedOutRequests() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_timedOut;
}

ExchangeTable::Counts ExchangeTable::counts() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_counts;
}

quint32 ExchangeTable::nextNumber()
{
    m_lastNumber = std::max(m_lastNumber + 1, 1u);
    return m_lastNumber;
}

/// Takes the tags in turn, so that each stays unused as long as possible. Returns 0 if none is
/// free.
quint8 ExchangeTable::freeTag()
{
    for (int tries = 0; tries < 256; ++tries) {
        ++m_lastTag;
        if (m_lastTag != 0 && m_slots[m_lastTag].state == State::Free)
            return m_lastTag;
    }
    return 0;
}

/// Call it with the mutex held.
void ExchangeTable::end(Slot &slot, quint16 status)
{
    slot.state = State::Completed;
    slot.frame.clear();
    slot.response = makeResponse(Wire::packetHead(slot.request), status);
    m_waits.end(slot.wait);
}

/// Call it with the mutex held, when the request has timed out.
std::shared_ptr<DeviceResponseCommand> ExchangeTable::giveUp(quint8 tag)
{
    Slot &slot = m_slots[tag];
    const bool mayBeAnswered = slot.state == State::Sent;
    m_streams.failed(slot.request);
    if (!mayBeAnswered)
        m_unsent.remove(tag);
    slot.state = mayBeAnswered ? State::TimedOut : State::Free;
    slot.frame.clear();
    m_timedOut += mayBeAnswered;
    ++m_counts.timeouts;
    return makeResponse(Wire::packetHead(slot.request),
                        mayBeAnswered && slot.hasAnswerStarted ? AnswerIncomplete
                                                               : RequestTimedOut);
}

} // namespace Tavoro::SSProxy::Internal
