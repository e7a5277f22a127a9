#include "bodies.h"

#include <random>
#include <string>

using namespace Tavoro::ProtoModel;

namespace Bodies {

namespace {

/// The same numbers with every standard library, unlike the distributions of \c std.
class Random {
public:
    explicit Random(std::mt19937::result_type seed) : m_engine(seed) { }

    qint32 below(qint32 bound)
    {
        return static_cast<qint32>(m_engine() % static_cast<quint32>(bound));
    }
    qint32 between(qint32 least, qint32 most) { return least + below(most - least + 1); }
    quint32 bits() { return static_cast<quint32>(m_engine()); }

    /// A name of ASCII characters.
    std::string name(qint32 leastLength, qint32 mostLength)
    {
        constexpr char characters[] =
            "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789 _-.";
        std::string name(static_cast<std::size_t>(between(leastLength, mostLength)), ' ');
        for (char &c : name)
            c = characters[static_cast<std::size_t>(below(sizeof characters - 1))];
        return name;
    }

private:
    std::mt19937 m_engine;
};

Screen::s_Rect rect(Random &random)
{
    return {random.below(16000), random.below(8000), random.between(320, 4096),
            random.between(240, 2160)};
}

Screen::s_MosaicOutput output(Random &random)
{
    Screen::s_MosaicOutput output;
    output.interfaceId = {random.between(1, 40), random.between(1, 8), random.below(4)};
    output.pos = {random.below(16000), random.below(8000)};
    output.crop = rect(random);
    for (qint32 edge = 0; edge < 4; ++edge)
        output.feather.push_back(
            {random.below(2), edge, random.between(100, 300), random.below(512)});
    return output;
}

s_TimingAxisBody timingAxis(Random &random)
{
    const qint32 size = random.between(480, 4096);
    return {size, random.below(200), random.below(100), random.below(2),
            size + random.between(20, 400)};
}

Screen::s_Mosaic mosaic(Random &random)
{
    Screen::s_Mosaic mosaic;
    mosaic.type = random.below(4);
    mosaic.splice = {random.between(1, 4), random.between(1, 4)};
    mosaic.window = rect(random);
    mosaic.refOutputPara.colorDepths = {random.below(4), 255};
    mosaic.refOutputPara.colorSpaces = {random.below(4), 255};
    mosaic.refOutputPara.colorRanges = {random.below(2), 255};
    mosaic.refOutputPara.formatMapping = random.below(8);
    mosaic.refOutputPara.timing = {0, random.between(24, 144), 0, timingAxis(random),
                                   timingAxis(random)};
    for (qint32 count = random.between(1, 8); count > 0; --count)
        mosaic.outputs.push_back(output(random));
    return mosaic;
}

s_AllRGB allRGB(Random &random)
{
    return {random.below(101), random.below(101), random.below(101), random.below(101)};
}

s_DynamicRangeDetail dynamicRange(Random &random)
{
    s_DynamicRangeDetail range;
    range.type = random.below(4);
    range.SDR.Gamma = random.between(100, 300);
    range.HDR10 = {random.below(2) == 0, random.between(100, 10000), random.below(200),
                   random.between(100, 10000)};
    range.HLG = {random.below(200), random.below(10)};
    return range;
}

// Every eighth name has a character that needs an escape.
std::string screenName(Random &random)
{
    const std::string name = random.name(6, 24);
    return random.below(8) == 0 ? "B\xC3\xBChne " + name : name;
}

Screen::s_ScreenFullDetail screen(Random &random, quint8 id)
{
    Screen::s_ScreenFullDetail screen;
    screen.screenId = id;
    screen.screenType = random.between(1, 4);
    screen.general = {screenName(random), screenName(random), id};
    screen.mosaic = mosaic(random);
    screen.backgroundColor = {random.below(256), random.below(256), random.below(256)};
    screen.layout = {random.below(60000), random.below(30000)};
    screen.physicalSize = {random.between(500, 30000), random.between(500, 30000),
                           random.below(5000), random.below(3)};
    screen.PGMEdit = random.below(2);
    screen.selected = random.below(2);
    screen.imageQuality = {allRGB(random), allRGB(random), random.between(-180, 180),
                           random.below(101), random.between(10, 1000)};
    screen.freeze = random.below(2);
    screen.FTB = {random.below(2), random.below(100)};
    screen.testPattern = {random.below(2),  random.below(20), random.below(100), random.below(16),
                          random.below(10), random.below(10), random.below(4)};
    screen.switchEffect = {random.below(100), random.below(4), random.below(20)};
    screen.tbar.percent = random.below(101);
    screen.HDR.colorGamut = {random.below(5), 255};
    screen.HDR.dynamicRange = {dynamicRange(random), dynamicRange(random)};
    screen.screenZeLK = {random.below(2), random.below(3)};
    return screen;
}

File::s_FileDetail file(Random &random)
{
    File::s_FileDetail file;
    file.fileId = random.below(255);
    file.fileType = random.below(8);
    file.general.name = random.name(16, 40);
    const qint32 slot = random.between(1, 40);
    const qint32 connector = random.between(1, 8);
    file.source = {static_cast<quint32>(slot << 16 | connector << 8), random.below(4),
                   random.between(1, 8)};
    file.size = {random.between(10000, 30000000), static_cast<qint32>(random.bits()),
                 random.between(16, 8192), random.between(16, 8192)};
    return file;
}

Screen::s_SwitchEffect switchEffect(Random &random, quint8 id)
{
    Screen::s_SwitchEffect effect;
    effect.screenId = id;
    effect.screenType = random.between(1, 4);
    effect.switchEffect = {random.below(1000), random.below(8), random.below(64)};
    return effect;
}

} // namespace

std::vector<Screens> screens()
{
    Random random(1);
    std::vector<Screens> bodies(16);
    for (Screens &body : bodies) {
        for (quint8 id = 0; id < 32; ++id)
            body.push_back(screen(random, id));
    }
    return bodies;
}

std::vector<Files> files()
{
    Random random(2);
    std::vector<Files> bodies(8);
    for (Files &body : bodies) {
        for (int i = 0; i < 2000; ++i)
            body.push_back(file(random));
    }
    return bodies;
}

std::vector<SwitchEffects> switchEffects()
{
    Random random(3);
    std::vector<SwitchEffects> bodies(512);
    for (SwitchEffects &body : bodies) {
        for (quint8 id = 0; id < 8; ++id)
            body.push_back(switchEffect(random, id));
    }
    return bodies;
}

} // namespace Bodies
