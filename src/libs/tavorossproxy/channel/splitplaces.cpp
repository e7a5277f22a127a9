#include "splitplaces_p.h"

#include <tavorossproxy/channelstatus.h>

#include <algorithm>
#include <utility>

namespace Tavoro::SSProxy::Internal {

namespace {

/// Pause between two packets after which an exchange counts as abandoned. Equals the default
/// timeout of a packet.
constexpr std::chrono::seconds longestPause(10);

} // namespace

quint16 SplitPlaces::streamOfThisThread() const
{
    for (const Place &place : m_places) {
        if (place.stream != 0 && place.caller == std::this_thread::get_id())
            return place.stream;
    }
    return 0;
}

int SplitPlaces::freePlace(TimePoint now) const
{
    const auto isFree = [now](const Place &place) {
        return place.stream == 0 || abandonedAt(place) <= now;
    };
    const auto place = std::find_if(m_places.begin(), m_places.end(), isFree);
    return place == m_places.end() ? -1 : static_cast<int>(place - m_places.begin());
}

void SplitPlaces::take(int place, quint16 stream)
{
    m_places[static_cast<std::size_t>(place)] = {stream, std::this_thread::get_id(),
                                                 TimePoint::max()};
}

void SplitPlaces::resume(quint16 stream)
{
    if (Place *const place = find(stream))
        place->paused = TimePoint::max();
}

void SplitPlaces::pause(quint16 stream, TimePoint now)
{
    Place *const place = find(stream);
    if (!place)
        return;
    place->paused = now;
    wakeFirst();
}

void SplitPlaces::release(quint16 stream)
{
    Place *const place = find(stream);
    if (!place)
        return;
    *place = {};
    wakeFirst();
}

void SplitPlaces::shut(quint16 refusal)
{
    std::fill(m_places.begin(), m_places.end(), Place());
    for (Waiting *const waiting : m_waiting) {
        waiting->refusal = refusal;
        waiting->wake.notify_one();
    }
}

quint16 SplitPlaces::await(Clock &clock, std::unique_lock<std::mutex> &lock, TimePoint deadline)
{
    Waiting own;
    m_waiting.push_back(&own);
    const auto isServed = [&] {
        return m_waiting.front() == &own && freePlace(clock.now()) >= 0;
    };
    while (own.refusal == 0 && !isServed() && clock.now() < deadline) {
        TimePoint next = deadline;
        for (const Place &place : m_places)
            next = std::min(next, abandonedAt(place));
        clock.waitUntil(own.wake, lock, std::max(next, clock.now()));
    }
    if (own.refusal == 0 && !isServed())
        own.refusal = RequestTimedOut;
    m_waiting.erase(std::find(m_waiting.begin(), m_waiting.end(), &own));
    wakeFirst();
    return own.refusal;
}

const SplitPlaces::Place *SplitPlaces::find(quint16 stream) const
{
    const auto place = std::find_if(m_places.begin(), m_places.end(),
                                    [=](const Place &one) { return one.stream == stream; });
    return stream == 0 || place == m_places.end() ? nullptr : &*place;
}

SplitPlaces::Place *SplitPlaces::find(quint16 stream)
{
    return const_cast<Place *>(std::as_const(*this).find(stream));
}

SplitPlaces::TimePoint SplitPlaces::abandonedAt(const Place &place)
{
    return place.paused == TimePoint::max() ? place.paused : place.paused + longestPause;
}

/// The caller may find a free place, or must wait for an earlier time than before.
void SplitPlaces::wakeFirst()
{
    if (!m_waiting.empty())
        m_waiting.front()->wake.notify_one();
}

} // namespace Tavoro::SSProxy::Internal
