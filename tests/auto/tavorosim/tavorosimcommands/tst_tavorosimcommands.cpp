// What each command does to the simulated device: every write is read back, every refusal leaves
// the device as it was.

#include <support/tavorosim/simreads.h>

#include <QTest>

using namespace SimReads;

class tst_TavoroSimCommands : public QObject, private Fixture {
    Q_OBJECT

private Q_SLOTS:
    void init() { start(); }
    void cleanup() { stop(); }

    void writesAreReadBack_data();
    void writesAreReadBack();
    void refusedWritesChangeNothing_data();
    void refusedWritesChangeNothing();
    void limitsAreInclusive_data();
    void limitsAreInclusive();
    void oneBadElementRefusesTheWholeList();
    void writesAreReportedToAllClients_data();
    void writesAreReportedToAllClients();

    void filtersRestrictReads_data();
    void filtersRestrictReads();
    void sizesAreOptions();
    void thousandsOfLayersAreAnswered();
    void theFactoryBlendsTheSecondScreen();
};

Q_DECLARE_METATYPE(Filters)

void tst_TavoroSimCommands::writesAreReadBack_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("readCode");
    QTest::addColumn<Filters>("filters");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("value");
    const auto row = [](int code, const QByteArray &body, int readCode, const Filters &filters,
                        const char *path, const QByteArray &value) {
        QTest::addRow("0x%04X %s = %s", code, path, value.constData())
            << code << body << readCode << filters << QString::fromLatin1(path) << value;
    };
    const auto onInput = [](const QByteArray &rest) {
        return R"([{"slotId":1,"connectorId":1,"splitId":0,)" + rest + "}]";
    };
    const auto onOutput = [](const QByteArray &rest) {
        return R"([{"slotId":3,"connectorId":1,"splitId":0,)" + rest + "}]";
    };
    const auto onScreen = [](const QByteArray &rest) {
        return R"([{"screenId":1,"screenType":1,)" + rest + "}]";
    };
    const auto onLayer = [](const QByteArray &rest) {
        return QByteArray(R"([{"layerIdenti":{"screenId":1,"screenType":1,"layerId":1,)")
            + R"("layerType":1,"sceneType":4},)" + rest + "}]";
    };
    // clang-format off
    row(0x1101, R"({"general":{"name":"East","status":5}})",        device, whole, "general",               R"({"name":"East","status":1})");
    row(0x1102, R"({"subcards":[{"slotId":1,"connectors":[{"id":2,"workMode":3,"capacityMode":2,"copyId":9}]}]})",
                                                                    device, whole, "subcards.0.connectors.1",
        R"({"capacityMode":2,"copyId":9,"id":2,"type":1,"workMode":3})");
    row(0x1104, R"({"genlock":{"type":2,"interfaceId":65792}})",    device, whole, "genlock",               R"({"interfaceId":65792,"type":2})");
    row(0x1106, R"({"networks":[{"index":0,"MAC":"no","dhcp":1,"ip":"10.0.0.2","subnetMask":"255.0.0.0","gateway":"10.0.0.1"}]})",
                                                                    device, whole, "networks.0",
        R"({"MAC":"02:00:5E:10:00:01","dhcp":1,"gateway":"10.0.0.1","index":0,"ip":"10.0.0.2","subnetMask":"255.0.0.0"})");
    row(0x1107, R"({"swap":0})",                                    device, whole, "swap",                  "0");
    row(0x1108, R"({"general":{"type":2},"testPattern":{"enable":1,"grid":8}})",
                                                                    0x1108, whole, "testPattern.grid",      "8");
    row(0x1108, R"({"general":{"type":2}})",                        device, whole, "interfaceMapping.general.type", "2");
    row(0x1109, R"({"enable":1,"type":2})",                         device, whole, "dynamicRangConversion", R"({"enable":1,"type":2})");
    row(0x110A, R"({"groupInfos":[{"groupName":"A","groupId":"1"}]})", 0x110A, whole, "groupInfos",         R"([{"groupId":"1","groupName":"A"}])");
    row(0x110A, R"({"groupInfos":[{"groupName":"A","groupId":"1"}]})", device, whole, "groupInfos.0.groupName", R"("A")");
    row(0x110C, R"({"interfaceRelation":{"enable":1,"relation":[{"type":1,"interfaceA":65792,"interfaceB":66048,"actualInterface":66048}]}})",
                                                                    device, whole, "interfaceRelation.relation.0.actualInterface", "66048");
    row(0x110D, R"({"zeLKEnable":1})",                              device, whole, "zeLKEnable",            "1");
    row(0x110E, R"({"presetApplyType":1})",                         device, whole, "presetApplyType",       "1");

    row(0x1201, onInput(R"("general":{"name":"Cam","nameGB2312":"Cam","type":2})"), interface, inputs, "0.general",
        R"({"name":"Cam","nameGB2312":"Cam","type":1})");
    row(0x1202, onOutput(R"("testPattern":{"enable":1,"type":3})"), interface, outputs, "0.testPattern.type", "3");
    row(0x1203, onOutput(R"("presetTiming":{"refresh":50})"),       interface, outputs, "0.presetTiming.refresh", "50");
    row(0x1203, onOutput(R"("presetTiming":{"refresh":50})"),       interface, outputs, "0.actualTiming.refresh", "50");
    row(0x1205, onInput(R"("imageQuality":{"hue":-30})"),           interface, inputs,  "0.imageQuality.hue", "-30");
    row(0x1206, onInput(R"("crop":{"enable":1,"xRatio":5000})"),    interface, inputs,  "0.crop.xRatio", "5000");
    row(0x1207, onInput(R"("cutoutGeneral":{"enable":1})"),         interface, inputs,  "0.cutoutGeneral.enable", "1");
    row(0x1208, onOutput(R"("hdcp":{"enable":1,"presetType":2})"),  interface, outputs, "0.HDCP", R"({"actualType":2,"enable":1,"presetType":2})");
    row(0x1209, onOutput(R"("colorDepths":{"actualColorDepth":7,"presetColorDepth":10})"), interface, outputs, "0.colorDepths",
        R"({"actualColorDepth":10,"presetColorDepth":10})");
    row(0x1209, onOutput(R"("colorDepths":{"presetColorDepth":255})"), interface, outputs, "0.colorDepths", R"({"actualColorDepth":8,"presetColorDepth":255})");
    row(0x120A, onOutput(R"("colorSpaces":{"presetColorSpace":2})"), interface, outputs, "0.colorSpaces", R"({"actualColorSpace":2,"presetColorSpace":2})");
    row(0x120B, onOutput(R"("colorRanges":{"presetColorRange":1})"), interface, outputs, "0.colorRanges", R"({"actualColorRange":1,"presetColorRange":1})");
    row(0x120C, onOutput(R"("formatMapping":3)"),                   interface, outputs, "0.formatMapping", "3");
    row(0x120D, onOutput(R"("HDR":{"dynamicRange":{"presetDynamicRange":{"type":1}}})"), interface, outputs, "0.HDR.dynamicRange.actualDynamicRange.type", "1");

    row(0x1301, onScreen(R"("general":{"name":"New"},"layout":{"x":7})"), screen, screen1, "0.general.name", R"("New")");
    row(0x1301, onScreen(R"("layout":{"x":7,"y":8})"),              screen, screen1, "0.layout", R"({"x":7,"y":8})");
    row(0x1302, onScreen(R"("general":{"name":"Hall","index":3})"), screen, screen1, "0.general", R"({"index":3,"name":"Hall","nameGB2312":"N/A"})");
    row(0x1303, onScreen(R"("backgroundColor":{"R":1,"G":2,"B":3})"), screen, screen1, "0.backgroundColor", R"({"B":3,"G":2,"R":1})");
    row(0x1304, onScreen(R"("layout":{"x":-7,"y":8})"),             screen, screen1, "0.layout", R"({"x":-7,"y":8})");
    row(0x1305, onScreen(R"("physicalSize":{"dotPitch":2,"unit":1,"width":3,"height":4})"), screen, screen1, "0.physicalSize",
        R"({"dotPitch":2,"height":4,"unit":1,"width":3})");
    row(0x1306, onScreen(R"("PGMEdit":1)"),                         screen, screen1, "0.PGMEdit", "1");
    row(0x1307, onScreen(R"("selected":1)"),                        screen, screen1, "0.selected", "1");
    row(0x1308, onScreen(R"("imageQuality":{"saturation":60})"),    screen, screen1, "0.imageQuality.saturation", "60");
    row(0x1309, onScreen(R"("freeze":1)"),                          screen, screen1, "0.freeze", "1");
    row(0x130A, onScreen(R"("FTB":{"enable":1,"time":20})"),        screen, screen1, "0.FTB", R"({"enable":1,"time":20})");
    row(0x130B, onScreen(R"("testPattern":{"enable":1,"type":5})"), screen, screen1, "0.testPattern.type", "5");
    row(0x130C, onScreen(R"("switchEffect":{"time":9,"direction":1,"type":2})"), screen, screen1, "0.switchEffect", R"({"direction":1,"time":9,"type":2})");
    row(0x130D, onScreen(R"("tbar":{"percent":40})"),               screen, screen1, "0.tbar.percent", "40");
    row(0x1310, onScreen(R"("HDR":{"colorGamut":{"presetColorGamut":2}})"), screen, screen1, "0.HDR.colorGamut.presetColorGamut", "2");
    row(0x1314, onScreen(R"("screenZeLK":{"enable":1})"),           screen, screen1, "0.screenZeLK", R"({"enable":1,"status":1})");

    row(0x1400, onLayer(R"("opacity":33,"zorder":9)"),              layer, programme1, "0.opacity", "33");
    row(0x1401, onLayer(R"("zorder":1,"general":{"name":"L"})"),    layer, programme1, "0.general.name", R"("L")");
    row(0x1402, onLayer(R"("zorder":17)"),                          layer, programme1, "0.zorder", "17");
    row(0x1403, onLayer(R"("general":{"name":"Guest","isFreeze":1})"), layer, programme1, "0.general.isFreeze", "1");
    row(0x1404, onLayer(R"("source":{"general":{"type":1,"id":66560},"crop":[{"id":1}]})"), layer, programme1, "0.source.general.id", "66560");
    row(0x1405, onLayer(R"("window":{"x":-5,"y":6,"width":7,"height":8})"), layer, programme1, "0.window", R"({"height":8,"width":7,"x":-5,"y":6})");
    row(0x1406, onLayer(R"("mask":{"enable":1,"left":2})"),         layer, programme1, "0.mask.left", "2");
    row(0x1407, onLayer(R"("testColor":{"enable":1,"R":9})"),       layer, programme1, "0.testColor.R", "9");
    row(0x1408, onLayer(R"("opacity":25)"),                         layer, programme1, "0.opacity", "25");
    row(0x1409, onLayer(R"("imageQuality":{"gamma":180})"),         layer, programme1, "0.imageQuality.gamma", "180");
    row(0x140A, onLayer(R"("shadow":{"general":{"enable":1,"feather":4}})"), layer, programme1, "0.shadow.general.feather", "4");
    row(0x140B, onLayer(R"("border":{"enable":1,"size":{"hWidth":6}})"), layer, programme1, "0.border.size", R"({"hWidth":6,"vWidth":2})");
    row(0x140C, onLayer(R"("selected":1)"),                         layer, programme1, "0.selected", "1");
    row(0x140D, onLayer(R"("UMD":[{"index":2}])"),                  layer, programme1, "0.UMD.0.index", "2");
    row(0x1410, onLayer(R"("cutFill":{"enable":true,"isBinding":1})"), layer, programme1, "0.cutFill", R"({"enable":1,"isBinding":1})");
    // clang-format on
}

void tst_TavoroSimCommands::writesAreReadBack()
{
    QFETCH(int, code);
    QFETCH(QByteArray, body);
    QFETCH(int, readCode);
    QFETCH(Filters, filters);
    QFETCH(QString, path);
    QFETCH(QByteArray, value);
    QCOMPARE(status(quint16(code), body), 0);
    QCOMPARE(valueAt(quint16(readCode), filters, path), value);
}

void tst_TavoroSimCommands::refusedWritesChangeNothing_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("expected");
    const auto row = [](int code, const char *what, const QByteArray &body, int expected) {
        QTest::addRow("0x%04X %s", code, what) << code << body << expected;
    };
    const QByteArray screen9 = R"([{"screenId":9,"screenType":1}])";
    const QByteArray layer99 =
        R"([{"layerIdenti":{"screenId":1,"screenType":1,"layerId":99,"layerType":1,"sceneType":4}}])";
    // clang-format off
    row(0x1107, "no JSON",            "x",                                              2);
    row(0x1107, "list for object",    R"([{"swap":0}])",                                2);
    row(0x1309, "object for list",    R"({"screenId":1,"screenType":1,"freeze":1})",    2);
    row(0x1101, "empty name",         R"({"general":{"name":""}})",                     4);
    row(0x1102, "no such slot",       R"({"subcards":[{"slotId":77}]})",                3);
    row(0x1102, "no such connector",  R"({"subcards":[{"slotId":1,"connectors":[{"id":9}]}]})", 3);
    row(0x1102, "mode out of range",  R"({"subcards":[{"slotId":1,"connectors":[{"id":1,"workMode":-1}]}]})", 4);
    row(0x1104, "type out of range",  R"({"genlock":{"type":3}})",                      4);
    row(0x1104, "no such input",      R"({"genlock":{"type":2,"interfaceId":1}})",      3);
    row(0x1106, "no such port",       R"({"networks":[{"index":5}]})",                  3);
    row(0x1106, "no address",         R"({"networks":[{"ip":"300.1.1.1"}]})",           4);
    row(0x1107, "flag out of range",  R"({"swap":2})",                                  4);
    row(0x1108, "out of range",       R"({"testPattern":{"enable":2}})",                4);
    row(0x1109, "out of range",       R"({"enable":2})",                                4);
    row(0x110A, "group without id",   R"({"groupInfos":[{"groupName":"A"}]})",          4);
    row(0x110C, "no such interface",  R"({"interfaceRelation":{"relation":[{"interfaceA":1}]}})", 3);
    row(0x110C, "neither of both",    R"({"interfaceRelation":{"relation":[{"interfaceA":65792,"interfaceB":66048,"actualInterface":66304}]}})", 4);
    row(0x110D, "out of range",       R"({"zeLKEnable":9})",                            4);
    row(0x110E, "out of range",       R"({"presetApplyType":9})",                       4);
    row(0x1202, "no such interface",  R"([{"slotId":9}])",                              3);
    row(0x1203, "out of range",       R"([{"slotId":3,"connectorId":1,"presetTiming":{"refresh":-1}}])", 4);
    row(0x1205, "out of range",       R"([{"slotId":1,"connectorId":1,"imageQuality":{"saturation":101}}])", 4);
    row(0x1206, "out of range",       R"([{"slotId":1,"connectorId":1,"crop":{"widthRatio":0}}])", 4);
    row(0x1207, "out of range",       R"([{"slotId":1,"connectorId":1,"cutoutGeneral":{"enable":2}}])", 4);
    row(0x1208, "out of range",       R"([{"slotId":1,"connectorId":1,"hdcp":{"presetType":-1}}])", 4);
    row(0x1209, "out of range",       R"([{"slotId":1,"connectorId":1,"colorDepths":{"presetColorDepth":-1}}])", 4);
    row(0x1204, "measured, not set",  R"([{"slotId":1,"connectorId":1}])",              1);
    row(0x1301, "no such kind",       R"([{"screenId":9,"screenType":7}])",             4);
    row(0x1301, "no such output",     R"([{"screenId":9,"screenType":1,"mosaic":{"outputs":[{"interfaceId":{"slotId":9}}]}}])", 3);
    row(0x1301, "an input",           R"([{"screenId":9,"screenType":1,"mosaic":{"outputs":[{"interfaceId":{"slotId":1,"connectorId":1}}]}}])", 3);
    row(0x1301, "output in use",      R"([{"screenId":9,"screenType":1,"mosaic":{"outputs":[{"interfaceId":{"slotId":3,"connectorId":1}}]}}])", 8);
    row(0x1303, "out of range",       R"([{"screenId":1,"screenType":1,"backgroundColor":{"R":256}}])", 4);
    row(0x1309, "out of range",       R"([{"screenId":1,"screenType":1,"freeze":2}])",  4);
    row(0x130A, "out of range",       R"([{"screenId":1,"screenType":1,"FTB":{"time":-1}}])", 4);
    row(0x130D, "out of range",       R"([{"screenId":1,"screenType":1,"tbar":{"percent":101}}])", 4);
    row(0x130E, "out of range",       R"([{"screenId":1,"screenType":1,"switchEffect":{"time":-1}}])", 4);
    for (const int code : {0x1302, 0x1303, 0x1304, 0x1305, 0x1306, 0x1307, 0x1308, 0x1309, 0x130A, 0x130B, 0x130C, 0x130D, 0x130E, 0x130F, 0x1310, 0x1314})
        row(code, "no such screen",   screen9,                                          3);
    for (const int code : {0x1402, 0x1403, 0x1404, 0x1405, 0x1406, 0x1407, 0x1408, 0x1409, 0x140A, 0x140B, 0x140C, 0x140D, 0x140E, 0x1410})
        row(code, "no such layer",    layer99,                                          3);
    row(0x1400, "no such screen",     R"([{"layerIdenti":{"screenId":9,"screenType":1,"sceneType":4}}])", 3);
    row(0x1401, "no such scene",      R"([{"layerIdenti":{"screenId":1,"screenType":1,"sceneType":3}}])", 4);
    row(0x1401, "no such source",     R"([{"layerIdenti":{"screenId":1,"screenType":1,"sceneType":4},"source":{"general":{"type":1,"id":1}}}])", 3);
    row(0x1408, "out of range",       R"([{"layerIdenti":{"screenId":1,"screenType":1,"layerId":1,"layerType":1,"sceneType":4},"opacity":101}])", 4);
    // clang-format on
}

void tst_TavoroSimCommands::refusedWritesChangeNothing()
{
    QFETCH(int, code);
    QFETCH(QByteArray, body);
    QFETCH(int, expected);
    const QByteArray before = everything();
    QCOMPARE(status(quint16(code), body), expected);
    QCOMPARE(everything(), before);
}

void tst_TavoroSimCommands::limitsAreInclusive_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("accepted");
    QTest::addColumn<QByteArray>("refused");
    const auto deviceName = [](int bytes) {
        return R"({"general":{"name":")" + QByteArray(bytes, 'n') + R"("}})";
    };
    const auto groups = [](int number) {
        const QByteArray list = QByteArray(R"({"groupId":"1"},)").repeated(number);
        return R"({"groupInfos":[)" + list.left(list.size() - 1) + "]}";
    };
    const auto fileName = [](int bytes) {
        return R"([{"fileId":1,"fileType":2,"general":{"name":")" + QByteArray(bytes, 'n')
            + R"("}}])";
    };
    const auto image = [](int zoom) {
        return R"([{"fileId":1,"fileType":0,"source":{"type":1,"id":65792,"zoomRatio":)"
            + QByteArray::number(zoom) + "}}]";
    };
    QTest::newRow("name of the device") << 0x1101 << deviceName(128) << deviceName(129);
    QTest::newRow("groups") << 0x110A << groups(64) << groups(65);
    QTest::newRow("name of a file") << 0xFA03 << fileName(255) << fileName(256);
    QTest::newRow("zoom of an image") << 0xFA06 << image(64) << image(65);
}

void tst_TavoroSimCommands::limitsAreInclusive()
{
    QFETCH(int, code);
    QFETCH(QByteArray, accepted);
    QFETCH(QByteArray, refused);
    QCOMPARE(status(quint16(code), refused), 4);
    QCOMPARE(status(quint16(code), accepted), 0);
}

void tst_TavoroSimCommands::oneBadElementRefusesTheWholeList()
{
    const QByteArray before = everything();
    QCOMPARE(
        status(
            0x1309,
            R"([{"screenId":1,"screenType":1,"freeze":1},{"screenId":9,"screenType":1,"freeze":1}])"),
        3);
    QCOMPARE(status(0x1301, R"([{"screenId":8,"screenType":1},{"screenId":9,"screenType":7}])"), 4);
    QCOMPARE(everything(), before);
}

void tst_TavoroSimCommands::writesAreReportedToAllClients_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("reported");
    QTest::addColumn<QByteArray>("report");
    // clang-format off
    QTest::newRow("name")  << 0x1201 << QByteArray(R"([{"slotId":1,"connectorId":1,"splitId":0,"general":{"name":"Cam"}}])")
                           << 0x1201 << QByteArray(R"([{"slotId":1,"connectorId":1,"splitId":0,"general":{"name":"Cam","nameGB2312":"N/A","type":1}}])");
    QTest::newRow("depth") << 0x1209 << QByteArray(R"([{"slotId":1,"connectorId":1,"splitId":0,"colorDepths":{"presetColorDepth":10}}])")
                           << 0x1209 << QByteArray(R"([{"slotId":1,"connectorId":1,"splitId":0,"colorDepths":{"actualColorDepth":10,"presetColorDepth":10}}])");
    QTest::newRow("zelk")  << 0x1314 << QByteArray(R"([{"screenId":1,"screenType":1,"screenZeLK":{"enable":1}}])")
                           << 0x1314 << QByteArray(R"([{"screenId":1,"screenType":1,"screenZeLK":{"enable":1,"status":1}}])");
    QTest::newRow("relation") << 0x110C << QByteArray(R"({"interfaceRelation":{"enable":1}})")
                           << 0x110C << QByteArray(R"({"interfaceRelation":{"enable":1,"relation":[]}})");
    // clang-format on
}

void tst_TavoroSimCommands::writesAreReportedToAllClients()
{
    QFETCH(int, code);
    QFETCH(QByteArray, body);
    QFETCH(int, reported);
    QFETCH(QByteArray, report);
    WireClient other;
    QVERIFY(other.connectTo(simulator().port()));
    QVERIFY(!other.identity().empty());
    QCOMPARE(client().control(1), 0);
    QCOMPARE(int(other.waitForReport().head.code()), 0x0101); // who holds control now
    QCOMPARE(status(quint16(code), body), 0);
    for (WireClient *receiver : {&client(), &other}) {
        const WireFrame frame = receiver->waitForReport();
        QCOMPARE(int(frame.head.code()), reported);
        QCOMPARE(QByteArray::fromStdString(frame.body), report);
    }
}

void tst_TavoroSimCommands::filtersRestrictReads_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<Filters>("filters");
    QTest::addColumn<int>("found");
    const auto row = [](const char *what, int code, const Filters &filters, int count) {
        QTest::addRow("0x%04X %s", code, what) << code << filters << count;
    };
    // clang-format off
    row("all by 0",          0x1200, {0, any, 0, 0},       16);
    row("all by 255",        0x1200, {0, any, any, 0},     16);
    row("inputs",            0x1200, {0, any, 1, 0},       8);
    row("outputs",           0x1200, {0, any, 2, 0},       8);
    row("slot 4",            0x1200, {0, 4, 0, 0},         4);
    row("inputs in slot 4",  0x1200, {0, 4, 1, 0},         0);
    row("all by 0",          0x1300, {0, any, 0, any},     4);
    row("all by 255",        0x1300, {0, any, any, any},   4);
    row("multiviewers",      0x1300, {0, any, 3, any},     1);
    row("screen 4",          0x1300, {0, any, 0, 4},       1);
    row("screen 0",          0x1300, {0, any, 0, 0},       0);
    row("all",               0x1400, {any, any, any, any}, 32);
    row("all by type 0",     0x1400, {any, any, 0, any},   32);
    row("screen 2",          0x1400, {any, any, 2, 2},     8);
    row("programme",         0x1400, {any, 4, any, any},   16);
    row("preview of 2",      0x1400, {any, 2, 2, 2},       4);
    row("backgrounds",       0x1400, {2, any, any, any},   8);
    row("no such kind",      0x1400, {0, any, any, any},   0);
    // clang-format on
}

void tst_TavoroSimCommands::filtersRestrictReads()
{
    QFETCH(int, code);
    QFETCH(Filters, filters);
    QFETCH(int, found);
    QCOMPARE(count(quint16(code), filters), found);
}

void tst_TavoroSimCommands::sizesAreOptions()
{
    Tavoro::Sim::SimOptions options;
    options.inputs = 5;
    options.outputs = 3;
    options.screens = 6;
    options.layersPerScreen = 2;
    start(options);
    QCOMPARE(count(interface, {0, any, 1, 0}), 5);
    QCOMPARE(count(interface, {0, any, 2, 0}), 3);
    QCOMPARE(count(screen, {0, any, 0, any}), 6);
    QCOMPARE(count(layer, {any, any, any, any}), 24);
    QCOMPARE(valueAt(device, whole, QStringLiteral("subcards.1.connectors")),
             QByteArray(R"([{"capacityMode":0,"copyId":0,"id":1,"type":1,"workMode":0}])"));
}

void tst_TavoroSimCommands::thousandsOfLayersAreAnswered()
{
    Tavoro::Sim::SimOptions options;
    options.screens = 32;
    options.layersPerScreen = 128;
    start(options);
    QCOMPARE(count(layer, {any, any, any, any}), 8192);
}

void tst_TavoroSimCommands::theFactoryBlendsTheSecondScreen()
{
    const Filters screen2{0, any, 2, 2};
    QCOMPARE(valueAt(screen, screen2, QStringLiteral("0.mosaic.splice")),
             QByteArray(R"({"column":2,"row":2})"));
    QCOMPARE(valueAt(screen, screen2, QStringLiteral("0.mosaic.window")),
             QByteArray(R"({"height":2032,"width":3712,"x":0,"y":0})"));
    QCOMPARE(valueAt(screen, screen2, QStringLiteral("0.mosaic.outputs.3.pos")),
             QByteArray(R"({"x":1792,"y":952})"));
    QCOMPARE(valueAt(screen, screen2, QStringLiteral("0.mosaic.outputs.0.feather.2")),
             QByteArray(R"({"enable":1,"gamma":220,"type":2,"width":128})"));
}

QTEST_GUILESS_MAIN(tst_TavoroSimCommands)
#include "tst_tavorosimcommands.moc"
