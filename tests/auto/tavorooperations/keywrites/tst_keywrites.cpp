// Which operation writes a key of an object, as editors of records need it.

#include <tavorooperations/jsontext.h>
#include <tavorooperations/keywrite.h>

#include <QJsonObject>
#include <QTest>

using namespace Tavoro::Operations;

class tst_KeyWrites : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void keyIsWrittenByItsOperation_data();
    void keyIsWrittenByItsOperation();
    void keyWithoutAWriteIsNotFound_data();
    void keyWithoutAWriteIsNotFound();
};

Q_DECLARE_METATYPE(Tavoro::Operations::ScopeKind)

void tst_KeyWrites::keyIsWrittenByItsOperation_data()
{
    QTest::addColumn<ScopeKind>("kind");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("record");
    QTest::addColumn<QString>("argument");

    constexpr auto Device = ScopeKind::Device;
    constexpr auto Interfaces = ScopeKind::Interfaces;
    constexpr auto Files = ScopeKind::Files;
    constexpr auto Screens = ScopeKind::Screens;
    constexpr auto Layers = ScopeKind::Layers;
    struct Row {
        ScopeKind kind;
        const char *key;
        const char *operation;
        const char *record; ///< As JSON.
        const char *argument; ///< "=": a list of the record.
    };
    // clang-format off
    const Row rows[] = {
        {Device,     "general",               "Device.writeDeviceGeneral",         R"({"general":{"name":"a"}})",                R"({"general":{"name":"a"}})"},
        {Device,     "swap",                  "Device.writeSwap",                      R"({"swap":1})",                              R"({"swap":1})"},
        {Device,     "genlock",               "Device.writeGenlockConfig",             R"({"genlock":{}})",                          R"({"genlock":{}})"},
        {Device,     "subcards",              "Device.writeSubcardMode",               R"({"subcards":[]})",                         R"({"subcards":[]})"},
        {Device,     "networks",              "Device.writeNetConfig",                 R"({"networks":[]})",                         R"({"networks":[]})"},
        {Device,     "groupInfos",            "Device.writeDeviceGroupInfo",           R"({"groupInfos":[]})",                       R"({"groupInfos":[]})"},
        {Device,     "interfaceRelation",     "Device.writeInterfaceRelationInfo", R"({"interfaceRelation":{}})",                R"({"interfaceRelation":{}})"},
        {Device,     "interfaceMapping",      "Device.writeOutputMapping",             R"({"interfaceMapping":{"general":{}}})",     R"({"general":{}})"},
        {Device,     "dynamicRangConversion", "Device.writeDynamicRangConversion",     R"({"dynamicRangConversion":{"type":2}})",    R"({"type":2})"},
        {Device,     "zeLKEnable",            "Device.writeZelk",                      R"({"zeLKEnable":1})",                        R"({"zeLKEnable":1})"},
        {Interfaces, "general",               "Interface.writeInterfaceGeneral",       R"({"general":{},"slotId":1})",               "="},
        {Interfaces, "testPattern",           "Interface.writeTestPattern",            R"({"slotId":1,"testPattern":{}})",           "="},
        {Interfaces, "presetTiming",          "Interface.writePresetTiming",           R"({"presetTiming":{},"slotId":1})",          "="},
        {Interfaces, "imageQuality",          "Interface.writeImageQuality",           R"({"imageQuality":{},"slotId":1})",          "="},
        {Interfaces, "crop",                  "Interface.writeCrop",                   R"({"crop":{},"slotId":1})",                  "="},
        {Interfaces, "cutoutGeneral",         "Interface.writeCutoutGeneral",          R"({"cutoutGeneral":{},"slotId":1})",         "="},
        {Interfaces, "HDCP",                  "Interface.writeHDCP",     R"({"HDCP":{"enable":1},"slotId":1})",        R"([{"hdcp":{"enable":1},"slotId":1}])"},
        {Interfaces, "colorDepths",           "Interface.writeInterfaceColorDepth",    R"({"colorDepths":{},"slotId":1})",           "="},
        {Interfaces, "colorSpaces",           "Interface.writeInterfaceColorSpace",    R"({"colorSpaces":{},"slotId":1})",           "="},
        {Interfaces, "colorRanges",           "Interface.writeInterfaceColorRange",    R"({"colorRanges":{},"slotId":1})",           "="},
        {Interfaces, "formatMapping",         "Interface.writeInterfaceFormatMapping", R"({"formatMapping":1,"slotId":1})",          "="},
        {Interfaces, "HDR",                   "Interface.writeInterfaceHDR",           R"({"HDR":{},"slotId":1})",                   "="},
        {Files,      "general",               "File.writeFilesInfo",                   R"({"desFileId":1,"fileId":1,"general":{}})", "="},
        {Screens,    "general",               "Screen.writeScreenGeneral",             R"({"general":{},"screenId":1})",             "="},
        {Screens,    "backgroundColor",       "Screen.writeScreenBackgroundColor",     R"({"backgroundColor":{},"screenId":1})",     "="},
        {Screens,    "layout",                "Screen.writeLayout",                    R"({"layout":{},"screenId":1})",              "="},
        {Screens,    "physicalSize",          "Screen.writePhysicalSize",              R"({"physicalSize":{},"screenId":1})",        "="},
        {Screens,    "PGMEdit",               "Screen.writePGMEdit",                   R"({"PGMEdit":1,"screenId":1})",              "="},
        {Screens,    "selected",              "Screen.writeSelected",                  R"({"screenId":1,"selected":1})",             "="},
        {Screens,    "imageQuality",          "Screen.writeImageQuality",              R"({"imageQuality":{},"screenId":1})",        "="},
        {Screens,    "freeze",                "Screen.writeFreeze",                    R"({"freeze":1,"screenId":1})",               "="},
        {Screens,    "FTB",                   "Screen.writeFTB",                       R"({"FTB":{},"screenId":1})",                 "="},
        {Screens,    "testPattern",           "Screen.writeTestPattern",               R"({"screenId":1,"testPattern":{}})",         "="},
        {Screens,    "switchEffect",          "Screen.writeSwitchEffect",              R"({"screenId":1,"switchEffect":{}})",        "="},
        {Screens,    "tbar",                  "Screen.writeTBar",                      R"({"screenId":1,"tbar":{}})",                "="},
        {Screens,    "HDR",                   "Screen.writeScreenHDR",                 R"({"HDR":{},"screenId":1})",                 "="},
        {Screens,    "screenZeLK",            "Screen.writeScreenZelk",                R"({"screenId":1,"screenZeLK":{}})",          "="},
        {Layers,     "zorder",                "Layer.writeZOrder",                     R"({"layerIdenti":{},"zorder":1})",           "="},
        {Layers,     "general",               "Layer.writeGeneral",                    R"({"general":{},"layerIdenti":{}})",         "="},
        {Layers,     "source",                "Layer.writeSource",                     R"({"layerIdenti":{},"source":{}})",          "="},
        {Layers,     "window",                "Layer.writeWindow",                     R"({"layerIdenti":{},"window":{}})",          "="},
        {Layers,     "mask",                  "Layer.writeMask",                       R"({"layerIdenti":{},"mask":{}})",            "="},
        {Layers,     "testColor",             "Layer.writeColor",                      R"({"layerIdenti":{},"testColor":{}})",       "="},
        {Layers,     "opacity",               "Layer.writeOpacity",                    R"({"layerIdenti":{},"opacity":1})",          "="},
        {Layers,     "imageQuality",          "Layer.writeImageQuality",               R"({"imageQuality":{},"layerIdenti":{}})",    "="},
        {Layers,     "shadow",                "Layer.writeShadow",                     R"({"layerIdenti":{},"shadow":{}})",          "="},
        {Layers,     "border",                "Layer.writeBorder",                     R"({"border":{},"layerIdenti":{}})",          "="},
        {Layers,     "selected",              "Layer.writeSelected",                   R"({"layerIdenti":{},"selected":1})",         "="},
        {Layers,     "UMD",                   "Layer.writeUMD",                        R"({"UMD":[],"layerIdenti":{}})",             "="},
        {Layers,     "cutFill",               "Layer.writeCutAndFill",                 R"({"cutFill":{},"layerIdenti":{}})",         "="},
    };
    // clang-format on
    for (const Row &row : rows) {
        const QString record = QString::fromLatin1(row.record);
        const bool isList = qstrcmp(row.argument, "=") == 0;
        QTest::addRow("%s by %s", row.key, row.operation)
            << row.kind << QString::fromLatin1(row.key) << QString::fromLatin1(row.operation)
            << record
            << (isList ? QStringLiteral("[%1]").arg(record) : QString::fromLatin1(row.argument));
    }
}

void tst_KeyWrites::keyIsWrittenByItsOperation()
{
    QFETCH(ScopeKind, kind);
    QFETCH(QString, key);
    QFETCH(QString, operation);
    QFETCH(QString, record);
    QFETCH(QString, argument);
    const auto write = findWrite(kind, key);
    QVERIFY(write);
    QCOMPARE(write->operation().name(), operation);
    QCOMPARE(write->argument(jsonValue(record.toStdString()).toObject()), argument);
}

void tst_KeyWrites::keyWithoutAWriteIsNotFound_data()
{
    QTest::addColumn<ScopeKind>("kind");
    QTest::addColumn<QString>("key");
    // clang-format off
    QTest::newRow("measured")       << ScopeKind::Interfaces << "actualTiming";
    QTest::newRow("a number")       << ScopeKind::Device     << "presetApplyType";
    QTest::newRow("read only")      << ScopeKind::Device     << "powers";
    QTest::newRow("identity")       << ScopeKind::Screens    << "screenId";
    QTest::newRow("layer identity") << ScopeKind::Layers     << "layerIdenti";
    QTest::newRow("with others")    << ScopeKind::Screens    << "mosaic";
    QTest::newRow("size of a file") << ScopeKind::Files      << "size";
    QTest::newRow("unknown")        << ScopeKind::Screens    << "colour";
    QTest::newRow("other case")     << ScopeKind::Interfaces << "hdcp";
    // clang-format on
}

void tst_KeyWrites::keyWithoutAWriteIsNotFound()
{
    QFETCH(ScopeKind, kind);
    QFETCH(QString, key);
    QVERIFY(!findWrite(kind, key));
}

QTEST_GUILESS_MAIN(tst_KeyWrites)
#include "tst_keywrites.moc"
