#include "splitslots_p.h"

#include <tavorossproxy/channelstatus.h>

#include <algorithm>
#include <utility>

namespace Tavoro::SSProxy::Internal {

namespace {

/// Pause between two packets after which an exchange counts as abandoned. Equals the default
/// timeout of a packet.
constexpr std::chrono::seconds abandonedAfter(10);

} // namespace

quint16 SplitSlots::streamOfThisThread() const
{
    for (const Slot &slot : m_slots) {
        if (slot.stream != 0 && slot.caller == std::this_thread::get_id())
            return slot.stream;
    }
    return 0;
}

int SplitSlots::freeSlot(TimePoint now) const
{
    const auto isFree = [now](const Slot &slot) {
        return slot.stream == 0 || abandonedAt(slot) <= now;
    };
    const auto slot = std::find_if(m_slots.begin(), m_slots.end(), isFree);
    return slot == m_slots.end() ? -1 : static_cast<int>(slot - m_slots.begin());
}

void SplitSlots::assign(int slot, quint16 stream)
{
    m_slots[static_cast<std::size_t>(slot)] = {stream, std::this_thread::get_id(),
                                               TimePoint::max()};
}

void SplitSlots::packetSent(quint16 stream)
{
    if (Slot *const slot = find(stream))
        slot->answered = TimePoint::max();
}

void SplitSlots::packetAnswered(quint16 stream, TimePoint now)
{
    Slot *const slot = find(stream);
    if (!slot)
        return;
    slot->answered = now;
    wakeFirst();
}

void SplitSlots::release(quint16 stream)
{
    Slot *const slot = find(stream);
    if (!slot)
        return;
    *slot = {};
    wakeFirst();
}

void SplitSlots::close(quint16 refusal)
{
    std::fill(m_slots.begin(), m_slots.end(), Slot());
    for (Waiting *const waiting : m_waiting) {
        waiting->refusal = refusal;
        waiting->wake.notify_one();
    }
}

quint16 SplitSlots::await(Clock &clock, std::unique_lock<std::mutex> &lock, TimePoint deadline)
{
    Waiting own;
    m_waiting.push_back(&own);
    const auto isServed = [&] {
        return m_waiting.front() == &own && freeSlot(clock.now()) >= 0;
    };
    while (own.refusal == 0 && !isServed() && clock.now() < deadline) {
        TimePoint next = deadline;
        for (const Slot &slot : m_slots)
            next = std::min(next, abandonedAt(slot));
        clock.waitUntil(own.wake, lock, std::max(next, clock.now()));
    }
    if (own.refusal == 0 && !isServed())
        own.refusal = RequestTimedOut;
    m_waiting.erase(std::find(m_waiting.begin(), m_waiting.end(), &own));
    wakeFirst();
    return own.refusal;
}

const SplitSlots::Slot *SplitSlots::find(quint16 stream) const
{
    if (stream == 0)
        return nullptr;
    const auto slot = std::find_if(m_slots.begin(), m_slots.end(),
                                   [=](const Slot &one) { return one.stream == stream; });
    return slot == m_slots.end() ? nullptr : &*slot;
}

SplitSlots::Slot *SplitSlots::find(quint16 stream)
{
    return const_cast<Slot *>(std::as_const(*this).find(stream));
}

SplitSlots::TimePoint SplitSlots::abandonedAt(const Slot &slot)
{
    return slot.answered == TimePoint::max() ? slot.answered : slot.answered + abandonedAfter;
}

/// The caller may find a free slot, or must wait for an earlier time than before.
void SplitSlots::wakeFirst()
{
    if (!m_waiting.empty())
        m_waiting.front()->wake.notify_one();
}

} // namespace Tavoro::SSProxy::Internal
