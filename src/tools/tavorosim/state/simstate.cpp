#include "simstate.h"

namespace Tavoro::Sim {

InterfaceKey keyOf(const ProtoModel::s_InterfaceID &id)
{
    return {id.slotId, id.connectorId, id.splitId};
}

ScreenKey keyOf(const ProtoModel::s_ScreenId &id)
{
    return {id.screenType, id.screenId};
}

LayerKey keyOf(const ProtoModel::Layer::s_LayerIdentity &id)
{
    return {id.screenType, id.screenId, id.sceneType, id.layerType, id.layerId};
}

quint32 packedId(const ProtoModel::s_InterfaceID &id)
{
    return static_cast<quint32>((id.slotId << 8 | id.connectorId) << 8 | id.splitId);
}

const ProtoModel::Interface::s_InterfaceDetail *findInterface(const SimState &state,
                                                              quint32 packedId)
{
    const auto lowByte = [](quint32 number) {
        return static_cast<qint32>(number & 0xFF);
    };
    return findValue(
        state.interfaces,
        {static_cast<qint32>(packedId >> 16), lowByte(packedId >> 8), lowByte(packedId)});
}

} // namespace Tavoro::Sim
