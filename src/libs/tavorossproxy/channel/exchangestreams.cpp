#include "exchangestreams_p.h"

#include "requestkinds_p.h"

#include <atomic>

namespace Tavoro::SSProxy::Internal {

namespace {

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

} // namespace

quint16 ExchangeStreams::awaitSlot(const Wire::WireHead &request,
                                   std::unique_lock<std::mutex> &lock, Clock::TimePoint deadline)
{
    SplitSlots *const slots = slotsFor(request);
    return slots ? slots->await(m_clock, lock, deadline) : quint16(0);
}

/// The packets of a split write reach the channel without a stream, one after the other from one
/// thread: the thread determines their stream. A read gets a stream of its own, which its further
/// packets inherit, since the caller may send another read between two of them.
void ExchangeStreams::assign(Wire::WireHead &request)
{
    SplitSlots *const slots = slotsFor(request);
    const int slot = slots ? slots->freeSlot(m_clock.now()) : -1;
    if (isSplitWrite(request)) {
        if (slot >= 0)
            slots->assign(slot, static_cast<quint16>(firstWriteStream + slot));
        request.stream = m_splitWrites.streamOfThisThread();
        m_splitWrites.packetSent(request.stream);
        return;
    }
    if (request.stream == 0)
        request.stream = request.totalCount > 1 ? contentStreamOfThisThread() : freshStream();
    if (slot >= 0)
        slots->assign(slot, request.stream);
    m_splitReads.packetSent(request.stream);
}

/// The device counts the packets of a read, and the client those of a write.
void ExchangeStreams::answered(const Wire::WireHead &request, const Wire::WireHead &answer)
{
    if (answer.status != 0 || isLastPacket(isRead(request) ? answer : request))
        slotsOf(request).release(request.stream);
    else
        slotsOf(request).packetAnswered(request.stream, m_clock.now());
}

void ExchangeStreams::failed(const Wire::WireHead &request)
{
    slotsOf(request).release(request.stream);
}

void ExchangeStreams::close(quint16 refusal)
{
    m_splitReads.close(refusal);
    m_splitWrites.close(refusal);
}

/// The slots among which a request needs one; null if it needs none or already has one.
SplitSlots *ExchangeStreams::slotsFor(const Wire::WireHead &request)
{
    if (isSplitWrite(request) && m_splitWrites.streamOfThisThread() == 0)
        return &m_splitWrites;
    if (mayBeSplitRead(request) && request.sendCount == 0 && !m_splitReads.holds(request.stream))
        return &m_splitReads;
    return nullptr;
}

SplitSlots &ExchangeStreams::slotsOf(const Wire::WireHead &request)
{
    return isRead(request) ? m_splitReads : m_splitWrites;
}

quint16 ExchangeStreams::freshStream()
{
    do {
        m_lastStream = static_cast<quint16>(m_lastStream % (firstWriteStream - 1) + 1);
    } while (m_splitReads.holds(m_lastStream));
    return m_lastStream;
}

} // namespace Tavoro::SSProxy::Internal
