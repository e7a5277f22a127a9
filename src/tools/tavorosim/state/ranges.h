#pragma once

#include <tavorocontrol/proto/device.h>
#include <tavorocontrol/proto/interface.h>
#include <tavorocontrol/proto/layer.h>
#include <tavorocontrol/proto/screen.h>

/// The values that the device accepts. Members without a check accept every value.
namespace Tavoro::Sim {

template <class Value>
bool isAnything(const Value & /*value*/)
{
    return true;
}

bool isFlag(const quint8 &value);
bool isFlag(const qint32 &value);
bool isPercent(const qint32 &value);
bool isUInt16(const qint32 &value);

bool isColor(const ProtoModel::s_RGB &color);
bool isImageQuality(const ProtoModel::s_ImageQualityBody &quality);
bool isTestPattern(const ProtoModel::s_TestPatternBody &pattern);
bool isTiming(const ProtoModel::s_TimingDetailBody &timing);
bool isCrop(const ProtoModel::s_CropBody &crop);
bool isWindow(const ProtoModel::Screen::s_Rect &window);

bool isDynamicRangConversion(const ProtoModel::Device::s_DynamicRangConversion &conversion);
bool isMapping(const ProtoModel::Device::s_InterfaceMapping &mapping);

bool isHDCP(const ProtoModel::Interface::s_HDCPBody &hdcp);
bool isCutout(const ProtoModel::Interface::s_CutoutBody &cutout);

bool isPhysicalSize(const ProtoModel::Screen::s_PhysicalSizeBody &size);
bool isFTB(const ProtoModel::Screen::s_FTBBody &ftb);
bool isSwitchEffect(const ProtoModel::Screen::s_SwitchEffectBody &effect);
bool isMosaic(const ProtoModel::Screen::s_Mosaic &mosaic);

bool isLayerGeneral(const ProtoModel::Layer::s_LayerGeneralBody &general);
bool isMask(const ProtoModel::Layer::s_LayerMaskBody &mask);
bool isTestColor(const ProtoModel::Layer::s_LayerTestColor &color);
bool isShadow(const ProtoModel::Layer::s_LayerShadowBody &shadow);
bool isBorder(const ProtoModel::Layer::s_LayerBorderBody &border);
bool isUMD(const std::vector<ProtoModel::Layer::s_LayerUMDBody> &entries);

} // namespace Tavoro::Sim
