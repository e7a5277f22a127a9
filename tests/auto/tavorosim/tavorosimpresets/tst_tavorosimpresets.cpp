// The files that the simulated device creates: pictures, logs, EDID, presets and projects. Also
// what applying a preset or a project restores.

#include <support/common/contains.h>
#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/simbench.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <numeric>

using namespace CommandCodes;

class tst_TavoroSimPresets : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bench = std::make_unique<SimBench>(options()); }
    void cleanup() { m_bench.reset(); }

    void aPresetRestoresScreensAndLayers();
    void aPresetDoesNotChangeOtherScreens();
    void aPresetRestoresADeletedScreen();
    void aPresetRestoresSwappedOutputs();
    void aPresetWhoseOutputsAreTakenIsRefused();
    void aPresetIntoPreviewLeavesTheProgramme();
    void aProjectMakesTheDeviceHaveItsScreensOnly();
    void aProjectRestoresItsFiles_data();
    void aProjectRestoresItsFiles();
    void refusalsChangeNothing_data();
    void refusalsChangeNothing();
    void anImageIsCapturedFromAnInput();
    void logHoldsTheNamedSlots();
    void anEdidAsksForThePresetTiming();

private:
    static Tavoro::Sim::SimOptions options()
    {
        Tavoro::Sim::SimOptions wanted;
        wanted.packetSize = 16 << 20;
        wanted.clockSpeed = 0;
        return wanted;
    }
    std::string screens() { return m_bench->client->read(0x1300, {0, 0xFF, 0, 0xFF}).body; }
    std::string layers(quint8 scene = 0xFF)
    {
        return m_bench->client->read(0x1400, {0xFF, scene, 0, 0xFF}).body;
    }
    std::string everything() { return screens() + layers() + m_bench->list(); }

    std::unique_ptr<SimBench> m_bench;
};

namespace {

const char *const presetOfScreen1 =
    R"([{"fileId":3,"fileType":6,"general":{"name":"Show"},"screens":[{"screenId":1,"screenType":1}]}])";
const char *const presetOfBoth =
    R"([{"fileId":3,"fileType":6,"screens":[{"screenId":1,"screenType":1},{"screenId":2,"screenType":2}]}])";
const char *const applyPreset3 = R"([{"fileId":3,"fileType":6,"applyType":0}])";
const char *const project1 =
    R"([{"fileId":1,"fileType":9,"general":{"name":"Tour"},"contain":{"other":0,"BKG":1,"logo":0,"preset":0}}])";
const char *const applyProject1 = R"([{"fileId":1,"fileType":9}])";
const char *const freeze1 = R"([{"screenId":1,"screenType":1,"freeze":1}])";
const char *const freeze2 = R"([{"screenId":2,"screenType":2,"freeze":1}])";
const char *const delete1 = R"([{"screenId":1,"screenType":1}])";
const char *const take1 = R"([{"screenId":1,"screenType":1}])";
/// A new screen on the first output, which screen 1 has from the start.
const char *const thief =
    R"([{"screenId":9,"screenType":1,"mosaic":{"outputs":[{"interfaceId":{"slotId":3,"connectorId":1,"splitId":0}}]}}])";

} // namespace

void tst_TavoroSimPresets::aPresetRestoresScreensAndLayers()
{
    const std::string before = screens() + layers();
    QCOMPARE(m_bench->write(createPreset, presetOfScreen1), 0);
    QVERIFY(contains(m_bench->list(6, 3), "\"general\":{\"name\":\"Show\"}"));
    QCOMPARE(m_bench->write(screenFreeze, freeze1), 0);
    QCOMPARE(m_bench->write(screenTake, take1), 0);
    QVERIFY(screens() + layers() != before);
    QCOMPARE(m_bench->write(presetApply, applyPreset3), 0);
    QCOMPARE(screens() + layers(), before);
}

void tst_TavoroSimPresets::aPresetDoesNotChangeOtherScreens()
{
    QCOMPARE(m_bench->write(createPreset, presetOfScreen1), 0);
    QCOMPARE(m_bench->write(screenFreeze, freeze2), 0);
    const std::string frozen = screens();
    QCOMPARE(m_bench->write(presetApply, applyPreset3), 0);
    QCOMPARE(screens(), frozen);
}

void tst_TavoroSimPresets::aPresetRestoresADeletedScreen()
{
    const std::string before = screens() + layers();
    QCOMPARE(m_bench->write(createPreset, presetOfScreen1), 0);
    QCOMPARE(m_bench->write(screenDeleted, delete1), 0);
    QCOMPARE(m_bench->write(presetApply, applyPreset3), 0);
    QCOMPARE(screens() + layers(), before);
}

void tst_TavoroSimPresets::aPresetRestoresSwappedOutputs()
{
    const std::string before = screens() + layers();
    const QJsonArray list = QJsonDocument::fromJson(QByteArray::fromStdString(screens())).array();
    const auto named = [&](int screen, int outputsOf) {
        QJsonObject made{{QStringLiteral("mosaic"), list[outputsOf][QStringLiteral("mosaic")]}};
        for (const auto &key : {QStringLiteral("screenId"), QStringLiteral("screenType")})
            made[key] = list[screen][key];
        return made;
    };
    const auto text = [](const QJsonArray &array) {
        return QJsonDocument(array).toJson(QJsonDocument::Compact).toStdString();
    };
    const QJsonArray exchanged{named(0, 1), named(1, 0)};
    QCOMPARE(m_bench->write(createPreset, presetOfBoth), 0);
    QCOMPARE(m_bench->write(screenDeleted, text(exchanged)), 0);
    QCOMPARE(m_bench->write(screenEnable, text(exchanged)), 0);
    QVERIFY(screens() + layers() != before);
    QCOMPARE(m_bench->write(presetApply, applyPreset3), 0);
    QCOMPARE(screens() + layers(), before);
}

void tst_TavoroSimPresets::aPresetWhoseOutputsAreTakenIsRefused()
{
    QCOMPARE(m_bench->write(createPreset, presetOfScreen1), 0);
    QCOMPARE(m_bench->write(screenDeleted, delete1), 0);
    QCOMPARE(m_bench->write(screenEnable, thief), 0);
    const std::string before = everything();
    QCOMPARE(m_bench->write(presetApply, applyPreset3), 8);
    QCOMPARE(everything(), before);
}

void tst_TavoroSimPresets::aPresetIntoPreviewLeavesTheProgramme()
{
    QCOMPARE(m_bench->write(createPreset, presetOfScreen1), 0);
    const std::string programme = layers(4);
    QCOMPARE(m_bench->write(presetApply, R"([{"fileId":3,"fileType":6,"applyType":1}])"), 0);
    QCOMPARE(layers(4), programme);
    const auto sourceOf = [&](quint8 scene) {
        const auto body = m_bench->client->read(0x1400, {1, scene, 1, 1}).body;
        return QJsonDocument::fromJson(QByteArray::fromStdString(body))
            .array()
            .at(0)
            .toObject()
            .value(QStringLiteral("source"));
    };
    QVERIFY(!sourceOf(2).toObject().isEmpty());
    QCOMPARE(sourceOf(2), sourceOf(4));
}

void tst_TavoroSimPresets::aProjectMakesTheDeviceHaveItsScreensOnly()
{
    const std::string before = screens() + layers();
    QCOMPARE(m_bench->write(createProject, project1), 0);
    QCOMPARE(m_bench->write(screenDeleted, delete1), 0);
    QCOMPARE(m_bench->write(screenEnable, thief), 0);
    QCOMPARE(m_bench->write(screenFreeze, freeze2), 0);
    QCOMPARE(m_bench->write(projectApply, applyProject1), 0);
    QCOMPARE(screens() + layers(), before);
}

void tst_TavoroSimPresets::aProjectRestoresItsFiles_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("isHeld");
    QTest::newRow("background") << 0 << true;
    QTest::newRow("logo, not asked for") << 2 << false;
    QTest::newRow("preset, not asked for") << 8 << false;
    QTest::newRow("other, not asked for") << 12 << false;
}

void tst_TavoroSimPresets::aProjectRestoresItsFiles()
{
    QFETCH(int, type);
    QFETCH(bool, isHeld);
    const auto key = static_cast<quint8>(type);
    m_bench->import(type, 1, "first");
    m_bench->import(type, 2, "second\n");
    QCOMPARE(m_bench->write(createProject, project1), 0);
    m_bench->import(type, 1, "changed");
    const std::string gone =
        QStringLiteral(R"([{"fileId":2,"fileType":%1}])").arg(type).toStdString();
    QCOMPARE(m_bench->write(0xFA01, gone), 0);
    QCOMPARE(m_bench->write(projectApply, applyProject1), 0);
    QCOMPARE(m_bench->receive(key, 1).body, std::string(isHeld ? "first" : "changed"));
    QCOMPARE(m_bench->receive(key, 2).body, std::string(isHeld ? "second\n" : ""));
}

void tst_TavoroSimPresets::refusalsChangeNothing_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("body");
    QTest::addColumn<int>("status");
    // clang-format off
    QTest::newRow("preset of no screen")       << 0xFA07 << R"([{"fileId":1,"fileType":6,"screens":[{"screenId":77,"screenType":1}]}])" << 3;
    QTest::newRow("preset of another type")    << 0xFA07 << R"([{"fileId":1,"fileType":7}])"                                            << 4;
    QTest::newRow("preset number above 254")   << 0xFA07 << R"([{"fileId":255,"fileType":6}])"                                          << 4;
    QTest::newRow("one bad preset of two")     << 0xFA07 << R"([{"fileId":1,"fileType":6},{"fileId":-1,"fileType":6}])"                 << 4;
    QTest::newRow("no JSON")                   << 0xFA07 << "x"                                                                         << 2;
    QTest::newRow("project without a name")    << 0xFA08 << R"([{"fileId":1,"fileType":9,"general":{"name":""}}])"                      << 4;
    QTest::newRow("image of no input")         << 0xFA06 << R"([{"fileId":1,"fileType":0,"source":{"id":1,"type":1}}])"                 << 3;
    QTest::newRow("image of a file")           << 0xFA06 << R"([{"fileId":1,"fileType":0,"source":{"id":1,"type":2}}])"                 << 3;
    QTest::newRow("image, zoom 0")             << 0xFA06 << R"([{"fileId":1,"fileType":0,"source":{"id":65792,"type":1,"zoomRatio":0}}])" << 4;
    QTest::newRow("log of no slot")            << 0xFA09 << R"([{"fileId":1,"fileType":10,"parts":[{"type":1,"slotId":99}]}])"          << 3;
    QTest::newRow("EDID of no interface")      << 0xFA0B << R"([{"fileId":1,"fileType":12,"interfaceId":{"slotId":99}}])"               << 3;
    QTest::newRow("apply no preset")           << 0x1501 << R"([{"fileId":9,"fileType":6}])"                                            << 3;
    QTest::newRow("apply in no way")           << 0x1501 << R"([{"fileId":5,"fileType":6,"applyType":2}])"                              << 4;
    QTest::newRow("apply a non-preset")        << 0x1501 << R"([{"fileId":5,"fileType":6}])"                                            << 9;
    QTest::newRow("apply no project")          << 0x1601 << R"([{"fileId":9,"fileType":9}])"                                            << 3;
    QTest::newRow("apply a non-project")       << 0x1601 << R"([{"fileId":5,"fileType":6}])"                                            << 9;
    QTest::newRow("apply JSON without end")    << 0x1601 << R"([{"fileId":5,"fileType":6})"                                             << 2;
    // clang-format on
}

void tst_TavoroSimPresets::refusalsChangeNothing()
{
    QFETCH(int, code);
    QFETCH(QString, body);
    m_bench->import(6, 5, "not JSON");
    const std::string before = everything();
    const int status = m_bench->write(quint16(code), body.toStdString());
    QTEST(status, "status");
    QCOMPARE(everything(), before);
}

void tst_TavoroSimPresets::anImageIsCapturedFromAnInput()
{
    QCOMPARE(m_bench->write(createImage,
                            R"([{"fileId":1,"fileType":0,"general":{"name":"Shot"},)"
                            R"("source":{"id":65792,"type":1,"zoomRatio":16}}])"),
             0);
    const std::string list = m_bench->list(0, 1);
    QVERIFY2(contains(list, R"("source":{"id":65792,"type":1,"zoomRatio":16})")
                 && contains(list, R"("width":120,"height":68)"),
             list.c_str());
    const std::string image = m_bench->receive(0, 1).body;
    const std::string head = "P6\n120 68\n255\n";
    QCOMPARE(image.substr(0, head.size()), head);
    QCOMPARE(image.size(), head.size() + 120 * 68 * 3);
    QCOMPARE(int(image[head.size()]), 0); // Red grows from the left to the right.
    QCOMPARE(int(static_cast<unsigned char>(image[head.size() + 119 * 3])), 1904 * 255 / 1919);
}

void tst_TavoroSimPresets::logHoldsTheNamedSlots()
{
    QCOMPARE(m_bench->write(deviceTime,
                            R"({"year":2026,"month":3,"day":4,"hour":5,"minute":6,)"
                            R"("second":7,"millisecond":8})"),
             0);
    QCOMPARE(m_bench->write(createLog,
                            R"([{"fileId":1,"fileType":10,"general":{"name":"Log"},)"
                            R"("parts":[{"type":0,"slotId":0},{"type":1,"slotId":3}]}])"),
             0);
    QCOMPARE(m_bench->receive(10, 1).body,
             std::string("2026-03-04T05:06:07.008Z\ndevice: Simulated device\n"
                         "slot 3: card 0x7720, online\n"));
}

void tst_TavoroSimPresets::anEdidAsksForThePresetTiming()
{
    QCOMPARE(m_bench->write(createEdid,
                            R"([{"fileId":1,"fileType":12,"general":{"name":"EDID"},)"
                            R"("interfaceId":{"slotId":1,"connectorId":2,"splitId":0}}])"),
             0);
    const std::string edid = m_bench->receive(12, 1).body;
    QCOMPARE(edid.size(), std::size_t(128));
    QCOMPARE(std::accumulate(edid.begin(), edid.end(), 0) & 0xFF, 0);
    const QByteArray bytes = QByteArray::fromStdString(edid);
    QCOMPARE(bytes.left(8).toHex(), QByteArray("00ffffffffffff00"));
    // 148.5 MHz, 1920 + 280 by 1080 + 45, porches 88 and 4, syncs 44 and 5, both positive.
    QCOMPARE(bytes.mid(54, 18).toHex(), QByteArray("023a801871382d40582c450000000000001e"));
    QCOMPARE(bytes.mid(72, 18), QByteArray("\0\0\0\xFC\0Input 2\n     ", 18));
}

QTEST_GUILESS_MAIN(tst_TavoroSimPresets)
#include "tst_tavorosimpresets.moc"
