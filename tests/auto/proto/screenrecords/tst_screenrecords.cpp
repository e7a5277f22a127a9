#include <tavorocontrol/proto/screen.h>

#include <support/proto/recordtest.h>

#include <cstddef>

using namespace Tavoro::ProtoModel;

namespace {

std::vector<RecordRow> records()
{
    // clang-format off
    return {
        {"Screen::s_Position",            probe<Screen::s_Position>()},
        {"Screen::s_Rect",                probe<Screen::s_Rect>()},
        {"Screen::s_ScreenGeneralBody",   probe<Screen::s_ScreenGeneralBody>()},
        {"Screen::s_Splice",              probe<Screen::s_Splice>()},
        {"Screen::s_Feather",             probe<Screen::s_Feather>()},
        {"Screen::s_MosaicOutput",        probe<Screen::s_MosaicOutput>()},
        {"Screen::s_RefOutputPara",       probe<Screen::s_RefOutputPara>()},
        {"Screen::s_Mosaic",              probe<Screen::s_Mosaic>()},
        {"Screen::s_PhysicalSizeBody",    probe<Screen::s_PhysicalSizeBody>()},
        {"Screen::s_FTBBody",             probe<Screen::s_FTBBody>()},
        {"Screen::s_SwitchEffectBody",    probe<Screen::s_SwitchEffectBody>()},
        {"Screen::s_TBarBody",            probe<Screen::s_TBarBody>()},
        {"Screen::s_ScreenZeLK",          probe<Screen::s_ScreenZeLK>()},
        {"Screen::s_ScreenFullDetail",    probe<Screen::s_ScreenFullDetail>()},
        {"Screen::s_Enable",              probe<Screen::s_Enable>()},
        {"Screen::s_General",             probe<Screen::s_General>()},
        {"Screen::s_BackgroundColor",     probe<Screen::s_BackgroundColor>()},
        {"Screen::s_Layout",              probe<Screen::s_Layout>()},
        {"Screen::s_PhysicalSize",        probe<Screen::s_PhysicalSize>()},
        {"Screen::s_PGMEdit",             probe<Screen::s_PGMEdit>()},
        {"Screen::s_Selected",            probe<Screen::s_Selected>()},
        {"Screen::s_ImageQuality",        probe<Screen::s_ImageQuality>()},
        {"Screen::s_Freeze",              probe<Screen::s_Freeze>()},
        {"Screen::s_FTB",                 probe<Screen::s_FTB>()},
        {"Screen::s_TestPattern",         probe<Screen::s_TestPattern>()},
        {"Screen::s_SwitchEffect",        probe<Screen::s_SwitchEffect>()},
        {"Screen::s_TBar",                probe<Screen::s_TBar>()},
        {"Screen::s_HDR",                 probe<Screen::s_HDR>()},
        {"Screen::s_ScreenZeLKFull",      probe<Screen::s_ScreenZeLKFull>()},
        {"Screen::s_ScreenGenlockStatus", probe<Screen::s_ScreenGenlockStatus>()},
        {"Screen::s_ScreenGenlockBody",   probe<Screen::s_ScreenGenlockBody>()},
    };
    // clang-format on
}

// The order in memory differs from the order when written.
static_assert(offsetof(Screen::s_PhysicalSizeBody, width) == 0);
static_assert(offsetof(Screen::s_PhysicalSizeBody, height)
              < offsetof(Screen::s_PhysicalSizeBody, dotPitch));
static_assert(offsetof(Screen::s_PhysicalSizeBody, dotPitch)
              < offsetof(Screen::s_PhysicalSizeBody, unit));

} // namespace

class tst_ScreenRecords : public RecordTest {
    Q_OBJECT

public:
    tst_ScreenRecords() : RecordTest({"Screen"}, records()) { }

private Q_SLOTS:
    void detailWithoutMosaicHasOneCellOf1920By1080AndNoOutputs();
    void outputShows1920By1080AtTheOriginByDefault();
    void featherWithoutGammaHas220();
    void screenIdAbove255IsReducedToItsLowByte();
    void negativeScreenIdIsAnError();
    void emptyArrayIsAnEmptyListBothWays();
    void enableWritesTheMosaicBeforeTheName();
    void membersHaveTheValuesOfTheirKeys();
};

void tst_ScreenRecords::detailWithoutMosaicHasOneCellOf1920By1080AndNoOutputs()
{
    const auto mosaic = decoded<Screen::s_ScreenFullDetail>(R"({"screenId":1})").mosaic;
    QCOMPARE(mosaic.splice.row, 1);
    QCOMPARE(mosaic.splice.column, 1);
    QCOMPARE(encoded(mosaic.window), QByteArray(R"({"x":0,"y":0,"width":1920,"height":1080})"));
    QVERIFY(mosaic.outputs.empty());
}

void tst_ScreenRecords::outputShows1920By1080AtTheOriginByDefault()
{
    const auto mosaic = decoded<Screen::s_Mosaic>(
        R"({"outputs":[{"pos":{"x":5}},{"crop":{"x":1,"y":2,"width":3,"height":4}}]})");
    QCOMPARE(mosaic.outputs.size(), std::size_t(2));
    QCOMPARE(encoded(mosaic.outputs[0].crop),
             QByteArray(R"({"x":0,"y":0,"width":1920,"height":1080})"));
    QCOMPARE(encoded(mosaic.outputs[1].crop), QByteArray(R"({"x":1,"y":2,"width":3,"height":4})"));
}

void tst_ScreenRecords::featherWithoutGammaHas220()
{
    const auto output =
        decoded<Screen::s_MosaicOutput>(R"({"feather":[{"enable":1},{"gamma":1}]})");
    QCOMPARE(output.feather.size(), std::size_t(2));
    QCOMPARE(output.feather[0].gamma, 220);
    QCOMPARE(output.feather[1].gamma, 1);
}

void tst_ScreenRecords::screenIdAbove255IsReducedToItsLowByte()
{
    QCOMPARE(decoded<s_ScreenId>(R"({"screenId":300})").screenId, quint8(44));
}

void tst_ScreenRecords::negativeScreenIdIsAnError()
{
    QCOMPARE(decodeError<std::vector<s_ScreenId>>(R"([{"screenId":-1}])"),
             QByteArray("error at line :0 col :15 msg:"
                        "assign a negative signed integral to unsigned integral number."));
}

void tst_ScreenRecords::emptyArrayIsAnEmptyListBothWays()
{
    QVERIFY(decoded<std::vector<Screen::s_ScreenFullDetail>>("[]").empty());
    QCOMPARE(encoded(std::vector<Screen::s_ScreenFullDetail>()), QByteArray("[]"));
}

void tst_ScreenRecords::enableWritesTheMosaicBeforeTheName()
{
    const QByteArray enable = encoded(Screen::s_Enable());
    QVERIFY(enable.startsWith(R"({"screenId":0,"screenType":0,"mosaic":{)"));
    QVERIFY(enable.indexOf("\"general\"") > enable.indexOf("\"mosaic\""));
    const QByteArray detail = encoded(Screen::s_ScreenFullDetail());
    QVERIFY(detail.indexOf("\"general\"") < detail.indexOf("\"mosaic\""));
}

void tst_ScreenRecords::membersHaveTheValuesOfTheirKeys()
{
    Screen::s_SwitchEffect effect;
    effect.screenId = 2;
    effect.screenType = 1;
    effect.switchEffect.time = 15;
    effect.switchEffect.direction = 3;
    effect.switchEffect.type = 7;
    QCOMPARE(encoded(std::vector{effect}),
             QByteArray(R"([{"screenId":2,"screenType":1,)"
                        R"("switchEffect":{"time":15,"direction":3,"type":7}}])"));
}

QTEST_GUILESS_MAIN(tst_ScreenRecords)
#include "tst_screenrecords.moc"
