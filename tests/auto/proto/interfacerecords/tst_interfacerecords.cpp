#include <tavorocontrol/proto/deviceidentity.h>
#include <tavorocontrol/proto/identities.h>
#include <tavorocontrol/proto/interface.h>
#include <tavorocontrol/proto/layer.h>
#include <tavorocontrol/proto/rgb.h>
#include <tavorocontrol/proto/screen.h>
#include <tavorocontrol/proto/signalbodies.h>

#include <support/proto/recordtest.h>

#include <cstddef>
#include <type_traits>

using namespace Tavoro::ProtoModel;

namespace {

std::vector<RecordRow> records()
{
    // clang-format off
    return {
        {"s_DeviceIdentity",                  probe<s_DeviceIdentity>()},
        {"s_RGB",                             probe<s_RGB>()},
        {"s_ScreenId",                        probe<s_ScreenId>()},
        {"s_InterfaceID",                     probe<s_InterfaceID>()},
        {"s_FileIdentity",                    probe<s_FileIdentity>()},
        {"s_ColorDepthBody",                  probe<s_ColorDepthBody>()},
        {"s_ColorSpaceBody",                  probe<s_ColorSpaceBody>()},
        {"s_ColorRangeBody",                  probe<s_ColorRangeBody>()},
        {"s_ColorGamutBody",                  probe<s_ColorGamutBody>()},
        {"s_TimingAxisBody",                  probe<s_TimingAxisBody>()},
        {"s_TimingDetailBody",                probe<s_TimingDetailBody>()},
        {"s_SDRBody",                         probe<s_SDRBody>()},
        {"s_HDR10Body",                       probe<s_HDR10Body>()},
        {"s_HLGBody",                         probe<s_HLGBody>()},
        {"s_DynamicRangeDetail",              probe<s_DynamicRangeDetail>()},
        {"s_DynamicRangeBody",                probe<s_DynamicRangeBody>()},
        {"s_HDRBody",                         probe<s_HDRBody>()},
        {"s_TestPatternBody",                 probe<s_TestPatternBody>()},
        {"s_AllRGB",                          probe<s_AllRGB>()},
        {"s_ImageQualityBody",                probe<s_ImageQualityBody>()},
        {"s_CropBody",                        probe<s_CropBody>()},
        {"Interface::s_InterfaceGeneralBody", probe<Interface::s_InterfaceGeneralBody>()},
        {"Interface::s_HDCPBody",             probe<Interface::s_HDCPBody>()},
        {"Interface::s_CutoutBrightness",     probe<Interface::s_CutoutBrightness>()},
        {"Interface::s_CutoutHue",            probe<Interface::s_CutoutHue>()},
        {"Interface::s_CutoutBody",           probe<Interface::s_CutoutBody>()},
        {"Interface::s_InterfaceDetail",      probe<Interface::s_InterfaceDetail>()},
        {"Interface::s_General",              probe<Interface::s_General>()},
        {"Interface::s_TestPattern",          probe<Interface::s_TestPattern>()},
        {"Interface::s_PresetTimingDetail",   probe<Interface::s_PresetTimingDetail>()},
        {"Interface::s_ActualTimingDetail",   probe<Interface::s_ActualTimingDetail>()},
        {"Interface::s_ImageQuality",         probe<Interface::s_ImageQuality>()},
        {"Interface::s_CropDetail",           probe<Interface::s_CropDetail>()},
        {"Interface::s_CutoutGeneral",        probe<Interface::s_CutoutGeneral>()},
        {"Interface::s_HDCP",                 probe<Interface::s_HDCP>()},
        {"Interface::s_ColorDepth",           probe<Interface::s_ColorDepth>()},
        {"Interface::s_ColorSpace",           probe<Interface::s_ColorSpace>()},
        {"Interface::s_ColorRange",           probe<Interface::s_ColorRange>()},
        {"Interface::s_FormatMapping",        probe<Interface::s_FormatMapping>()},
        {"Interface::s_DHR",                  probe<Interface::s_DHR>()},
    };
    // clang-format on
}

// The order in memory, where it differs from the order when written.
static_assert(offsetof(Interface::s_InterfaceGeneralBody, type) == 0);
static_assert(offsetof(Interface::s_InterfaceGeneralBody, name)
              < offsetof(Interface::s_InterfaceGeneralBody, nameGB2312));
static_assert(offsetof(s_AllRGB, R) == 0);
static_assert(offsetof(s_AllRGB, G) < offsetof(s_AllRGB, B));
static_assert(offsetof(s_AllRGB, B) < offsetof(s_AllRGB, all));

// Records of the same name for interfaces and for screens, each with its own identity.
static_assert(std::is_base_of_v<s_InterfaceID, Interface::s_General>);
static_assert(std::is_base_of_v<s_InterfaceID, Interface::s_TestPattern>);
static_assert(std::is_base_of_v<s_InterfaceID, Interface::s_ImageQuality>);
static_assert(std::is_base_of_v<s_ScreenId, Screen::s_General>);
static_assert(std::is_base_of_v<s_ScreenId, Screen::s_TestPattern>);
static_assert(std::is_base_of_v<s_ScreenId, Screen::s_ImageQuality>);

} // namespace

class tst_InterfaceRecords : public RecordTest {
    Q_OBJECT

public:
    tst_InterfaceRecords() : RecordTest({"", "Interface"}, records()) { }

private Q_SLOTS:
    void freshDetailHasPresetsOf255AndActualValuesOf0();
    void cropIsAnObjectInAnInterfaceAndAnArrayInALayerSource();
    void cropRectangleKeepsItsDefaultWhateverTheBodyHolds();
    void cropRectangleIsNeverWritten();
    void boolsAreWrittenAsDigits_data();
    void boolsAreWrittenAsDigits();
    void copyProtectionKeyIsLowerCaseInTheWriteAndUpperCaseInTheDetail();
    void membersHaveTheValuesOfTheirKeys();
};

void tst_InterfaceRecords::freshDetailHasPresetsOf255AndActualValuesOf0()
{
    const Interface::s_InterfaceDetail fresh;
    QCOMPARE(fresh.colorDepths.presetColorDepth, 255);
    QCOMPARE(fresh.colorSpaces.presetColorSpace, 255);
    QCOMPARE(fresh.colorRanges.presetColorRange, 255);
    QCOMPARE(fresh.HDR.colorGamut.presetColorGamut, 255);
    QCOMPARE(fresh.colorDepths.actualColorDepth, 0);
    QCOMPARE(fresh.colorSpaces.actualColorSpace, 0);
    QCOMPARE(fresh.colorRanges.actualColorRange, 0);
    QCOMPARE(fresh.HDR.colorGamut.actualColorGamut, 0);
}

void tst_InterfaceRecords::cropIsAnObjectInAnInterfaceAndAnArrayInALayerSource()
{
    const QByteArray crop =
        R"({"id":1,"type":0,"enable":1,"widthRatio":50000,"heightRatio":100000,"xRatio":0,"yRatio":0})";
    const auto ofInterface = decoded<Interface::s_CropDetail>("{\"crop\":" + crop + '}');
    QCOMPARE(encoded(ofInterface.crop), crop);
    const auto ofSource = decoded<Layer::s_LayerSourceBody>("{\"crop\":[" + crop + "]}");
    QCOMPARE(ofSource.crop.size(), std::size_t(1));
    QCOMPARE(encoded(ofSource.crop[0]), crop);
}

void tst_InterfaceRecords::cropRectangleKeepsItsDefaultWhateverTheBodyHolds()
{
    const auto crop = decoded<s_CropBody>(
        R"({"id":7,"rect":{"x":1,"y":2,"width":3,"height":4},"x":5,"y":6,"width":7,"height":8})");
    QCOMPARE(crop.id, 7u);
    QCOMPARE(crop.rect.x, 0);
    QCOMPARE(crop.rect.y, 0);
    QCOMPARE(crop.rect.width, 1920);
    QCOMPARE(crop.rect.height, 1080);
}

void tst_InterfaceRecords::cropRectangleIsNeverWritten()
{
    s_CropBody crop;
    crop.rect = {10, 20, 30, 40};
    QCOMPARE(encoded(crop), encoded(s_CropBody()));
}

void tst_InterfaceRecords::boolsAreWrittenAsDigits_data()
{
    QTest::addColumn<QByteArray>("received");
    QTest::addColumn<bool>("flag");
    // clang-format off
    QTest::newRow("one")        << QByteArray("1")          << true;
    QTest::newRow("zero")       << QByteArray("0")          << false;
    QTest::newRow("other")      << QByteArray("2")          << true;
    QTest::newRow("true")       << QByteArray("true")       << true;
    QTest::newRow("upper case") << QByteArray("TRUE")       << true;
    QTest::newRow("quoted")     << QByteArray(R"("True")")  << true;
    QTest::newRow("false")      << QByteArray("false")      << false;
    QTest::newRow("quoted one") << QByteArray(R"("1")")     << false;
    // clang-format on
}

void tst_InterfaceRecords::boolsAreWrittenAsDigits()
{
    QFETCH(QByteArray, received);
    QFETCH(bool, flag);
    const QByteArray digit = flag ? "1" : "0";

    const auto hdr = decoded<s_HDR10Body>("{\"toneMapping\":" + received + '}');
    QCOMPARE(hdr.toneMapping, flag);
    QVERIFY(encoded(hdr).startsWith("{\"toneMapping\":" + digit + ','));

    const auto hdcp = decoded<Interface::s_HDCPBody>("{\"enable\":" + received + '}');
    QCOMPARE(hdcp.enable, flag);
    QVERIFY(encoded(hdcp).startsWith("{\"enable\":" + digit + ','));
}

void tst_InterfaceRecords::copyProtectionKeyIsLowerCaseInTheWriteAndUpperCaseInTheDetail()
{
    const QByteArray lowerCase = R"({"hdcp":{"enable":1}})";
    const QByteArray upperCase = R"({"HDCP":{"enable":1}})";
    QVERIFY(decoded<Interface::s_HDCP>(lowerCase).hdcp.enable);
    QVERIFY(!decoded<Interface::s_HDCP>(upperCase).hdcp.enable);
    QVERIFY(!decoded<Interface::s_InterfaceDetail>(lowerCase).HDCP.enable);
    QVERIFY(decoded<Interface::s_InterfaceDetail>(upperCase).HDCP.enable);
}

void tst_InterfaceRecords::membersHaveTheValuesOfTheirKeys()
{
    Interface::s_CutoutGeneral record;
    record.slotId = 1;
    record.connectorId = 2;
    record.splitId = 3;
    record.cutoutGeneral.enable = 1;
    record.cutoutGeneral.brightness.gain = 5;
    record.cutoutGeneral.hue.color.G = 6;
    QCOMPARE(encoded(record),
             QByteArray(
                 R"({"slotId":1,"connectorId":2,"splitId":3,"cutoutGeneral":{"enable":1,"type":0,)"
                 R"("brightness":{"threshold":0,"gain":5},)"
                 R"("hue":{"background":0,"foreground":0,"color":{"R":50,"G":6,"B":50}}}})"));
}

QTEST_GUILESS_MAIN(tst_InterfaceRecords)
#include "tst_interfacerecords.moc"
