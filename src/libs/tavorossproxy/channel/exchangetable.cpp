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

/// Longest frame whose storage is reused, in bytes.
constexpr int longestKept = 4 << 20;

/// Streams from here on belong to writes, those below to reads.
constexpr quint16 firstWriteStream = 0x8000;

/// A device collects the content of a file by file, not by stream. So each calling thread has one
/// stream for such contents, which keeps its packets in order.
quint16 contentStreamOfThisThread()
{
    static std::atomic<unsigned> threads{0};
    thread_local const unsigned number = threads++;
    constexpr unsigned first = firstWriteStream + Wire::splitWriteLimit;
    return static_cast<quint16>(first + number % (0x10000 - first));
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

/// The request carries a packet of a file.
bool isContent(const Wire::WireHead &request)
{
    return request.type == quint8(CommandType::BinaryWrite);
}

/// The device may keep the answer to \a head and send it packet by packet.
bool mayBeSplitRead(const Wire::WireHead &head)
{
    constexpr quint8 linkCommands = 0x01; // base code; their answers are short
    return isRead(head) && head.BC != linkCommands;
}

/// The device collects the packets of a split write.
bool isSplitWrite(const Wire::WireHead &head)
{
    return head.type == quint8(CommandType::Write) && head.totalCount > 1;
}

/// The tags are already known to be equal. But tags and streams are reused after some time, and
/// numbers are not.
bool isAnswerTo(const Wire::WireHead &request, const Wire::WireHead &answer)
{
    return answer.number == request.number && answer.stream == request.stream;
}

/// The answer contains the packet that was requested.
bool isRightPacket(const Wire::WireHead &request, const Wire::WireHead &answer)
{
    return answer.sendCount == request.sendCount
        && (request.sendCount == 0 || answer.totalCount == request.totalCount);
}

/// A device may send the count 0 for an answer of one packet: callers get packet 1 of 1.
Wire::WireHead asSinglePacket(Wire::WireHead answer)
{
    if (answer.totalCount == 0 && answer.sendCount == 0)
        answer.totalCount = 1;
    return answer;
}

/// The status for a valid answer that does not match the request; 0 if it matches.
quint16 mismatch(const Wire::WireHead &request, const Wire::WireHead &answer,
                 quint32 maxPacketCount)
{
    if (answer.code() != request.code()
        || std::memcmp(answer.arg2, request.arg2, sizeof answer.arg2) != 0)
        return WrongAnswerCode;
    if (answer.type != request.type)
        return WrongType;
    if (isRead(request) && answer.status == 0 && !isRightPacket(request, answer))
        return WrongLength;
    if (answer.status == 0 && answer.totalCount == 0)
        return WrongLength; // an index without a count
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

void ExchangeTable::close(quint16 refusal, quint16 status, quint32 interruptedAnswer)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_refusal = refusal;
    m_unsent.clear();
    for (SplitSlots *const slots : {&m_splitReads, &m_splitWrites})
        slots->close(refusal);
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
    SplitSlots *const slots = slotsFor(ticket.head);
    ticket.refusal = refusalOf(ticket.head, request.body().size());
    if (ticket.refusal == 0 && slots)
        ticket.refusal = slots->await(m_clock, lock, deadline);
    m_counts.timeouts += ticket.refusal == RequestTimedOut;
    if (ticket.refusal == 0 && (ticket.head.lables = freeTag()) == 0)
        ticket.refusal = NoFreeTag;
    if (ticket.refusal != 0)
        return ticket;

    assignStream(ticket.head, slots);
    Slot &slot = m_slots[ticket.head.lables];
    slot.state = State::Taken;
    slot.hasAnswerStarted = false;
    slot.sent.reset();
    slot.request = ticket.head;
    ++m_counts.requests;
    return ticket;
}

quint16 ExchangeTable::refusalOf(const Wire::WireHead &head, std::size_t bodySize) const
{
    if (m_refusal != 0)
        return m_refusal;
    return isKnownType(head.type) && bodySize <= m_maxBody ? quint16(0) : quint16(InvalidRequest);
}

/// The slots among which a request needs one; null if it needs none or already has one.
SplitSlots *ExchangeTable::slotsFor(const Wire::WireHead &head)
{
    if (isSplitWrite(head) && m_splitWrites.streamOfThisThread() == 0)
        return &m_splitWrites;
    if (mayBeSplitRead(head) && head.sendCount == 0 && !m_splitReads.holds(head.stream))
        return &m_splitReads;
    return nullptr;
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
    notePacket(slot.request, slot.request, InvalidRequest);
    slot.state = State::Free;
    slot.response.reset();
}

/// Reusing the storage is faster: the system would otherwise unmap that of a long frame, and clear
/// new pages for the next one.
QByteArray ExchangeTable::takeStorage()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return std::exchange(m_storage, {});
}

void ExchangeTable::recycle(QByteArray frame)
{
    if (frame.capacity() > longestKept)
        return;
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_storage = std::move(frame);
}

/// The caller begins to receive before its request is sent: otherwise the answer could wake the
/// loop's thread as well.
void ExchangeTable::submit(quint8 tag, QByteArray frame)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    Slot &slot = m_slots[tag];
    if (slot.state != State::Taken)
        return; // the connection was lost in the meantime
    slot.state = State::Unsent;
    slot.frame = std::move(frame);
    m_unsent.push_back(tag);
    beginReading(slot);
}

std::shared_ptr<DeviceResponseCommand> ExchangeTable::await(const Wire::WireHead &request,
                                                            Clock::TimePoint deadline,
                                                            std::optional<Wire::RequestId> *sent)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    Slot &slot = m_slots[request.lables];
    while (slot.state != State::Completed && m_clock.now() < deadline) {
        if (beginReading(slot))
            read(lock, slot, deadline);
        else
            wait(lock, slot, deadline);
    }
    endReading(slot);
    wakeNextReader();
    if (sent)
        *sent = slot.sent;
    if (slot.state != State::Completed)
        return giveUp(request.lables);
    slot.state = State::Free;
    return std::move(slot.response);
}

/// Returns true if the caller of this exchange receives from now on, or does so already. Call it
/// with the mutex held.
bool ExchangeTable::beginReading(const Slot &slot)
{
    if (!m_reading && m_reader && m_reader->begin())
        m_reading = &slot;
    return m_reading == &slot;
}

/// Receives until the answer has arrived or the connection has ended. Call it with the mutex held
/// by \a lock.
void ExchangeTable::read(std::unique_lock<std::mutex> &lock, const Slot &slot,
                         Clock::TimePoint deadline)
{
    bool isConnected = true;
    while (isConnected && slot.state != State::Completed && m_clock.now() < deadline) {
        lock.unlock();
        isConnected = m_reader->receive(deadline);
        lock.lock();
    }
    endReading(slot);
}

/// Lets the loop's thread receive, until another caller does. Call it with the mutex held.
void ExchangeTable::endReading(const Slot &slot)
{
    if (m_reading != &slot)
        return;
    m_reading = nullptr;
    m_reader->end();
}

/// A caller that waits receives from now on. Each caller that leaves wakes another one, even if it
/// has not received: it may have been woken for this, and have found its own answer. Call it with
/// the mutex held.
void ExchangeTable::wakeNextReader()
{
    if (!m_reading && !m_waiting.empty())
        m_waiting.front()->completed.notify_one();
}

/// Waits while another thread receives. Call it with the mutex held by \a lock.
void ExchangeTable::wait(std::unique_lock<std::mutex> &lock, Slot &slot, Clock::TimePoint deadline)
{
    m_waiting.push_back(&slot);
    m_clock.waitUntil(slot.completed, lock, deadline);
    m_waiting.erase(std::find(m_waiting.begin(), m_waiting.end(), &slot));
}

void ExchangeTable::endSplitRead(quint16 stream)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_splitReads.release(stream);
}

/// Contents are long: a request for records, which an operator may wait for, does not wait until
/// all of those that were submitted earlier have been sent.
std::optional<QByteArray> ExchangeTable::takeUnsent(bool withContents)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto isRecord = [this](quint8 tag) {
        return !isContent(m_slots[tag].request);
    };
    auto next = std::find_if(m_unsent.begin(), m_unsent.end(), isRecord);
    if (next == m_unsent.end() && withContents)
        next = m_unsent.begin();
    if (next == m_unsent.end())
        return std::nullopt;
    Slot &slot = m_slots[*next];
    m_unsent.erase(next);
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
    notePacket(slot.request, answer.head, answer.status);
    end(slot, answer.status);
    if (answer.status == 0) {
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

/// The packets of a split write reach the channel without a stream, one after the other from one
/// thread: the thread determines their stream. A read gets a stream of its own, which its further
/// packets inherit, since the caller may send another read between two of them.
void ExchangeTable::assignStream(Wire::WireHead &head, SplitSlots *slots)
{
    const int slot = slots ? slots->freeSlot(m_clock.now()) : -1;
    if (isSplitWrite(head)) {
        if (slot >= 0)
            slots->assign(slot, static_cast<quint16>(firstWriteStream + slot));
        head.stream = m_splitWrites.streamOfThisThread();
        m_splitWrites.packetSent(head.stream);
        return;
    }
    if (head.stream == 0)
        head.stream = head.totalCount > 1 ? contentStreamOfThisThread() : freshStream();
    if (slot >= 0)
        slots->assign(slot, head.stream);
    m_splitReads.packetSent(head.stream);
}

quint16 ExchangeTable::freshStream()
{
    do {
        m_lastStream = static_cast<quint16>(m_lastStream % (firstWriteStream - 1) + 1);
    } while (m_splitReads.holds(m_lastStream));
    return m_lastStream;
}

/// Call it with the mutex held, when the packet \a request was answered or ended with \a failure.
void ExchangeTable::notePacket(const Wire::WireHead &request, const Wire::WireHead &answer,
                               quint16 failure)
{
    SplitSlots &slots = isRead(request) ? m_splitReads : m_splitWrites;
    const Wire::WireHead &counted = isRead(request) ? answer : request;
    const bool isLast = quint64(counted.sendCount) + 1 >= counted.totalCount;
    if (isLast || answer.status != 0 || failure != 0)
        slots.release(request.stream);
    else
        slots.packetAnswered(request.stream, m_clock.now());
}

void ExchangeTable::end(Slot &slot, quint16 status)
{
    slot.state = State::Completed;
    slot.frame.clear();
    slot.response = makeResponse(Wire::packetHead(slot.request), status);
    if (m_reading == &slot)
        m_reader->interrupt();
    else
        slot.completed.notify_one();
}

/// Call it with the mutex held, when the request has timed out.
std::shared_ptr<DeviceResponseCommand> ExchangeTable::giveUp(quint8 tag)
{
    Slot &slot = m_slots[tag];
    const bool mayBeAnswered = slot.state == State::Sent;
    notePacket(slot.request, slot.request, RequestTimedOut);
    if (!mayBeAnswered)
        m_unsent.erase(std::remove(m_unsent.begin(), m_unsent.end(), tag), m_unsent.end());
    slot.state = mayBeAnswered ? State::TimedOut : State::Free;
    slot.frame.clear();
    m_timedOut += mayBeAnswered;
    ++m_counts.timeouts;
    return makeResponse(Wire::packetHead(slot.request),
                        mayBeAnswered && slot.hasAnswerStarted ? AnswerIncomplete
                                                               : RequestTimedOut);
}

} // namespace Tavoro::SSProxy::Internal
