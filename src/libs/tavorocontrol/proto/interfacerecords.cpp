// Readers and writers of the records of the interface domain, in the order of the headers.

#include <tavorocontrol/proto/interface.h>

#include "recordcodec.h"

TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_InterfaceGeneralBody)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_HDCPBody)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_CutoutBrightness)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_CutoutHue)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_CutoutBody)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_InterfaceDetail)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_General)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_TestPattern)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_PresetTimingDetail)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_ActualTimingDetail)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_ImageQuality)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_CropDetail)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_CutoutGeneral)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_HDCP)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_ColorDepth)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_ColorSpace)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_ColorRange)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_FormatMapping)
TAVORO_CODEC(Tavoro::ProtoModel::Interface::s_DHR)
