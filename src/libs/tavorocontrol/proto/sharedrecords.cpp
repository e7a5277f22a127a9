// Readers and writers of the records that all domains share, in the order of the headers.

#include <tavorocontrol/proto/deviceidentity.h>
#include <tavorocontrol/proto/geometry.h>
#include <tavorocontrol/proto/identities.h>
#include <tavorocontrol/proto/rgb.h>
#include <tavorocontrol/proto/signalbodies.h>

#include "recordcodec.h"

TAVORO_CODEC(Tavoro::ProtoModel::s_DeviceIdentity)
TAVORO_CODEC(Tavoro::ProtoModel::s_RGB)
TAVORO_CODEC(Tavoro::ProtoModel::s_ScreenId)
TAVORO_CODEC(Tavoro::ProtoModel::s_InterfaceID)
TAVORO_CODEC(Tavoro::ProtoModel::s_FileIdentity)
TAVORO_CODEC(Tavoro::ProtoModel::Screen::s_Position)
TAVORO_CODEC(Tavoro::ProtoModel::Screen::s_Rect)
TAVORO_CODEC(Tavoro::ProtoModel::s_ColorDepthBody)
TAVORO_CODEC(Tavoro::ProtoModel::s_ColorSpaceBody)
TAVORO_CODEC(Tavoro::ProtoModel::s_ColorRangeBody)
TAVORO_CODEC(Tavoro::ProtoModel::s_ColorGamutBody)
TAVORO_CODEC(Tavoro::ProtoModel::s_TimingAxisBody)
TAVORO_CODEC(Tavoro::ProtoModel::s_TimingDetailBody)
TAVORO_CODEC(Tavoro::ProtoModel::s_SDRBody)
TAVORO_CODEC(Tavoro::ProtoModel::s_HDR10Body)
TAVORO_CODEC(Tavoro::ProtoModel::s_HLGBody)
TAVORO_CODEC(Tavoro::ProtoModel::s_DynamicRangeDetail)
TAVORO_CODEC(Tavoro::ProtoModel::s_DynamicRangeBody)
TAVORO_CODEC(Tavoro::ProtoModel::s_HDRBody)
TAVORO_CODEC(Tavoro::ProtoModel::s_TestPatternBody)
TAVORO_CODEC(Tavoro::ProtoModel::s_AllRGB)
TAVORO_CODEC(Tavoro::ProtoModel::s_ImageQualityBody)
TAVORO_CODEC(Tavoro::ProtoModel::s_CropBody)
