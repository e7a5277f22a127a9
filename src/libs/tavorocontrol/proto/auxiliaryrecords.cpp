// Readers and writers of the records of the auxiliary domain, in the order of the headers.

#include <tavorocontrol/proto/auxiliary.h>

#include "recordcodec.h"

TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_AuxiliaryOpt)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_CutoutPoint)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_CutoutPos)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_DeviceTime)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_DeviceProcessDetail)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_DeviceProcess)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_SelfCheckItem)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_SelfCheckPart)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_DeviceSelfCheckDetail)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_VersionSection)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_VersionPart)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_DeviceVersion)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_UpgradeSection)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_UpgradePart)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_UpgradeDetail)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_UpgradeSubSections)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_UpgradeSectionPercent)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_UpgradePartPercent)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_UpgradePercent)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_SourceLossConnector)
TAVORO_CODEC(Tavoro::ProtoModel::Auxiliary::s_SourceLossStat)
