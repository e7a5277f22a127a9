#pragma once

#include <tavorocontrol/proto/signalbodies.h>

/// Records that several commands contain. No field has its default; the text after each record was
/// written by hand.
namespace Sample {

using namespace Tavoro::ProtoModel;

// clang-format off
inline const s_TestPatternBody testPattern{1, 2, 3, 5, 6, 7, 8};
inline constexpr char testPatternText[] =
    R"({"enable":1,"type":2,"bright":3,"grid":5,"speed":6,"gridLineWidth":7,"gridType":8})";

// In memory R, G, B, all; when written, all comes first.
inline const s_ImageQualityBody imageQuality{{11, 12, 13, 10}, {21, 22, 23, 20}, -30, 31, 180};
inline constexpr char imageQualityText[] =
    R"({"contrast":{"all":10,"R":11,"G":12,"B":13},"brightness":{"all":20,"R":21,"G":22,"B":23},)"
    R"("hue":-30,"saturation":31,"gamma":180})";

inline const s_TimingDetailBody timing{1, 60, 2, {2200, 88, 44, 1, 2640}, {1125, 4, 5, 3, 1250}};
inline constexpr char timingText[] =
    R"({"interlaced":1,"refresh":60,"compatMode":2,)"
    R"("horizontal":{"addTime":2200,"frontPorch":88,"sync":44,"syncPolarity":1,"totalTime":2640},)"
    R"("vertical":{"addTime":1125,"frontPorch":4,"sync":5,"syncPolarity":3,"totalTime":1250}})";

inline const s_HDRBody hdr{{1, 2}, {{3, {240}, {true, 900, 31, 800}, {4, 6}}, {7, {250}, {true, 700, 32, 600}, {8, 9}}}};
inline constexpr char hdrText[] =
    R"({"colorGamut":{"actualColorGamut":1,"presetColorGamut":2},"dynamicRange":{)"
    R"("actualDynamicRange":{"type":3,"SDR":{"Gamma":240},)"
    R"("HDR10":{"toneMapping":1,"screenPeakBrightness":900,"ambientLight":31,"pqMaxCll":800},)"
    R"("HLG":{"ambientLight":4,"grade":6}},)"
    R"("presetDynamicRange":{"type":7,"SDR":{"Gamma":250},)"
    R"("HDR10":{"toneMapping":1,"screenPeakBrightness":700,"ambientLight":32,"pqMaxCll":600},)"
    R"("HLG":{"ambientLight":8,"grade":9}}}})";

// The rectangle in pixels is not written.
inline const s_CropBody crop{4, 1, 2, 50000, 60000, 700, 800, {1, 2, 3, 5}};
inline constexpr char cropText[] =
    R"({"id":4,"type":1,"enable":2,"widthRatio":50000,"heightRatio":60000,"xRatio":700,"yRatio":800})";
// clang-format on

} // namespace Sample
