#include "interfacewrites.h"

#include <support/proto/samplebodies.h>

using namespace Tavoro::ProtoModel::Interface;
using Tavoro::Control::Interface;

namespace {

const std::string id123 =
    R"({"slotId":1,"connectorId":2,"splitId":3,)"; ///< Begins the record of {1, 2, 3}.

// In memory the kind comes before the names.
const std::vector<s_General> general{{{1, 2, 3}, {7, "Camera \\ 1", "\xC3\xA9"}},
                                     {{4, 5, 6}, {8, "Camera 2", "C2"}}};
const std::string generalText =
    R"([{"slotId":1,"connectorId":2,"splitId":3,)"
    R"("general":{"name":"Camera \\ 1","nameGB2312":"\u00E9","type":7}},)"
    R"({"slotId":4,"connectorId":5,"splitId":6,)"
    R"("general":{"name":"Camera 2","nameGB2312":"C2","type":8}}])";

} // namespace

const std::vector<WriteRow<Interface>> &interfaceWrites()
{
    // clang-format off
    static const std::vector<WriteRow<Interface>> rows = {
        byReference<s_General>("writeInterfaceGeneral", &Interface::writeInterfaceGeneral, 0x1201, general, generalText),
        byReference<s_General>("writeInterfaceName", &Interface::writeInterfaceName, 0x1201, general, generalText),
        byReference<s_TestPattern>("writeTestPattern", &Interface::writeTestPattern, 0x1202,
            {{{1, 2, 3}, Sample::testPattern}},
            "[" + id123 + R"("testPattern":)" + Sample::testPatternText + "}]"),
        byReference<s_PresetTimingDetail>("writePresetTiming", &Interface::writePresetTiming, 0x1203,
            {{{1, 2, 3}, Sample::timing}},
            "[" + id123 + R"("presetTiming":)" + Sample::timingText + "}]"),
        byReference<s_ImageQuality>("writeImageQuality", &Interface::writeImageQuality, 0x1205,
            {{{1, 2, 3}, Sample::imageQuality}},
            "[" + id123 + R"("imageQuality":)" + Sample::imageQualityText + "}]"),
        byReference<s_CropDetail>("writeCrop", &Interface::writeCrop, 0x1206,
            {{{1, 2, 3}, Sample::crop}},
            "[" + id123 + R"("crop":)" + Sample::cropText + "}]"),
        byReference<s_CutoutGeneral>("writeCutoutGeneral", &Interface::writeCutoutGeneral, 0x1207,
            {{{1, 2, 3}, {1, 2, {3, 4}, {5, 6, {7, 8, 9}}}}},
            "[" + id123 + R"("cutoutGeneral":{"enable":1,"type":2,"brightness":{"threshold":3,"gain":4},)"
            R"("hue":{"background":5,"foreground":6,"color":{"R":7,"G":8,"B":9}}}}])"),
        byReference<s_HDCP>("writeHDCP", &Interface::writeHDCP, 0x1208,
            {{{1, 2, 3}, {true, 2, 3}}, {{4, 5, 6}, {false, 4, 5}}},
            R"([{"slotId":1,"connectorId":2,"splitId":3,"hdcp":{"enable":1,"presetType":2,"actualType":3}},)"
            R"({"slotId":4,"connectorId":5,"splitId":6,"hdcp":{"enable":0,"presetType":4,"actualType":5}}])"),
        byReference<s_ColorDepth>("writeInterfaceColorDepth", &Interface::writeInterfaceColorDepth, 0x1209,
            {{{1, 2, 3}, {8, 10}}, {{4, 5, 6}, {12, 16}}},
            R"([{"slotId":1,"connectorId":2,"splitId":3,"colorDepths":{"actualColorDepth":8,"presetColorDepth":10}},)"
            R"({"slotId":4,"connectorId":5,"splitId":6,"colorDepths":{"actualColorDepth":12,"presetColorDepth":16}}])"),
        byReference<s_ColorSpace>("writeInterfaceColorSpace", &Interface::writeInterfaceColorSpace, 0x120A,
            {{{1, 2, 3}, {1, 2}}, {{4, 5, 6}, {3, 4}}},
            R"([{"slotId":1,"connectorId":2,"splitId":3,"colorSpaces":{"actualColorSpace":1,"presetColorSpace":2}},)"
            R"({"slotId":4,"connectorId":5,"splitId":6,"colorSpaces":{"actualColorSpace":3,"presetColorSpace":4}}])"),
        byReference<s_ColorRange>("writeInterfaceColorRange", &Interface::writeInterfaceColorRange, 0x120B,
            {{{1, 2, 3}, {1, 2}}, {{4, 5, 6}, {3, 4}}},
            R"([{"slotId":1,"connectorId":2,"splitId":3,"colorRanges":{"actualColorRange":1,"presetColorRange":2}},)"
            R"({"slotId":4,"connectorId":5,"splitId":6,"colorRanges":{"actualColorRange":3,"presetColorRange":4}}])"),
        byReference<s_FormatMapping>("writeInterfaceFormatMapping", &Interface::writeInterfaceFormatMapping, 0x120C,
            {{{1, 2, 3}, 7}, {{4, 5, 6}, -8}},
            R"([{"slotId":1,"connectorId":2,"splitId":3,"formatMapping":7},{"slotId":4,"connectorId":5,"splitId":6,"formatMapping":-8}])"),
        byReference<s_DHR>("writeInterfaceHDR", &Interface::writeInterfaceHDR, 0x120D,
            {{{1, 2, 3}, Sample::hdr}},
            "[" + id123 + R"("HDR":)" + Sample::hdrText + "}]"),
    };
    // clang-format on
    return rows;
}
