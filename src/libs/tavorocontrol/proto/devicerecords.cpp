// Readers and writers of the records of the device domain, in the order of the headers.

#include <tavorocontrol/proto/device.h>

#include "recordcodec.h"

TAVORO_CODEC(Tavoro::ProtoModel::Device::s_GeneralBody)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_General)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_ConnectorBody)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_subcardBody)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_subcards)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_GenlockBody)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_Genlock)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_GenlockSignalBody)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_GenlockSignal)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_PowerBody)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_Powers)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_NetworkBody)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_Networks)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_swap)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_InterfaceMappingTestPattern)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_InterfaceMappingGeneral)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_InterfaceMapping)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_DynamicRangConversion)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_DeviceGroupInfoBody)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_DeviceGroupInfos)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_Relation)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_InterfaceRelationBody)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_InterfaceRelation)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_DeviceZelk)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_PresetApplyType)
TAVORO_CODEC(Tavoro::ProtoModel::Device::s_DeviceDetail)
