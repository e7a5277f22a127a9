#pragma once

#include <tavorosession/devicesession.h>

#include <array>
#include <random>

/// Random numbers of a storm. The same seed makes the same numbers.
class StormRandom {
public:
    explicit StormRandom(quint32 seed) : m_random(seed) { }

    int number(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }
    bool chance(int oneOf) { return number(oneOf) == 0; }
    template <class List>
    auto &pick(List &list)
    {
        return list[static_cast<std::size_t>(number(static_cast<int>(std::size(list))))];
    }

private:
    std::mt19937 m_random;
};

/// Calls a random operation with random values, some of which the device refuses.
Tavoro::PendingCall<Tavoro::Outcome> callAny(Tavoro::DeviceSession &wall, StormRandom &random);
/// Moves a T-bar; the latest value wins.
Tavoro::PendingCall<Tavoro::Outcome> dragTBar(Tavoro::DeviceSession &wall, StormRandom &random);
