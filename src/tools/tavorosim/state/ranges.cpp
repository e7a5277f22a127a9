#include "ranges.h"

#include <algorithm>
#include <initializer_list>

namespace Tavoro::Sim {

using namespace ProtoModel;

namespace {

bool isBetween(qint32 value, qint32 least, qint32 most)
{
    return least <= value && value <= most;
}

bool areBetween(std::initializer_list<qint32> values, qint32 least, qint32 most)
{
    return std::all_of(values.begin(), values.end(),
                       [=](qint32 value) { return isBetween(value, least, most); });
}

bool areUInt16(std::initializer_list<qint32> values)
{
    return areBetween(values, 0, 65535);
}

bool isTimingAxis(const s_TimingAxisBody &axis)
{
    return areUInt16({axis.addTime, axis.frontPorch, axis.sync, axis.totalTime})
        && isFlag(axis.syncPolarity);
}

bool isRGBA(const Layer::s_RGBA &color)
{
    return areBetween({color.R, color.G, color.B}, 0, 255) && isPercent(color.opacity);
}

bool isUMDEntry(const Layer::s_LayerUMDBody &entry)
{
    return isUInt16(entry.index) && isFlag(entry.enable) && isRGBA(entry.color.foregroundColor)
        && isRGBA(entry.color.backgroundColor);
}

bool isOutputOfMosaic(const Screen::s_MosaicOutput &output)
{
    return isWindow(output.crop)
        && std::all_of(output.feather.begin(), output.feather.end(),
                       [](const Screen::s_Feather &feather) {
                           return isFlag(feather.enable)
                               && areUInt16({feather.type, feather.gamma, feather.width});
                       });
}

} // namespace

bool isFlag(const quint8 &value)
{
    return value <= 1;
}

bool isFlag(const qint32 &value)
{
    return isBetween(value, 0, 1);
}

bool isPercent(const qint32 &value)
{
    return isBetween(value, 0, 100);
}

bool isUInt16(const qint32 &value)
{
    return areUInt16({value});
}

bool isColor(const s_RGB &color)
{
    return areBetween({color.R, color.G, color.B}, 0, 255);
}

bool isImageQuality(const s_ImageQualityBody &quality)
{
    const s_AllRGB &contrast = quality.contrast;
    const s_AllRGB &brightness = quality.brightness;
    return areBetween({contrast.all, contrast.R, contrast.G, contrast.B}, 0, 100)
        && areBetween({brightness.all, brightness.R, brightness.G, brightness.B}, 0, 100)
        && isBetween(quality.hue, -180, 180) && isPercent(quality.saturation)
        && isBetween(quality.gamma, 10, 1000);
}

bool isTestPattern(const s_TestPatternBody &pattern)
{
    return isFlag(pattern.enable)
        && areUInt16({pattern.type, pattern.bright, pattern.grid, pattern.speed,
                      pattern.gridLineWidth, pattern.gridType});
}

bool isTiming(const s_TimingDetailBody &timing)
{
    return isFlag(timing.interlaced) && isBetween(timing.refresh, 0, 1000000)
        && isUInt16(timing.compatMode) && isTimingAxis(timing.horizontal)
        && isTimingAxis(timing.vertical);
}

bool isCrop(const s_CropBody &crop)
{
    constexpr qint32 whole = 100000;
    return isUInt16(crop.type) && isFlag(crop.enable) && isBetween(crop.widthRatio, 1, whole)
        && isBetween(crop.heightRatio, 1, whole) && isBetween(crop.xRatio, 0, whole)
        && isBetween(crop.yRatio, 0, whole);
}

bool isWindow(const Screen::s_Rect &window)
{
    return areBetween({window.x, window.y}, -65535, 65535)
        && areBetween({window.width, window.height}, 1, 65535);
}

bool isDynamicRangConversion(const Device::s_DynamicRangConversion &conversion)
{
    return isFlag(conversion.enable) && isUInt16(conversion.type);
}

bool isMapping(const Device::s_InterfaceMapping &mapping)
{
    const Device::s_InterfaceMappingTestPattern &pattern = mapping.testPattern;
    return isUInt16(mapping.general.type) && isFlag(pattern.enable)
        && areUInt16({pattern.type, pattern.bright, pattern.grid, pattern.speed,
                      pattern.gridLineWidth, pattern.gridType});
}

bool isHDCP(const Interface::s_HDCPBody &hdcp)
{
    return isUInt16(hdcp.presetType);
}

bool isCutout(const Interface::s_CutoutBody &cutout)
{
    return isFlag(cutout.enable)
        && areUInt16({cutout.type, cutout.brightness.threshold, cutout.brightness.gain,
                      cutout.hue.background, cutout.hue.foreground})
        && isColor(cutout.hue.color);
}

bool isPhysicalSize(const Screen::s_PhysicalSizeBody &size)
{
    return std::min({size.width, size.height, size.dotPitch, size.unit}) >= 0;
}

bool isFTB(const Screen::s_FTBBody &ftb)
{
    return isFlag(ftb.enable) && isUInt16(ftb.time);
}

bool isSwitchEffect(const Screen::s_SwitchEffectBody &effect)
{
    return areUInt16({effect.time, effect.direction, effect.type});
}

bool isMosaic(const Screen::s_Mosaic &mosaic)
{
    return isUInt16(mosaic.type) && areBetween({mosaic.splice.row, mosaic.splice.column}, 1, 255)
        && isWindow(mosaic.window) && isTiming(mosaic.refOutputPara.timing)
        && std::all_of(mosaic.outputs.begin(), mosaic.outputs.end(), isOutputOfMosaic);
}

bool isLayerGeneral(const Layer::s_LayerGeneralBody &general)
{
    return areBetween(
               {general.isBackground, general.isFreeze, general.isMonochrome, general.isInverse}, 0,
               1)
        && isUInt16(general.flipType);
}

bool isMask(const Layer::s_LayerMaskBody &mask)
{
    return isFlag(mask.enable) && areUInt16({mask.left, mask.right, mask.top, mask.bottom});
}

bool isTestColor(const Layer::s_LayerTestColor &color)
{
    return isFlag(color.enable) && areBetween({color.R, color.G, color.B}, 0, 255);
}

bool isShadow(const Layer::s_LayerShadowBody &shadow)
{
    return isFlag(shadow.general.enable) && isUInt16(shadow.general.feather)
        && isWindow(shadow.window) && isRGBA(shadow.color);
}

bool isBorder(const Layer::s_LayerBorderBody &border)
{
    return isFlag(border.enable) && areUInt16({border.type, border.size.hWidth, border.size.vWidth})
        && isRGBA(border.color);
}

bool isUMD(const std::vector<Layer::s_LayerUMDBody> &entries)
{
    return std::all_of(entries.begin(), entries.end(), isUMDEntry);
}

} // namespace Tavoro::Sim
