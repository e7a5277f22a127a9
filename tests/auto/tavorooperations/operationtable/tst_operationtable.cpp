// The table of operations: name, code, arguments and answer of each, and what it changes.

#include <support/tavorocontrol/scripteddevice.h>

#include <tavorocontrol/file.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/screen.h>
#include <tavorooperations/operation.h>

#include <QTest>

using namespace Tavoro;
using namespace Tavoro::Operations;

class tst_OperationTable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tableListsNameCodeArgumentsAndAnswer();
    void writesNameWhatTheyChange();
    void readsAndWritesAreDistinguished();
    void callsAreSentWithTheirCode_data();
    void callsAreSentWithTheirCode();
    void writeActualTimingSendsNothing();
    void readsPrintWhatTheyDecode();
    void removeAllTakesScreenThenKind();
    void faultyArgumentsAreReportedBeforeTheCall();
    void missingKeysAreRefusedUnlessDefaultsAreAllowed();
    void otherFaultsAreNotMissingKeys();
    void eachRunOfACallAnswersTheSame();
    void unknownNamesAreNotFound();
    void membersAreFound();
};

namespace {

struct Row {
    const char *name;
    quint16 code;
    const char *arguments;
    const char *answer;
    const char *changes; ///< The kinds of objects with the keys of their identities.
};

constexpr char none[] = "";
constexpr char interface[] = "interfaces slotId connectorId splitId";
constexpr char screen[] = "screens screenType screenId";
constexpr char layersOfScreen[] = "layers screenType screenId";
constexpr char screenWithLayers[] = "screens screenType screenId; layers screenType screenId";
constexpr char layersOfScene[] =
    "layers layerIdenti.screenType layerIdenti.screenId layerIdenti.sceneType";
constexpr char file[] = "files fileType fileId";
constexpr char bothFiles[] = "files fileType fileId; files desFileType desFileId";
constexpr char everything[] = "device; interfaces; files; screens; layers";

// clang-format off
const Row rows[] = {
//   name                                         code    takes                                  answers                              changes
    {"Device.readDetails",                         0x1100, "",                                   "Device::s_DeviceDetail",            none},
    {"Device.readDeviceDetails",                   0x1100, "",                                   "",                                  none},
    {"Device.sendReadDeviceDetailsCmd",            0x1100, "",                                   "JSON",                              none},
    {"Device.readSubcardDetail",                   0x1100, "Device::s_subcards",                 "",                                  none},
    {"Device.readDeviceGroupInfo",                 0x110A, "",                                   "Device::s_DeviceGroupInfos",        none},
    {"Device.readOutputMapping",                   0x1108, "",                                   "Device::s_InterfaceMapping",        none},
    {"Device.writeDeviceGeneral",                  0x1101, "Device::s_General",                  "",                                  "device"},
    {"Device.writeSubcardMode",                    0x1102, "Device::s_subcards",                 "",                                  "device"},
    {"Device.writeGenlockConfig",                  0x1104, "Device::s_Genlock",                  "",                                  "device"},
    {"Device.writeNetConfig",                      0x1106, "Device::s_Networks",                 "",                                  "device"},
    {"Device.writeSwap",                           0x1107, "Device::s_swap",                     "",                                  "device"},
    {"Device.writeOutputMapping",                  0x1108, "Device::s_InterfaceMapping",         "",                                  "device"},
    {"Device.writeDynamicRangConversion",          0x1109, "Device::s_DynamicRangConversion",    "",                                  "device"},
    {"Device.writeDeviceGroupInfo",                0x110A, "Device::s_DeviceGroupInfos",         "",                                  "device"},
    {"Device.writeInterfaceRelationInfo",          0x110C, "Device::s_InterfaceRelation",        "",                                  "device"},
    {"Device.writeZelk",                           0x110D, "Device::s_DeviceZelk",               "",                                  "device"},
    {"Device.writeLoadToPGM",                      0x110E, "NUMBER",                             "",                                  "device"},
    {"Interface.readDetails",                      0x1200, "FILTER FILTER",                      "[Interface::s_InterfaceDetail]",    none},
    {"Interface.writeInterfaceGeneral",            0x1201, "[Interface::s_General]",             "",                                  interface},
    {"Interface.writeInterfaceName",               0x1201, "[Interface::s_General]",             "",                                  interface},
    {"Interface.writeTestPattern",                 0x1202, "[Interface::s_TestPattern]",         "",                                  interface},
    {"Interface.writePresetTiming",                0x1203, "[Interface::s_PresetTimingDetail]",  "",                                  interface},
    {"Interface.writeActualTiming",                0x1204, "[Interface::s_ActualTimingDetail]",  "",                                  none},
    {"Interface.writeImageQuality",                0x1205, "[Interface::s_ImageQuality]",        "",                                  interface},
    {"Interface.writeCrop",                        0x1206, "[Interface::s_CropDetail]",          "",                                  interface},
    {"Interface.writeCutoutGeneral",               0x1207, "[Interface::s_CutoutGeneral]",       "",                                  interface},
    {"Interface.writeHDCP",                        0x1208, "[Interface::s_HDCP]",                "",                                  interface},
    {"Interface.writeInterfaceColorDepth",         0x1209, "[Interface::s_ColorDepth]",          "",                                  interface},
    {"Interface.writeInterfaceColorSpace",         0x120A, "[Interface::s_ColorSpace]",          "",                                  interface},
    {"Interface.writeInterfaceColorRange",         0x120B, "[Interface::s_ColorRange]",          "",                                  interface},
    {"Interface.writeInterfaceFormatMapping",      0x120C, "[Interface::s_FormatMapping]",       "",                                  interface},
    {"Interface.writeInterfaceHDR",                0x120D, "[Interface::s_DHR]",                 "",                                  interface},
    {"Screen.readDetails",                         0x1300, "FILTER FILTER FILTER",               "[Screen::s_ScreenFullDetail]",      none},
    {"Screen.writeScreenEnable",                   0x1301, "[Screen::s_Enable]",                 "",                                  screen},
    {"Screen.writeScreenGeneral",                  0x1302, "[Screen::s_General]",                "",                                  screen},
    {"Screen.writeScreenBackgroundColor",          0x1303, "[Screen::s_BackgroundColor]",        "",                                  screen},
    {"Screen.writeLayout",                         0x1304, "[Screen::s_Layout]",                 "",                                  screen},
    {"Screen.writePhysicalSize",                   0x1305, "[Screen::s_PhysicalSize]",           "",                                  screen},
    {"Screen.writePGMEdit",                        0x1306, "[Screen::s_PGMEdit]",                "",                                  screen},
    {"Screen.writeSelected",                       0x1307, "[Screen::s_Selected]",               "",                                  screen},
    {"Screen.writeImageQuality",                   0x1308, "[Screen::s_ImageQuality]",           "",                                  screen},
    {"Screen.writeFreeze",                         0x1309, "[Screen::s_Freeze]",                 "",                                  screen},
    {"Screen.writeFTB",                            0x130A, "[Screen::s_FTB]",                    "",                                  screen},
    {"Screen.writeTestPattern",                    0x130B, "[Screen::s_TestPattern]",            "",                                  screen},
    {"Screen.writeSwitchEffect",                   0x130C, "[Screen::s_SwitchEffect]",           "",                                  screen},
    {"Screen.writeTBar",                           0x130D, "[Screen::s_TBar]",                   "",                                  screenWithLayers},
    {"Screen.writeTake",                           0x130E, "[Screen::s_SwitchEffect]",           "",                                  layersOfScreen},
    {"Screen.writeScreenDeleted",                  0x130F, "[s_ScreenId]",                       "",                                  screenWithLayers},
    {"Screen.writeScreenHDR",                      0x1310, "[Screen::s_HDR]",                    "",                                  screen},
    {"Screen.writeScreenZelk",                     0x1314, "[Screen::s_ScreenZeLKFull]",         "",                                  screen},
    {"Layer.readDetails",                          0x1400, "FILTER FILTER FILTER FILTER",        "[Layer::s_LayerFullDetail]",        none},
    {"Layer.writeEnableAll",                       0x1400, "[Layer::s_LayerFullDetail]",         "",                                  layersOfScene},
    {"Layer.writeEnable",                          0x1401, "[Layer::s_LayerEnable]",             "",                                  layersOfScene},
    {"Layer.writeZOrder",                          0x1402, "[Layer::s_LayerZorder]",             "",                                  layersOfScene},
    {"Layer.writeGeneral",                         0x1403, "[Layer::s_LayerGeneral]",            "",                                  layersOfScene},
    {"Layer.writeSource",                          0x1404, "[Layer::s_LayerSource]",             "",                                  layersOfScene},
    {"Layer.writeWindow",                          0x1405, "[Layer::s_LayerWindow]",             "",                                  layersOfScene},
    {"Layer.writeMask",                            0x1406, "[Layer::s_LayerMask]",               "",                                  layersOfScene},
    {"Layer.writeColor",                           0x1407, "[Layer::s_LayerColor]",              "",                                  layersOfScene},
    {"Layer.writeOpacity",                         0x1408, "[Layer::s_LayerOpacity]",            "",                                  layersOfScene},
    {"Layer.writeImageQuality",                    0x1409, "[Layer::s_LayerImageQuality]",       "",                                  layersOfScene},
    {"Layer.writeShadow",                          0x140A, "[Layer::s_LayerShadow]",             "",                                  layersOfScene},
    {"Layer.writeBorder",                          0x140B, "[Layer::s_LayerBorder]",             "",                                  layersOfScene},
    {"Layer.writeSelected",                        0x140C, "[Layer::s_LayerSelected]",           "",                                  layersOfScene},
    {"Layer.writeUMD",                             0x140D, "[Layer::s_LayerUMD]",                "",                                  layersOfScene},
    {"Layer.writeRemoved",                         0x140E, "[Layer::s_LayerRemoved]",            "",                                  layersOfScene},
    {"Layer.writeRemovedAll",                      0x140E, "NUMBER NUMBER",                      "",                                  layersOfScreen},
    {"Layer.writeCutAndFill",                      0x1410, "[Layer::s_CutFill]",                 "",                                  layersOfScene},
    {"Preset.presetApply",                         0x1501, "[Preset::s_PresetPlay]",             "",                                  "screens; layers"},
    {"File.readDetails",                           0xFA00, "FILTER FILTER",                      "[File::s_FileDetail]",              none},
    {"File.writeDeleteFiles",                      0xFA01, "[File::s_DeleteFile]",               "",                                  file},
    {"File.writeFilesInfo",                        0xFA02, "[File::s_ModifyFileInfo]",           "",                                  bothFiles},
    {"File.importFile",                            0xFA03, "[File::s_FileInfo]",                 "",                                  none},
    {"File.writeCreateImageFile",                  0xFA06, "[File::s_CreateImageFile]",          "",                                  file},
    {"File.writeCreatePresetFile",                 0xFA07, "[File::s_CreatePresetFile]",         "",                                  file},
    {"File.writeCreateProjectFile",                0xFA08, "[File::s_CreateProjFile]",           "",                                  file},
    {"File.writeCreateLogFile",                    0xFA09, "[File::s_CreateLogFile]",            "",                                  file},
    {"File.edidCreateFileBinary",                  0xFA0B, "[File::s_CreateFileInfo]",           "",                                  file},
    {"File.writeApplyProjectFile",                 0x1601, "[ProjectFile::s_ProjectFileApply]",  "",                                  "files; screens; layers"},
    {"Auxiliary.writeRestartShutdown",             0xFC01, "Auxiliary::s_AuxiliaryOpt",          "",                                  none},
    {"Auxiliary.writeFactoryType",                 0xFC02, "Auxiliary::s_AuxiliaryOpt",          "",                                  everything},
    {"Auxiliary.saveDeviceData",                   0xFC03, "",                                   "",                                  none},
    {"Auxiliary.writeSourceLostCnt",               0xFC04, "Auxiliary::s_AuxiliaryOpt",          "",                                  none},
    {"Auxiliary.pickCutoutPos",                    0xFC06, "Auxiliary::s_CutoutPos",             "",                                  none},
    {"Auxiliary.setUgradeConfig",                  0xFC08, "Auxiliary::s_UpgradeDetail",         "",                                  none},
    {"Auxiliary.setDeviceTime",                    0xFC0C, "Auxiliary::s_DeviceTime",            "",                                  none},
    {"Auxiliary.readSourceLossStatResult",         0xFC05, "",                                   "[Auxiliary::s_SourceLossStat]",     none},
    {"Auxiliary.readUpgradeProgress",              0xFC09, "",                                   "Auxiliary::s_UpgradePercent",       none},
    {"Auxiliary.readDeviceVersion",                0xFC0A, "",                                   "Auxiliary::s_DeviceVersion",        none},
    {"Auxiliary.readDeviceSelfCheckDetail",        0xFC0B, "",                                   "Auxiliary::s_DeviceSelfCheckDetail", none},
    {"Auxiliary.readDeviceLoadTransferProgress",   0xFC0D, "",                                   "Auxiliary::s_DeviceProcess",        none},
};
// clang-format on

QString textOf(const std::vector<Change> &changes)
{
    const QStringList kinds =
        QStringLiteral("device interfaces files screens layers").split(QLatin1Char(' '));
    QStringList texts;
    for (const Change &change : changes)
        texts += (QStringList(kinds.at(int(change.kind))) + change.keys).join(QLatin1Char(' '));
    return texts.join(QStringLiteral("; "));
}

QStringList typesOf(const Operation &operation)
{
    QStringList types;
    for (const Argument &argument : operation.arguments())
        types += argument.type;
    return types;
}

/// Words that a call takes: numbers as 1, records at their defaults.
QStringList wordsOf(const Operation &operation)
{
    QStringList words;
    for (const Argument &argument : operation.arguments())
        words +=
            argument.sample.empty() ? QStringLiteral("1") : QString::fromStdString(argument.sample);
    return words;
}

CallResult call(ScriptedDevice &device, const char *name, const QStringList &words)
{
    return Operations::call(device.model, QLatin1String(name), words);
}

} // namespace

void tst_OperationTable::tableListsNameCodeArgumentsAndAnswer()
{
    const std::vector<Operation> operations = all();
    QCOMPARE(operations.size(), std::size(rows));
    const Row *row = rows;
    for (const Operation &operation : operations) {
        QCOMPARE(operation.name(), QLatin1String(row->name));
        QCOMPARE(int(operation.command()), int(row->code));
        QCOMPARE(typesOf(operation).join(QLatin1Char(' ')), QLatin1String(row->arguments));
        QCOMPARE(operation.answer(), QLatin1String(row->answer));
        ++row;
    }
}

void tst_OperationTable::writesNameWhatTheyChange()
{
    const Row *row = rows;
    for (const Operation &operation : all()) {
        QCOMPARE(textOf(operation.changes()), QLatin1String(row->changes));
        const bool needsReason =
            operation.direction() == Direction::Write && operation.changes().empty();
        QVERIFY2(operation.whyNothingChanges().isEmpty() != needsReason, row->name);
        ++row;
    }
}

void tst_OperationTable::readsAndWritesAreDistinguished()
{
    ScriptedDevice device;
    for (const Operation &operation : all()) {
        if (operation.name() == QLatin1String("Interface.writeActualTiming"))
            continue; // It sends nothing.
        device.channel->answerBody(operation.answer().startsWith(QLatin1Char('[')) ? "[]" : "{}");
        QVERIFY(operation.prepare(wordsOf(operation)).run(device.model).ok);
        const bool isWrite = device.channel->sent().back().head.type == 2;
        QVERIFY2((operation.direction() == Direction::Write) == isWrite,
                 qPrintable(operation.name()));
    }
}

void tst_OperationTable::callsAreSentWithTheirCode_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(rows)); ++i) {
        if (qstrcmp(rows[i].name, "Interface.writeActualTiming") != 0)
            QTest::newRow(rows[i].name) << i;
    }
}

void tst_OperationTable::callsAreSentWithTheirCode()
{
    QFETCH(int, index);
    const Row &row = rows[index];
    const Operation operation = *find(QLatin1String(row.name));
    ScriptedDevice device;
    device.channel->answerBody(row.answer[0] == '[' ? "[]" : "{}");
    const CallResult result = call(device, row.name, wordsOf(operation));
    QVERIFY2(result.ok, qPrintable(result.error));
    const std::vector<SentRequest> sent = device.channel->sent();
    QCOMPARE(int(sent.size()), 1);
    QCOMPARE(int(sent[0].code()), int(row.code));
    QCOMPARE(result.answer.empty(), row.answer[0] == '\0');
    const std::vector<Argument> arguments = operation.arguments();
    if (!arguments.empty() && !arguments[0].sample.empty() && sent[0].head.type == 2)
        QCOMPARE(sent[0].body, arguments[0].sample);
}

void tst_OperationTable::writeActualTimingSendsNothing()
{
    ScriptedDevice device;
    const CallResult result = call(device, "Interface.writeActualTiming", {QStringLiteral("[]")});
    QVERIFY(!result.ok);
    QCOMPARE(result.error, QStringLiteral("Interface.writeActualTiming failed."));
    QVERIFY(device.channel->sent().empty());
}

void tst_OperationTable::readsPrintWhatTheyDecode()
{
    ScriptedDevice device;
    device.channel->answerBody("{ \"groupInfos\" : [{}] , \"unknown\":1}");
    const CallResult result = call(device, "Device.readDeviceGroupInfo", {});
    QCOMPARE(result.answer,
             std::string("{\"groupInfos\":[{\"groupName\":\"\",\"groupId\":\"\"}]}"));
    device.channel->answerBody("nonsense");
    const CallResult failed = call(device, "Device.readDeviceGroupInfo", {});
    QVERIFY(!failed.ok);
    QCOMPARE(failed.error,
             QStringLiteral("Decode json failed: error at line :0 col :8 msg:not a valid string!"));
}

void tst_OperationTable::removeAllTakesScreenThenKind()
{
    ScriptedDevice device;
    const CallResult result =
        call(device, "Layer.writeRemovedAll", {QStringLiteral("2"), QStringLiteral("0")});
    QVERIFY(result.ok);
    QCOMPARE(device.channel->sent().at(0).headBytes(29, 34),
             std::string("\x0E\x14\xFF\xFF\0\x02", 6));
}

void tst_OperationTable::faultyArgumentsAreReportedBeforeTheCall()
{
    ScriptedDevice device;
    const CallResult result = call(device, "Device.writeSwap", {QStringLiteral("[]")});
    QVERIFY(!result.ok);
    QCOMPARE(result.error,
             QStringLiteral("Device.writeSwap, argument 1: line 1, column 1: expected an object "
                            "{...}, found a list"));
    QVERIFY(device.channel->sent().empty());
}

void tst_OperationTable::missingKeysAreRefusedUnlessDefaultsAreAllowed()
{
    const Operation operation = *find(QStringLiteral("Screen.writeLayout"));
    const QStringList words = {QStringLiteral(R"([{"screenId":1,"layout":{"x":5}}])")};
    const PreparedCall refused = operation.prepare(words);
    QCOMPARE(refused.fault,
             QStringLiteral("Screen.writeLayout, argument 1: missing keys: [0].layout.y, "
                            "[0].screenType"));
    QVERIFY(refused.lacksKeys);
    QVERIFY(!refused.run);
    const PreparedCall allowed = operation.prepare(words, MissingKeys::SentAsDefaults);
    QCOMPARE(allowed.fault, QString());
    QVERIFY(!allowed.lacksKeys);
    ScriptedDevice device;
    QVERIFY(allowed.run(device.model).ok);
    QCOMPARE(device.channel->sent().at(0).body,
             std::string(R"([{"screenId":1,"screenType":0,"layout":{"x":5,"y":0}}])"));
}

void tst_OperationTable::otherFaultsAreNotMissingKeys()
{
    const Operation operation = *find(QStringLiteral("Device.writeSwap"));
    const PreparedCall call = operation.prepare({QStringLiteral(R"({"swap":300})")});
    QCOMPARE(
        call.fault,
        QStringLiteral("Device.writeSwap, argument 1: line 1, column 9: 300 would be sent as 44; "
                       "the range is 0 to 255"));
    QVERIFY(!call.lacksKeys);
    QVERIFY(call.changes.empty());
}

void tst_OperationTable::eachRunOfACallAnswersTheSame()
{
    ScriptedDevice device;
    const PreparedCall call = find(QStringLiteral("File.readDetails"))
                                  ->prepare({QStringLiteral("0"), QStringLiteral("-1")});
    device.channel->answerBody(R"([{"fileId":3}])");
    const CallResult first = call.run(device.model);
    device.channel->answerBody(R"([{"fileId":3}])");
    const CallResult second = call.run(device.model);
    QVERIFY(first.answer.find(R"("fileId":3)") != std::string::npos);
    QCOMPARE(second.answer, first.answer);
}

void tst_OperationTable::unknownNamesAreNotFound()
{
    QVERIFY(!find(QStringLiteral("Device.writeswap")));
    QVERIFY(!find(QStringLiteral("Device")));
    QVERIFY(!find(QString()));
    ScriptedDevice device;
    const CallResult result = call(device, "Device.writeswap", {});
    QVERIFY(!result.ok);
    QCOMPARE(result.error, QStringLiteral("unknown operation \"Device.writeswap\""));
}

void tst_OperationTable::membersAreFound()
{
    QCOMPARE(find(&Control::Screen::writeTake)->name(), QStringLiteral("Screen.writeTake"));
    // The same type as writeTake().
    QCOMPARE(find(&Control::Screen::writeSwitchEffect)->name(),
             QStringLiteral("Screen.writeSwitchEffect"));
    QVERIFY(*find(&Control::Layer::writeRemovedAll)
            == *find(QStringLiteral("Layer.writeRemovedAll")));
    QVERIFY(!find(&Control::File::importFileBinary));
}

QTEST_GUILESS_MAIN(tst_OperationTable)
#include "tst_operationtable.moc"
