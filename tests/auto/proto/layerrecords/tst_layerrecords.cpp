#include <tavorocontrol/proto/layer.h>

#include <support/proto/recordtest.h>

#include <cstddef>

using namespace Tavoro::ProtoModel;

namespace {

std::vector<RecordRow> records()
{
    // clang-format off
    return {
        {"Layer::s_LayerIdentity",     probe<Layer::s_LayerIdentity>()},
        {"Layer::s_CutFillBody",       probe<Layer::s_CutFillBody>()},
        {"Layer::s_LayerGeneralBody",  probe<Layer::s_LayerGeneralBody>()},
        {"Layer::s_SourceGeneral",     probe<Layer::s_SourceGeneral>()},
        {"Layer::s_LayerSourceBody",   probe<Layer::s_LayerSourceBody>()},
        {"Layer::s_LayerMaskBody",     probe<Layer::s_LayerMaskBody>()},
        {"Layer::s_LayerTestColor",    probe<Layer::s_LayerTestColor>()},
        {"Layer::s_RGBA",              probe<Layer::s_RGBA>()},
        {"Layer::s_ShadowGeneral",     probe<Layer::s_ShadowGeneral>()},
        {"Layer::s_LayerShadowBody",   probe<Layer::s_LayerShadowBody>()},
        {"Layer::s_BorderSize",        probe<Layer::s_BorderSize>()},
        {"Layer::s_LayerBorderBody",   probe<Layer::s_LayerBorderBody>()},
        {"Layer::s_UMDColor",          probe<Layer::s_UMDColor>()},
        {"Layer::s_LayerUMDBody",      probe<Layer::s_LayerUMDBody>()},
        {"Layer::s_LayerFullDetail",   probe<Layer::s_LayerFullDetail>()},
        {"Layer::s_LayerEnable",       probe<Layer::s_LayerEnable>()},
        {"Layer::s_LayerZorder",       probe<Layer::s_LayerZorder>()},
        {"Layer::s_LayerGeneral",      probe<Layer::s_LayerGeneral>()},
        {"Layer::s_LayerSource",       probe<Layer::s_LayerSource>()},
        {"Layer::s_LayerWindow",       probe<Layer::s_LayerWindow>()},
        {"Layer::s_LayerMask",         probe<Layer::s_LayerMask>()},
        {"Layer::s_LayerColor",        probe<Layer::s_LayerColor>()},
        {"Layer::s_LayerOpacity",      probe<Layer::s_LayerOpacity>()},
        {"Layer::s_LayerImageQuality", probe<Layer::s_LayerImageQuality>()},
        {"Layer::s_LayerShadow",       probe<Layer::s_LayerShadow>()},
        {"Layer::s_LayerBorder",       probe<Layer::s_LayerBorder>()},
        {"Layer::s_LayerSelected",     probe<Layer::s_LayerSelected>()},
        {"Layer::s_LayerUMD",          probe<Layer::s_LayerUMD>()},
        {"Layer::s_LayerRemoved",      probe<Layer::s_LayerRemoved>()},
        {"Layer::s_CutFill",           probe<Layer::s_CutFill>()},
    };
    // clang-format on
}

// The order in memory differs from the order when written.
static_assert(offsetof(Layer::s_LayerTestColor, R) == 0);
static_assert(offsetof(Layer::s_LayerTestColor, G) < offsetof(Layer::s_LayerTestColor, B));
static_assert(offsetof(Layer::s_LayerTestColor, B) < offsetof(Layer::s_LayerTestColor, enable));

} // namespace

class tst_LayerRecords : public RecordTest {
    Q_OBJECT

public:
    tst_LayerRecords() : RecordTest({"Layer"}, records()) { }

private Q_SLOTS:
    void umdWithoutEnableIsEnabledWithItsDefaultColours();
    void sourceCropShowsTheWholePictureByDefault();
    void removedLayerHasItsIdentityUnderItsOnlyKey();
    void identityWithoutLayerIdHasLayerZero();
};

void tst_LayerRecords::umdWithoutEnableIsEnabledWithItsDefaultColours()
{
    const auto record = decoded<Layer::s_LayerUMD>(R"({"UMD":[{"index":4}]})");
    QCOMPARE(record.UMD.size(), std::size_t(1));
    QCOMPARE(encoded(record.UMD[0]),
             QByteArray(R"({"index":4,"enable":1,"color":{)"
                        R"("foregroundColor":{"R":50,"G":50,"B":50,"opacity":100},)"
                        R"("backgroundColor":{"R":50,"G":50,"B":50,"opacity":100}}})"));
}

void tst_LayerRecords::sourceCropShowsTheWholePictureByDefault()
{
    const auto source = decoded<Layer::s_LayerSourceBody>(
        R"({"crop":[{"id":1},{"widthRatio":5,"heightRatio":6}]})");
    QCOMPARE(source.crop.size(), std::size_t(2));
    QCOMPARE(source.crop[0].widthRatio, 100000);
    QCOMPARE(source.crop[0].heightRatio, 100000);
    QCOMPARE(source.crop[1].widthRatio, 5);
    QCOMPARE(source.crop[1].heightRatio, 6);
}

void tst_LayerRecords::removedLayerHasItsIdentityUnderItsOnlyKey()
{
    Layer::s_LayerRemoved removed;
    removed.layerIdenti.screenId = 1;
    removed.layerIdenti.screenType = 2;
    removed.layerIdenti.layerId = 3;
    removed.layerIdenti.layerType = 4;
    removed.layerIdenti.sceneType = 5;
    QCOMPARE(encoded(removed),
             QByteArray(R"({"layerIdenti":{"screenId":1,"screenType":2,"layerId":3,)"
                        R"("layerType":4,"sceneType":5}})"));
}

void tst_LayerRecords::identityWithoutLayerIdHasLayerZero()
{
    const auto record = decoded<Layer::s_LayerZorder>(
        R"({"layerIdenti":{"screenId":1,"screenType":2,"layerType":4,"sceneType":5},"zorder":6})");
    QCOMPARE(record.layerIdenti.layerId, quint8(0));
    QCOMPARE(record.layerIdenti.sceneType, 5);
    QCOMPARE(record.zorder, 6);
}

QTEST_GUILESS_MAIN(tst_LayerRecords)
#include "tst_layerrecords.moc"
