#pragma once

#include <tavorocontrol/proto/identities.h>
#include <tavorocontrol/proto/layer.h>

#include <QString>
#include <QtGlobal>

#include <array>
#include <cstddef>
#include <functional>

namespace Tavoro::BizModel {

/// Identity of an interface, a screen, a layer or a file as one key; unused numbers are 0. Keys of
/// different kinds never share a table.
using ObjectId = std::array<qint32, 5>;

struct ObjectIdHash {
    std::size_t operator()(const ObjectId &id) const
    {
        std::size_t hash = 0;
        for (const qint32 number : id)
            hash = hash * 0x100000001B3U ^ std::hash<qint32>()(number);
        return hash;
    }
};

// clang-format off
inline ObjectId objectId(const ProtoModel::s_InterfaceID &id)          { return {id.slotId, id.connectorId, id.splitId, 0, 0}; }
inline ObjectId objectId(const ProtoModel::s_ScreenId &id)             { return {id.screenType, id.screenId, 0, 0, 0}; }
inline ObjectId objectId(const ProtoModel::Layer::s_LayerIdentity &id) { return {id.screenType, id.screenId, id.sceneType, id.layerType, id.layerId}; }
inline ObjectId objectId(const ProtoModel::s_FileIdentity &id)         { return {id.fileType, id.fileId, 0, 0, 0}; }
// clang-format on

/// The identity of the screen that a layer is on.
inline const ProtoModel::s_ScreenId &screenOf(const ProtoModel::Layer::s_LayerIdentity &id)
{
    return id;
}

/// \name Identities for error texts
/// @{
QString quoted(const ProtoModel::s_InterfaceID &id);
QString quoted(const ProtoModel::s_ScreenId &id);
QString quoted(const ProtoModel::Layer::s_LayerIdentity &id);
QString quoted(const ProtoModel::s_FileIdentity &id);
/// @}

} // namespace Tavoro::BizModel
