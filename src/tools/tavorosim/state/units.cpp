#include "units.h"

namespace Tavoro::Sim {

std::vector<Unit> unitsOf(const SimState &state)
{
    constexpr quint16 mainModel = 0x7701;
    std::vector<Unit> units = {{MainUnit, 0, mainModel, true}};
    for (const ProtoModel::Device::s_subcardBody &card : state.device.subcards)
        units.push_back({CardUnit, static_cast<quint8>(card.slotId),
                         static_cast<quint16>(card.modelId), card.online != 0});
    return units;
}

} // namespace Tavoro::Sim
