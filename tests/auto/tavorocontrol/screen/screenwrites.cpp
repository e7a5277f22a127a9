#include "screenwrites.h"

#include <support/proto/samplebodies.h>

using namespace Tavoro::ProtoModel::Screen;
using Tavoro::Control::Screen;
using Tavoro::ProtoModel::s_ScreenId;

namespace {

const std::string id94 = R"({"screenId":9,"screenType":4,)"; ///< Begins the records of {9, 4}.

// A screen over one output; no field at its default.
const s_Mosaic mosaic{1,
                      {2, 3},
                      {4, 5, 3840, 2160},
                      {{1, 2}, {3, 4}, {5, 6}, 7, Sample::timing},
                      {{{1, 2, 3}, {4, 5}, {6, 7, 640, 480}, {{1, 2, 210, 64}, {3, 4, 230, 32}}}}};
const std::string mosaicText =
    std::string(R"({"type":1,"splice":{"row":2,"column":3},)"
                R"("window":{"x":4,"y":5,"width":3840,"height":2160},"refOutputPara":{)"
                R"("colorDepths":{"actualColorDepth":1,"presetColorDepth":2},)"
                R"("colorSpaces":{"actualColorSpace":3,"presetColorSpace":4},)"
                R"("colorRanges":{"actualColorRange":5,"presetColorRange":6},)"
                R"("formatMapping":7,"timing":)")
    + Sample::timingText
    + R"(},"outputs":[{"interfaceId":{"slotId":1,"connectorId":2,"splitId":3},)"
      R"("pos":{"x":4,"y":5},"crop":{"x":6,"y":7,"width":640,"height":480},)"
      R"("feather":[{"enable":1,"type":2,"gamma":210,"width":64},)"
      R"({"enable":3,"type":4,"gamma":230,"width":32}]}]})";

} // namespace

const std::vector<WriteRow<Screen>> &screenWrites()
{
    // clang-format off
    static const std::vector<WriteRow<Screen>> rows = {
        byReference<s_Enable>("writeScreenEnable", &Screen::writeScreenEnable, 0x1301,
            {{{9, 4}, mosaic, {"Wall", "Qiang", 7}, {1600, 900, 39, 2}, {-10, 20}}},
            "[" + id94 + R"("mosaic":)" + mosaicText + R"(,"general":{"name":"Wall","nameGB2312":"Qiang","index":7},)"
            R"("physicalSize":{"dotPitch":39,"unit":2,"width":1600,"height":900},"layout":{"x":-10,"y":20}}])"),
        byReference<s_General>("writeScreenGeneral", &Screen::writeScreenGeneral, 0x1302,
            {{{9, 4}, {"Left \"A\"", "\xC3\xA9", 7}}, {{8, 3}, {"Right", "R", 6}}},
            R"([{"screenId":9,"screenType":4,"general":{"name":"Left \"A\"","nameGB2312":"\u00E9","index":7}},)"
            R"({"screenId":8,"screenType":3,"general":{"name":"Right","nameGB2312":"R","index":6}}])"),
        byReference<s_BackgroundColor>("writeScreenBackgroundColor", &Screen::writeScreenBackgroundColor, 0x1303,
            {{{9, 4}, {1, 2, 3}}, {{8, 3}, {255, 254, 253}}},
            R"([{"screenId":9,"screenType":4,"backgroundColor":{"R":1,"G":2,"B":3}},)"
            R"({"screenId":8,"screenType":3,"backgroundColor":{"R":255,"G":254,"B":253}}])"),
        byReference<s_Layout>("writeLayout", &Screen::writeLayout, 0x1304,
            {{{9, 4}, {-1920, 1080}}, {{8, 3}, {1, 2}}},
            R"([{"screenId":9,"screenType":4,"layout":{"x":-1920,"y":1080}},{"screenId":8,"screenType":3,"layout":{"x":1,"y":2}}])"),
        byValue<s_PhysicalSize>("writePhysicalSize", &Screen::writePhysicalSize, 0x1305,
            {{{9, 4}, {5000, 2800, 39, 1}}, {{8, 3}, {6, 7, 8, 9}}}, // in memory width, height, dotPitch, unit
            R"([{"screenId":9,"screenType":4,"physicalSize":{"dotPitch":39,"unit":1,"width":5000,"height":2800}},)"
            R"({"screenId":8,"screenType":3,"physicalSize":{"dotPitch":8,"unit":9,"width":6,"height":7}}])"),
        byValue<s_PGMEdit>("writePGMEdit", &Screen::writePGMEdit, 0x1306,
            {{{9, 4}, 1}, {{8, 3}, 2}},
            R"([{"screenId":9,"screenType":4,"PGMEdit":1},{"screenId":8,"screenType":3,"PGMEdit":2}])"),
        byValue<s_Selected>("writeSelected", &Screen::writeSelected, 0x1307,
            {{{9, 4}, 1}, {{8, 3}, 2}},
            R"([{"screenId":9,"screenType":4,"selected":1},{"screenId":8,"screenType":3,"selected":2}])"),
        byValue<s_ImageQuality>("writeImageQuality", &Screen::writeImageQuality, 0x1308,
            {{{9, 4}, Sample::imageQuality}},
            "[" + id94 + R"("imageQuality":)" + Sample::imageQualityText + "}]"),
        byValue<s_Freeze>("writeFreeze", &Screen::writeFreeze, 0x1309,
            {{{9, 4}, 1}, {{8, 3}, 2}},
            R"([{"screenId":9,"screenType":4,"freeze":1},{"screenId":8,"screenType":3,"freeze":2}])"),
        byValue<s_FTB>("writeFTB", &Screen::writeFTB, 0x130A,
            {{{9, 4}, {1, 15}}, {{8, 3}, {2, 20}}},
            R"([{"screenId":9,"screenType":4,"FTB":{"enable":1,"time":15}},{"screenId":8,"screenType":3,"FTB":{"enable":2,"time":20}}])"),
        byValue<s_TestPattern>("writeTestPattern", &Screen::writeTestPattern, 0x130B,
            {{{9, 4}, Sample::testPattern}},
            "[" + id94 + R"("testPattern":)" + Sample::testPatternText + "}]"),
        byReference<s_SwitchEffect>("writeSwitchEffect", &Screen::writeSwitchEffect, 0x130C,
            {{{9, 4}, {10, 2, 3}}, {{8, 3}, {11, 4, 5}}},
            R"([{"screenId":9,"screenType":4,"switchEffect":{"time":10,"direction":2,"type":3}},)"
            R"({"screenId":8,"screenType":3,"switchEffect":{"time":11,"direction":4,"type":5}}])"),
        byReference<s_TBar>("writeTBar", &Screen::writeTBar, 0x130D,
            {{{9, 4}, {42}}, {{8, 3}, {100}}},
            R"([{"screenId":9,"screenType":4,"tbar":{"percent":42}},{"screenId":8,"screenType":3,"tbar":{"percent":100}}])"),
        byReference<s_SwitchEffect>("writeTake", &Screen::writeTake, 0x130E,
            {{{9, 4}, {10, 2, 3}}, {{8, 3}, {11, 4, 5}}},
            R"([{"screenId":9,"screenType":4,"switchEffect":{"time":10,"direction":2,"type":3}},)"
            R"({"screenId":8,"screenType":3,"switchEffect":{"time":11,"direction":4,"type":5}}])"),
        byReference<s_ScreenId>("writeScreenDeleted", &Screen::writeScreenDeleted, 0x130F,
            {{9, 4}, {255, 3}},
            R"([{"screenId":9,"screenType":4},{"screenId":255,"screenType":3}])"),
        byReference<s_HDR>("writeScreenHDR", &Screen::writeScreenHDR, 0x1310,
            {{{9, 4}, Sample::hdr}},
            "[" + id94 + R"("HDR":)" + Sample::hdrText + "}]"),
        byReference<s_ScreenZeLKFull>("writeScreenZelk", &Screen::writeScreenZelk, 0x1314,
            {{{9, 4}, {1, 2}}, {{8, 3}, {3, 4}}},
            R"([{"screenId":9,"screenType":4,"screenZeLK":{"enable":1,"status":2}},)"
            R"({"screenId":8,"screenType":3,"screenZeLK":{"enable":3,"status":4}}])"),
    };
    // clang-format on
    return rows;
}
