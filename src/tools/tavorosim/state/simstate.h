#pragma once

#include "filestore.h"
#include "maintenance.h"

#include <tavorocontrol/proto/device.h>
#include <tavorocontrol/proto/interface.h>
#include <tavorocontrol/proto/layer.h>
#include <tavorocontrol/proto/screen.h>

#include <QtGlobal>

#include <map>
#include <tuple>

namespace Tavoro::Sim {

/// Kind of an interface: \c s_InterfaceGeneralBody::type, and the value of the first filter.
enum InterfaceType : qint32 {
    InputInterface = 1,
    OutputInterface = 2,
};

/// Scene of a layer: \c s_LayerIdentity::sceneType.
enum SceneType : qint32 {
    PreviewScene = 2,
    ProgrammeScene = 4,
};

/// Kind of a layer: \c s_LayerIdentity::layerType.
enum LayerType : qint32 {
    MixingLayer = 1,
    BackgroundLayer = 2,
};

/// The source of a layer: \c s_SourceGeneral::type, with the meaning of its \c id.
enum SourceType : qint32 {
    NoSource = 0,
    InputSource = 1, ///< packedId() of an input.
    FileSource = 2, ///< Number of an image file.
    ScreenSource = 3, ///< Number of a screen whose programme is shown.
};

/// The source of the genlock: \c s_GenlockBody::type.
enum GenlockType : qint32 {
    InternalGenlock = 0,
    ExternalGenlock = 1, ///< The genlock connector.
    InputGenlock = 2, ///< The input whose packedId() is \c interfaceId.
};

/// Keys in the order in which the device lists its objects.
using InterfaceKey = std::tuple<qint32, qint32, qint32>; ///< Slot, connector, split.
using ScreenKey = std::tuple<qint32, quint8>; ///< Type, number.
/// Screen type, screen number, scene, layer type, layer number.
using LayerKey = std::tuple<qint32, quint8, qint32, qint32, quint8>;

InterfaceKey keyOf(const ProtoModel::s_InterfaceID &id);
ScreenKey keyOf(const ProtoModel::s_ScreenId &id);
LayerKey keyOf(const ProtoModel::Layer::s_LayerIdentity &id);

/// An interface as one number, for records that have a single field for it: slot,
/// connector and split, one byte each.
quint32 packedId(const ProtoModel::s_InterfaceID &id);

/// The setup of the device, in the records of the wire.
struct Setup {
    ProtoModel::Device::s_DeviceDetail device;
    std::map<InterfaceKey, ProtoModel::Interface::s_InterfaceDetail> interfaces;
    std::map<ScreenKey, ProtoModel::Screen::s_ScreenFullDetail> screens;
    std::map<LayerKey, ProtoModel::Layer::s_LayerFullDetail> layers;
};

/// The whole state of the device.
struct SimState : Setup {
    Setup factory; ///< Restored by a factory reset.
    Setup saved; ///< Restored by a restart.
    FileStore files;
    std::map<FileKey, ProtoModel::File::s_FileInfo>
        announced; ///< Files whose contents must follow.
    Maintenance maintenance;
};

template <class Map>
auto *findValue(Map &map, const typename Map::key_type &key)
{
    const auto found = map.find(key);
    return found == map.end() ? nullptr : &found->second;
}

/// The named object, null when there is none; constant when \a state is.
/// @{
template <class State>
auto *find(State &state, const ProtoModel::s_InterfaceID &id)
{
    return findValue(state.interfaces, keyOf(id));
}
template <class State>
auto *find(State &state, const ProtoModel::s_ScreenId &id)
{
    return findValue(state.screens, keyOf(id));
}
template <class State>
auto *find(State &state, const ProtoModel::Layer::s_LayerIdentity &id)
{
    return findValue(state.layers, keyOf(id));
}
/// @}

/// The interface of a packedId(), null when there is none.
const ProtoModel::Interface::s_InterfaceDetail *findInterface(const SimState &state,
                                                              quint32 packedId);

} // namespace Tavoro::Sim
