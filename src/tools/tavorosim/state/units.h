#pragma once

#include "simstate.h"

#include <vector>

namespace Tavoro::Sim {

/// Kind of a unit in the records of maintenance.
enum UnitType : quint8 {
    MainUnit = 1, ///< The device as a whole, in slot 0.
    CardUnit = 2,
};

/// A unit of the device that is measured and upgraded by itself.
struct Unit {
    UnitType type;
    quint8 slotId;
    quint16 modelId;
    bool isOnline;
};

/// The device as a whole, then its cards.
std::vector<Unit> unitsOf(const SimState &state);

} // namespace Tavoro::Sim
