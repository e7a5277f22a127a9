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

    struct Row {
        ScopeKind kind;
        const char *key;
        const char *operation;
        const char *record; ///< As JSON.
        const char *argument; ///< "=": a list of the record.
    };
    // clang-format off
    const Row rows[] = {
        {ScopeKind::Device,     "general",              "Device.writeDeviceGeneral",           R"({"general":{"name":"a"}})",                        R"({"general":{"name":"a"}})"},
        {ScopeKind::Device,     "swap",                 "Device.writeSwap",                    R"({"swap":1})",                                      R"({"swap":1})"},
        {ScopeKind::Device,     "genlock",              "Device.writeGenlockConfig",           R"({"genlock":{}})",                                  R"({"genlock":{}})"},
        {ScopeKind::Device,     "subcards",             "Device.writeSubcardMode",             R"({"subcards":[]})",                                 R"({"subcards":[]})"},
        {ScopeKind::Device,     "networks",             "Device.writeNetConfig",               R"({"networks":[]})",                                 R"({"networks":[]})"},
        {ScopeKind::Device,     "groupInfos",           "Device.writeDeviceGroupInfo",         R"({"groupInfos":[]})",                               R"({"groupInfos":[]})"},
        {ScopeKind::Device,     "interfaceRelation",    "Device.writeInterfaceRelationInfo",   R"({"interfaceRelation":{}})",                        R"({"interfaceRelation":{}})"},
        {ScopeKind::Device,     "interfaceMapping",     "Device.writeOutputMapping",           R"({"interfaceMapping":{"general":{}}})",             R"({"general":{}})"},
        {ScopeKind::Device,     "dynamicRangConversion","Device.writeDynamicRangConversion",   R"({"dynamicRangConversion":{"enable":1,"type":2}})", R"({"enable":1,"type":2})"},
        {ScopeKind::Device,     "zeLKEnable",           "Device.writeZelk",                    R"({"zeLKEnable":1})",                                R"({"zeLKEnable":1})"},
        {ScopeKind::Interfaces, "general",              "Interface.writeInterfaceGeneral",     R"({"general":{},"slotId":1})",                       "="},
        {ScopeKind::Interfaces, "testPattern",          "Interface.writeTestPattern",          R"({"slotId":1,"testPattern":{}})",                   "="},
        {ScopeKind::Interfaces, "presetTiming",         "Interface.writePresetTiming",         R"({"presetTiming":{},"slotId":1})",                  "="},
        {ScopeKind::Interfaces, "imageQuality",         "Interface.writeImageQuality",         R"({"imageQuality":{},"slotId":1})",                  "="},
        {ScopeKind::Interfaces, "crop",                 "Interface.writeCrop",                 R"({"crop":{},"slotId":1})",                          "="},
        {ScopeKind::Interfaces, "cutoutGeneral",        "Interface.writeCutoutGeneral",        R"({"cutoutGeneral":{},"slotId":1})",                 "="},
        {ScopeKind::Interfaces, "HDCP",                 "Interface.writeHDCP",                 R"({"HDCP":{"enable":1},"slotId":1})",                R"([{"hdcp":{"enable":1},"slotId":1}])"},
        {ScopeKind::Interfaces, "colorDepths",          "Interface.writeInterfaceColorDepth",  R"({"colorDepths":{},"slotId":1})",                   "="},
        {ScopeKind::Interfaces, "colorSpaces",          "Interface.writeInterfaceColorSpace",  R"({"colorSpaces":{},"slotId":1})",                   "="},
        {ScopeKind::Interfaces, "colorRanges",          "Interface.writeInterfaceColorRange",  R"({"colorRanges":{},"slotId":1})",                   "="},
        {ScopeKind::Interfaces, "formatMapping",        "Interface.writeInterfaceFormatMapping", R"({"formatMapping":1,"slotId":1})",                "="},
        {ScopeKind::Interfaces, "HDR",                  "Interface.writeInterfaceHDR",         R"({"HDR":{},"slotId":1})",                           "="},
        {ScopeKind::Files,      "general",              "File.writeFilesInfo",                 R"({"desFileId":1,"fileId":1,"general":{}})",         "="},
        {ScopeKind::Screens,    "general",              "Screen.writeScreenGeneral",           R"({"general":{},"screenId":1})",                     "="},
        {ScopeKind::Screens,    "backgroundColor",      "Screen.writeScreenBackgroundColor",   R"({"backgroundColor":{},"screenId":1})",             "="},
        {ScopeKind::Screens,    "layout",               "Screen.writeLayout",                  R"({"layout":{},"screenId":1})",                      "="},
        {ScopeKind::Screens,    "physicalSize",         "Screen.writePhysicalSize",            R"({"physicalSize":{},"screenId":1})",                "="},
        {ScopeKind::Screens,    "PGMEdit",              "Screen.writePGMEdit",                 R"({"PGMEdit":1,"screenId":1})",                      "="},
        {ScopeKind::Screens,    "selected",             "Screen.writeSelected",                R"({"screenId":1,"selected":1})",                     "="},
        {ScopeKind::Screens,    "imageQuality",         "Screen.writeImageQuality",            R"({"imageQuality":{},"screenId":1})",                "="},
        {ScopeKind::Screens,    "freeze",               "Screen.writeFreeze",                  R"({"freeze":1,"screenId":1})",                       "="},
        {ScopeKind::Screens,    "FTB",                  "Screen.writeFTB",                     R"({"FTB":{},"screenId":1})",                         "="},
        {ScopeKind::Screens,    "testPattern",          "Screen.writeTestPattern",             R"({"screenId":1,"testPattern":{}})",                 "="},
        {ScopeKind::Screens,    "switchEffect",         "Screen.writeSwitchEffect",            R"({"screenId":1,"switchEffect":{}})",                "="},
        {ScopeKind::Screens,    "tbar",                 "Screen.writeTBar",                    R"({"screenId":1,"tbar":{}})",                        "="},
        {ScopeKind::Screens,    "HDR",                  "Screen.writeScreenHDR",               R"({"HDR":{},"screenId":1})",                         "="},
        {ScopeKind::Screens,    "screenZeLK",           "Screen.writeScreenZelk",              R"({"screenId":1,"screenZeLK":{}})",                  "="},
        {ScopeKind::Layers,     "zorder",               "Layer.writeZOrder",                   R"({"layerIdenti":{},"zorder":1})",                   "="},
        {ScopeKind::Layers,     "general",              "Layer.writeGeneral",                  R"({"general":{},"layerIdenti":{}})",                 "="},
        {ScopeKind::Layers,     "source",               "Layer.writeSource",                   R"({"layerIdenti":{},"source":{}})",                  "="},
        {ScopeKind::Layers,     "window",               "Layer.writeWindow",                   R"({"layerIdenti":{},"window":{}})",                  "="},
        {ScopeKind::Layers,     "mask",                 "Layer.writeMask",                     R"({"layerIdenti":{},"mask":{}})",                    "="},
        {ScopeKind::Layers,     "testColor",            "Layer.writeColor",                    R"({"layerIdenti":{},"testColor":{}})",               "="},
        {ScopeKind::Layers,     "opacity",              "Layer.writeOpacity",                  R"({"layerIdenti":{},"opacity":1})",                  "="},
        {ScopeKind::Layers,     "imageQuality",         "Layer.writeImageQuality",             R"({"imageQuality":{},"layerIdenti":{}})",            "="},
        {ScopeKind::Layers,     "shadow",               "Layer.writeShadow",                   R"({"layerIdenti":{},"shadow":{}})",                  "="},
        {ScopeKind::Layers,     "border",               "Layer.writeBorder",                   R"({"border":{},"layerIdenti":{}})",                  "="},
        {ScopeKind::Layers,     "selected",             "Layer.writeSelected",                 R"({"layerIdenti":{},"selected":1})",                 "="},
        {ScopeKind::Layers,     "UMD",                  "Layer.writeUMD",                      R"({"UMD":[],"layerIdenti":{}})",                     "="},
        {ScopeKind::Layers,     "cutFill",              "Layer.writeCutAndFill",               R"({"cutFill":{},"layerIdenti":{}})",                 "="},
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
