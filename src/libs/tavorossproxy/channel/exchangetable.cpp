#include "exchangetable_p.h"

#include "commands_p.h"

#include <tavorowire/frame.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <thread>
#include <utility>

namespace Tavoro::SSProxy::Internal {

namespace {

/// How long a caller looks out for its answer before it goes to sleep. To be woken takes as long as
/// a near device takes to answer.
constexpr std::chrono::microseconds lookout(200);

/// Longest frame whose storage is kept, in bytes.
constexpr int longestKept = 4 << 20;

/// Split answers that a device keeps for a connection at the least; older ones it may forget.
constexpr std::size_t keptAnswers = 16;

/// Streams from here on belong to calling threads, those below to single requests.
constexpr quint16 firstThreadStream = 0x8000;

quint16 streamOfThisThread()
{
    static std::atomic<unsigned> threads{0};
    thread_local const unsigned number = threads++;
    return static_cast<quint16>(firstThreadStream | (number & 0x7FFF));
}

bool isKnownType(quint8 type)
{
    return type >= quint8(CommandType::Read) && type <= quint8(CommandType::BinaryWrite);
}

bool isRead(const Wire::WireHead &request)
{
    return request.type == quint8(CommandType::Read)
        || request.type == quint8(CommandType::BinaryRead);
}

/// Tags and streams come round, numbers do not. The tags are equal already.
bool isAnswerTo(const Wire::WireHead &request, const Wire::WireHead &answer)
{
    return answer.number == request.number && answer.stream == request.stream;
}

/// The answer carries the packet that \a request asks for.
bool isRightPacket(const Wire::WireHead &request, const Wire::WireHead &answer)
{
    return answer.sendCount == request.sendCount
        && (request.sendCount == 0 || answer.totalCount == request.totalCount);
}

/// What is wrong with an answer that reads well in itself.
quint16 misfit(const Wire::WireHead &request, const Wire::WireHead &answer, quint32 maxPacketCount)
{
    if (answer.code() != request.code()
        || std::memcmp(answer.arg2, request.arg2, sizeof answer.arg2) != 0)
        return WrongAnswerCode;
    if (answer.type != request.type)
        return WrongType;
    if (isRead(request) && answer.status == 0 && !isRightPacket(request, answer))
        return WrongLength;
    return answer.totalCount > maxPacketCount ? WrongLength : 0;
}

} // namespace

void ExchangeTable::open(quint32 maxBody, Wire::ConnectionId connection)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_refusal = 0;
    m_maxBody = maxBody;
    m_connection = std::move(connection);
}

void ExchangeTable::shut(quint16 refusal, quint16 status, quint32 brokenOff)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_refusal = refusal;
    m_unsent.clear();
    m_handedOut.clear();
    m_owed = 0;
    const auto isBrokenOff = [brokenOff](const Slot &slot) {
        return brokenOff != 0 && slot.request.number == brokenOff;
    };
    for (Slot &slot : m_slots) {
        if (slot.state == State::Owed)
            slot.state = State::Free;
        else if (slot.state != State::Free && slot.state != State::Settled)
            end(slot, isBrokenOff(slot) ? quint16(AnswerTooShort) : status);
    }
}

quint16 ExchangeTable::refusal() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_refusal;
}

ExchangeTable::Ticket ExchangeTable::begin(const DeviceRequestCommand &request)
{
    Ticket ticket;
    ticket.head = Wire::wireHead(request.head());
    ticket.head.kind = static_cast<quint8>(Wire::FrameKind::Request);

    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_refusal != 0)
        ticket.refusal = m_refusal;
    else if (!isKnownType(ticket.head.type) || request.body().size() > m_maxBody)
        ticket.refusal = InvalidRequest;
    else if (ticket.head.lables = freeTag(); ticket.head.lables == 0)
        ticket.refusal = NoFreeTag;
    if (ticket.refusal != 0)
        return ticket;

    if (ticket.head.stream == 0)
        ticket.head.stream = freshStream(ticket.head);
    Slot &slot = m_slots[ticket.head.lables];
    slot.state = State::Taken;
    slot.begun = false;
    slot.sent.reset();
    slot.request = ticket.head;
    ++m_counts.requests;
    return ticket;
}

/// The system would take the storage of a long frame back and clear it for the next one.
QByteArray ExchangeTable::takeStorage()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return std::exchange(m_storage, {});
}

void ExchangeTable::giveBack(QByteArray frame)
{
    if (frame.capacity() > longestKept)
        return;
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_storage = std::move(frame);
}

void ExchangeTable::submit(quint8 tag, QByteArray frame)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Slot &slot = m_slots[tag];
    if (slot.state != State::Taken)
        return; // the connection was lost meanwhile
    slot.state = State::Unsent;
    slot.frame = std::move(frame);
    m_unsent.push_back(tag);
}

std::shared_ptr<DeviceResponseCommand> ExchangeTable::await(const Wire::WireHead &request,
                                                            Clock::TimePoint deadline)
{
    const auto start = std::chrono::steady_clock::now();
    std::unique_lock<std::mutex> lock(m_mutex);
    Slot &slot = m_slots[request.lables];
    if (m_answersQuickly)
        lookOut(lock, slot, deadline);
    while (slot.state != State::Settled && m_clock.now() < deadline)
        m_clock.waitUntil(slot.settled, lock, deadline);
    m_answersQuickly = std::chrono::steady_clock::now() - start < lookout;
    if (slot.state != State::Settled)
        return giveUp(request.lables);
    slot.state = State::Free;
    return std::move(slot.response);
}

/// Called with the mutex held by \a lock. Whoever else has something to do is let go first.
void ExchangeTable::lookOut(std::unique_lock<std::mutex> &lock, const Slot &slot,
                            Clock::TimePoint deadline) const
{
    const auto end = std::chrono::steady_clock::now() + lookout;
    while (slot.state != State::Settled && std::chrono::steady_clock::now() < end
           && m_clock.now() < deadline) {
        lock.unlock();
        std::this_thread::yield();
        lock.lock();
    }
}

std::optional<QByteArray> ExchangeTable::takeUnsent()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_unsent.empty())
        return std::nullopt;
    Slot &slot = m_slots[m_unsent.front()];
    m_unsent.pop_front();
    slot.state = State::Sent;
    slot.request.number = m_lastNumber = std::max(m_lastNumber + 1, 1u);
    slot.sent = Wire::RequestId{m_connection, slot.request.number};
    Wire::setNumber(slot.frame, slot.request.number);
    return std::move(slot.frame);
}

void ExchangeTable::noteBegun(const Wire::WireHead &head)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Slot &slot = m_slots[head.lables];
    if (slot.state == State::Sent && isAnswerTo(slot.request, head))
        slot.begun = true;
}

void ExchangeTable::settle(Wire::FrameEvent &&answer, quint32 maxPacketCount)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Slot &slot = m_slots[answer.head.lables];
    const bool isWaiting = slot.state == State::Sent;
    const bool isOwed = slot.state == State::Owed;
    if ((!isWaiting && !isOwed) || !isAnswerTo(slot.request, answer.head)) {
        ++m_counts.strayAnswers;
        return;
    }
    if (isOwed) {
        slot.state = State::Free;
        --m_owed;
        ++m_counts.lateAnswers;
        return;
    }
    if (answer.status == 0)
        answer.status = misfit(slot.request, answer.head, maxPacketCount);
    end(slot, answer.status);
    if (answer.status == 0) {
        noteStream(answer.head);
        slot.response->head() = Wire::packetHead(answer.head);
        slot.response->body() = std::move(answer.body);
        slot.response->status = answer.head.status;
    }
}

std::optional<Wire::RequestId> ExchangeTable::lastSent(quint8 tag) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_slots[tag].sent;
}

int ExchangeTable::owedAnswers() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_owed;
}

ExchangeTable::Counts ExchangeTable::counts() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_counts;
}

/// Goes round, so that a tag rests as long as possible before it serves again. 0 when all are
/// taken.
quint8 ExchangeTable::freeTag()
{
    for (int tries = 0; tries < 256; ++tries) {
        ++m_lastTag;
        if (m_lastTag != 0 && m_slots[m_lastTag].state == State::Free)
            return m_lastTag;
    }
    return 0;
}

/// The packets of a split write reach the channel without a stream in common, one after the other
/// from one thread. A read gets a stream of its own, which its further packets inherit: the caller
/// may read something else between two of them.
quint16 ExchangeTable::freshStream(const Wire::WireHead &head)
{
    if (head.totalCount > 1)
        return streamOfThisThread();
    do {
        m_lastStream = static_cast<quint16>(m_lastStream % (firstThreadStream - 1) + 1);
    } while (std::find(m_handedOut.begin(), m_handedOut.end(), m_lastStream) != m_handedOut.end());
    return m_lastStream;
}

/// Called with the mutex held. A device forgets a split answer when another request comes on its
/// stream, and streams go round while a long read goes on.
void ExchangeTable::noteStream(const Wire::WireHead &answer)
{
    const quint16 stream = answer.stream; // the field is packed: no reference to it
    m_handedOut.erase(std::remove(m_handedOut.begin(), m_handedOut.end(), stream),
                      m_handedOut.end());
    if (quint64(answer.sendCount) + 1 >= answer.totalCount || answer.status != 0)
        return;
    m_handedOut.push_back(stream);
    if (m_handedOut.size() > keptAnswers)
        m_handedOut.pop_front();
}

void ExchangeTable::end(Slot &slot, quint16 status)
{
    slot.state = State::Settled;
    slot.frame.clear();
    slot.response = makeResponse(Wire::packetHead(slot.request), status);
    slot.settled.notify_one();
}

/// Called with the mutex held, when the time of the request is over.
std::shared_ptr<DeviceResponseCommand> ExchangeTable::giveUp(quint8 tag)
{
    Slot &slot = m_slots[tag];
    const bool mayBeAnswered = slot.state == State::Sent;
    if (!mayBeAnswered)
        m_unsent.erase(std::remove(m_unsent.begin(), m_unsent.end(), tag), m_unsent.end());
    slot.state = mayBeAnswered ? State::Owed : State::Free;
    slot.frame.clear();
    m_owed += mayBeAnswered;
    ++m_counts.timeouts;
    return makeResponse(Wire::packetHead(slot.request),
                        mayBeAnswered && slot.begun ? AnswerIncomplete : RequestTimedOut);
}

} // namespace Tavoro::SSProxy::Internal
