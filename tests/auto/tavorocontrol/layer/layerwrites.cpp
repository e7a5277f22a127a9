#include "layerwrites.h"

#include <support/proto/samplebodies.h>

using namespace Tavoro::ProtoModel::Layer;
using Tavoro::Control::Layer;

namespace {

// The identity is nested. In memory it begins with screenId and screenType, as on the wire.
const s_LayerIdentity one{{9, 4}, 7, 3, 2};
const s_LayerIdentity two{{8, 3}, 6, 5, 1};
const std::string oneText =
    R"({"layerIdenti":{"screenId":9,"screenType":4,"layerId":7,"layerType":3,"sceneType":2})";
const std::string twoText =
    R"({"layerIdenti":{"screenId":8,"screenType":3,"layerId":6,"layerType":5,"sceneType":1})";

// clang-format off
const s_LayerGeneralBody general{"Speaker", 1, 2, 3, 4, 5};
const std::string generalText =
    R"({"name":"Speaker","isBackground":1,"isFreeze":2,"isMonochrome":3,"isInverse":4,"flipType":5})";

const s_LayerSourceBody source{{1, 4000000000U}, {Sample::crop, {5, 2, 1, 1, 2, 3, 4, {}}}};
const std::string sourceText = std::string(R"({"general":{"type":1,"id":4000000000},"crop":[)") + Sample::cropText
    + R"(,{"id":5,"type":2,"enable":1,"widthRatio":1,"heightRatio":2,"xRatio":3,"yRatio":4}]})";

const Tavoro::ProtoModel::Screen::s_Rect window{-10, 20, 640, 480};
const std::string windowText = R"({"x":-10,"y":20,"width":640,"height":480})";

const s_LayerMaskBody mask{1, 2, 3, 4, 5};
const std::string maskText = R"({"enable":1,"left":2,"right":3,"top":4,"bottom":5})";

const s_LayerTestColor testColor{1, 2, 3, 4}; // in memory R, G, B, enable
const std::string testColorText = R"({"enable":4,"R":1,"G":2,"B":3})";

const s_LayerShadowBody shadow{{1, 2}, {3, 4, 5, 6}, {7, 8, 9, 10}};
const std::string shadowText =
    R"({"general":{"enable":1,"feather":2},"window":{"x":3,"y":4,"width":5,"height":6},"color":{"R":7,"G":8,"B":9,"opacity":10}})";

const s_LayerBorderBody border{1, 2, {3, 4}, {5, 6, 7, 8}};
const std::string borderText =
    R"({"enable":1,"type":2,"size":{"hWidth":3,"vWidth":4},"color":{"R":5,"G":6,"B":7,"opacity":8}})";

const std::vector<s_LayerUMDBody> umd{{1, 0, {{1, 2, 3, 4}, {5, 6, 7, 8}}}, {2, 3, {{9, 10, 11, 12}, {13, 14, 15, 16}}}};
const std::string umdText =
    R"([{"index":1,"enable":0,"color":{"foregroundColor":{"R":1,"G":2,"B":3,"opacity":4},)"
    R"("backgroundColor":{"R":5,"G":6,"B":7,"opacity":8}}},)"
    R"({"index":2,"enable":3,"color":{"foregroundColor":{"R":9,"G":10,"B":11,"opacity":12},)"
    R"("backgroundColor":{"R":13,"G":14,"B":15,"opacity":16}}}])";
// clang-format on

} // namespace

const std::vector<WriteRow<Layer>> &layerWrites()
{
    // clang-format off
    static const std::vector<WriteRow<Layer>> rows = {
        byReference<s_LayerFullDetail>("writeEnableAll", &Layer::writeEnableAll, 0x1400,
            {{one, {true, true}, 5, 1, general, source, window, mask, testColor, 60, Sample::imageQuality, shadow, border, umd}},
            "[" + oneText + R"(,"cutFill":{"enable":1,"isBinding":1},"zorder":5,"selected":1,"general":)" + generalText
            + R"(,"source":)" + sourceText + R"(,"window":)" + windowText + R"(,"mask":)" + maskText + R"(,"testColor":)" + testColorText
            + R"(,"opacity":60,"imageQuality":)" + Sample::imageQualityText + R"(,"shadow":)" + shadowText + R"(,"border":)" + borderText
            + R"(,"UMD":)" + umdText + "}]"),
        byReference<s_LayerEnable>("writeEnable", &Layer::writeEnable, 0x1401,
            {{one, 5, general, source, window, border}},
            "[" + oneText + R"(,"zorder":5,"general":)" + generalText + R"(,"source":)" + sourceText + R"(,"window":)" + windowText
            + R"(,"border":)" + borderText + "}]"),
        byReference<s_LayerZorder>("writeZOrder", &Layer::writeZOrder, 0x1402,
            {{one, 12}, {two, 3}},
            "[" + oneText + R"(,"zorder":12},)" + twoText + R"(,"zorder":3}])"),
        byReference<s_LayerGeneral>("writeGeneral", &Layer::writeGeneral, 0x1403,
            {{one, general}, {two, {"Slides", 6, 5, 4, 3, 2}}},
            "[" + oneText + R"(,"general":)" + generalText + "}," + twoText
            + R"(,"general":{"name":"Slides","isBackground":6,"isFreeze":5,"isMonochrome":4,"isInverse":3,"flipType":2}}])"),
        byReference<s_LayerSource>("writeSource", &Layer::writeSource, 0x1404,
            {{one, source}},
            "[" + oneText + R"(,"source":)" + sourceText + "}]"),
        byReference<s_LayerWindow>("writeWindow", &Layer::writeWindow, 0x1405,
            {{one, window}, {two, {1, 2, 3, 4}}},
            "[" + oneText + R"(,"window":)" + windowText + "}," + twoText + R"(,"window":{"x":1,"y":2,"width":3,"height":4}}])"),
        byReference<s_LayerMask>("writeMask", &Layer::writeMask, 0x1406,
            {{one, mask}, {two, {6, 7, 8, 9, 10}}},
            "[" + oneText + R"(,"mask":)" + maskText + "}," + twoText + R"(,"mask":{"enable":6,"left":7,"right":8,"top":9,"bottom":10}}])"),
        byReference<s_LayerColor>("writeColor", &Layer::writeColor, 0x1407,
            {{one, testColor}, {two, {5, 6, 7, 8}}},
            "[" + oneText + R"(,"testColor":)" + testColorText + "}," + twoText + R"(,"testColor":{"enable":8,"R":5,"G":6,"B":7}}])"),
        byReference<s_LayerOpacity>("writeOpacity", &Layer::writeOpacity, 0x1408,
            {{one, 60}, {two, 0}},
            "[" + oneText + R"(,"opacity":60},)" + twoText + R"(,"opacity":0}])"),
        byReference<s_LayerImageQuality>("writeImageQuality", &Layer::writeImageQuality, 0x1409,
            {{one, Sample::imageQuality}},
            "[" + oneText + R"(,"imageQuality":)" + Sample::imageQualityText + "}]"),
        byReference<s_LayerShadow>("writeShadow", &Layer::writeShadow, 0x140A,
            {{one, shadow}},
            "[" + oneText + R"(,"shadow":)" + shadowText + "}]"),
        byReference<s_LayerBorder>("writeBorder", &Layer::writeBorder, 0x140B,
            {{one, border}},
            "[" + oneText + R"(,"border":)" + borderText + "}]"),
        byReference<s_LayerSelected>("writeSelected", &Layer::writeSelected, 0x140C,
            {{one, 1}, {two, 2}},
            "[" + oneText + R"(,"selected":1},)" + twoText + R"(,"selected":2}])"),
        byReference<s_LayerUMD>("writeUMD", &Layer::writeUMD, 0x140D,
            {{one, umd}, {two, {}}},
            "[" + oneText + R"(,"UMD":)" + umdText + "}," + twoText + R"(,"UMD":[]}])"),
        byReference<s_LayerRemoved>("writeRemoved", &Layer::writeRemoved, 0x140E,
            {{one}, {two}},
            "[" + oneText + "}," + twoText + "}]"),
        byValue<s_CutFill>("writeCutAndFill", &Layer::writeCutAndFill, 0x1410,
            {{one, {true, true}}, {two, {false, true}}},
            "[" + oneText + R"(,"cutFill":{"enable":1,"isBinding":1}},)" + twoText + R"(,"cutFill":{"enable":0,"isBinding":1}}])"),
    };
    // clang-format on
    return rows;
}
