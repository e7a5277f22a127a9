// The table of operations: name, code, arguments and answer of each.

#include <support/tavorocontrol/scripteddevice.h>

#include <tavoroctl/operations/operation.h>

#include <QTest>

using namespace Tavoro::Ctl;

class tst_TavoroCtlOperations : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tableListsNameCodeArgumentsAndAnswer();
    void callsAreSentWithTheirCode_data();
    void callsAreSentWithTheirCode();
    void writeActualTimingSendsNothing();
    void readsPrintWhatTheyDecode();
    void removeAllTakesScreenThenKind();
    void faultyArgumentsAreReportedBeforeTheCall();
    void unknownNamesAreNotFound();
};

namespace {

struct Row {
    const char *name;
    quint16 code;
    const char *arguments;
    const char *answer;
};

// clang-format off
const Row rows[] = {
//   name                                       code    takes                                prints
    {"Device.readDetails",                       0x1100, "",                                  "Device::s_DeviceDetail"},
    {"Device.readDeviceDetails",                 0x1100, "",                                  ""},
    {"Device.sendReadDeviceDetailsCmd",          0x1100, "",                                  "JSON"},
    {"Device.readSubcardDetail",                 0x1100, "Device::s_subcards",                ""},
    {"Device.readDeviceGroupInfo",               0x110A, "",                                  "Device::s_DeviceGroupInfos"},
    {"Device.readOutputMapping",                 0x1108, "",                                  "Device::s_InterfaceMapping"},
    {"Device.writeDeviceGeneral",                0x1101, "Device::s_General",                 ""},
    {"Device.writeSubcardMode",                  0x1102, "Device::s_subcards",                ""},
    {"Device.writeGenlockConfig",                0x1104, "Device::s_Genlock",                 ""},
    {"Device.writeNetConfig",                    0x1106, "Device::s_Networks",                ""},
    {"Device.writeSwap",                         0x1107, "Device::s_swap",                    ""},
    {"Device.writeOutputMapping",                0x1108, "Device::s_InterfaceMapping",        ""},
    {"Device.writeDynamicRangConversion",        0x1109, "Device::s_DynamicRangConversion",   ""},
    {"Device.writeDeviceGroupInfo",              0x110A, "Device::s_DeviceGroupInfos",        ""},
    {"Device.writeInterfaceRelationInfo",        0x110C, "Device::s_InterfaceRelation",       ""},
    {"Device.writeZelk",                         0x110D, "Device::s_DeviceZelk",              ""},
    {"Device.writeLoadToPGM",                    0x110E, "NUMBER",                            ""},
    {"Interface.readDetails",                    0x1200, "FILTER FILTER",                     "[Interface::s_InterfaceDetail]"},
    {"Interface.writeInterfaceGeneral",          0x1201, "[Interface::s_General]",            ""},
    {"Interface.writeInterfaceName",             0x1201, "[Interface::s_General]",            ""},
    {"Interface.writeTestPattern",               0x1202, "[Interface::s_TestPattern]",        ""},
    {"Interface.writePresetTiming",              0x1203, "[Interface::s_PresetTimingDetail]", ""},
    {"Interface.writeActualTiming",              0x1204, "[Interface::s_ActualTimingDetail]", ""},
    {"Interface.writeImageQuality",              0x1205, "[Interface::s_ImageQuality]",       ""},
    {"Interface.writeCrop",                      0x1206, "[Interface::s_CropDetail]",         ""},
    {"Interface.writeCutoutGeneral",             0x1207, "[Interface::s_CutoutGeneral]",      ""},
    {"Interface.writeHDCP",                      0x1208, "[Interface::s_HDCP]",               ""},
    {"Interface.writeInterfaceColorDepth",       0x1209, "[Interface::s_ColorDepth]",         ""},
    {"Interface.writeInterfaceColorSpace",       0x120A, "[Interface::s_ColorSpace]",         ""},
    {"Interface.writeInterfaceColorRange",       0x120B, "[Interface::s_ColorRange]",         ""},
    {"Interface.writeInterfaceFormatMapping",    0x120C, "[Interface::s_FormatMapping]",      ""},
    {"Interface.writeInterfaceHDR",              0x120D, "[Interface::s_DHR]",                ""},
    {"Screen.readDetails",                       0x1300, "FILTER FILTER FILTER",              "[Screen::s_ScreenFullDetail]"},
    {"Screen.writeScreenEnable",                 0x1301, "[Screen::s_Enable]",                ""},
    {"Screen.writeScreenGeneral",                0x1302, "[Screen::s_General]",               ""},
    {"Screen.writeScreenBackgroundColor",        0x1303, "[Screen::s_BackgroundColor]",       ""},
    {"Screen.writeLayout",                       0x1304, "[Screen::s_Layout]",                ""},
    {"Screen.writePhysicalSize",                 0x1305, "[Screen::s_PhysicalSize]",          ""},
    {"Screen.writePGMEdit",                      0x1306, "[Screen::s_PGMEdit]",               ""},
    {"Screen.writeSelected",                     0x1307, "[Screen::s_Selected]",              ""},
    {"Screen.writeImageQuality",                 0x1308, "[Screen::s_ImageQuality]",          ""},
    {"Screen.writeFreeze",                       0x1309, "[Screen::s_Freeze]",                ""},
    {"Screen.writeFTB",                          0x130A, "[Screen::s_FTB]",                   ""},
    {"Screen.writeTestPattern",                  0x130B, "[Screen::s_TestPattern]",           ""},
    {"Screen.writeSwitchEffect",                 0x130C, "[Screen::s_SwitchEffect]",          ""},
    {"Screen.writeTBar",                         0x130D, "[Screen::s_TBar]",                  ""},
    {"Screen.writeTake",                         0x130E, "[Screen::s_SwitchEffect]",          ""},
    {"Screen.writeScreenDeleted",                0x130F, "[s_ScreenId]",                      ""},
    {"Screen.writeScreenHDR",                    0x1310, "[Screen::s_HDR]",                   ""},
    {"Screen.writeScreenZelk",                   0x1314, "[Screen::s_ScreenZeLKFull]",        ""},
    {"Layer.readDetails",                        0x1400, "FILTER FILTER FILTER FILTER",       "[Layer::s_LayerFullDetail]"},
    {"Layer.writeEnableAll",                     0x1400, "[Layer::s_LayerFullDetail]",        ""},
    {"Layer.writeEnable",                        0x1401, "[Layer::s_LayerEnable]",            ""},
    {"Layer.writeZOrder",                        0x1402, "[Layer::s_LayerZorder]",            ""},
    {"Layer.writeGeneral",                       0x1403, "[Layer::s_LayerGeneral]",           ""},
    {"Layer.writeSource",                        0x1404, "[Layer::s_LayerSource]",            ""},
    {"Layer.writeWindow",                        0x1405, "[Layer::s_LayerWindow]",            ""},
    {"Layer.writeMask",                          0x1406, "[Layer::s_LayerMask]",              ""},
    {"Layer.writeColor",                         0x1407, "[Layer::s_LayerColor]",             ""},
    {"Layer.writeOpacity",                       0x1408, "[Layer::s_LayerOpacity]",           ""},
    {"Layer.writeImageQuality",                  0x1409, "[Layer::s_LayerImageQuality]",      ""},
    {"Layer.writeShadow",                        0x140A, "[Layer::s_LayerShadow]",            ""},
    {"Layer.writeBorder",                        0x140B, "[Layer::s_LayerBorder]",            ""},
    {"Layer.writeSelected",                      0x140C, "[Layer::s_LayerSelected]",          ""},
    {"Layer.writeUMD",                           0x140D, "[Layer::s_LayerUMD]",               ""},
    {"Layer.writeRemoved",                       0x140E, "[Layer::s_LayerRemoved]",           ""},
    {"Layer.writeRemovedAll",                    0x140E, "NUMBER NUMBER",                     ""},
    {"Layer.writeCutAndFill",                    0x1410, "[Layer::s_CutFill]",                ""},
    {"Preset.presetApply",                       0x1501, "[Preset::s_PresetPlay]",            ""},
    {"File.readDetails",                         0xFA00, "FILTER FILTER",                     "[File::s_FileDetail]"},
    {"File.writeDeleteFiles",                    0xFA01, "[File::s_DeleteFile]",              ""},
    {"File.writeFilesInfo",                      0xFA02, "[File::s_ModifyFileInfo]",          ""},
    {"File.importFile",                          0xFA03, "[File::s_FileInfo]",                ""},
    {"File.writeCreateImageFile",                0xFA06, "[File::s_CreateImageFile]",         ""},
    {"File.writeCreatePresetFile",               0xFA07, "[File::s_CreatePresetFile]",        ""},
    {"File.writeCreateProjectFile",              0xFA08, "[File::s_CreateProjFile]",          ""},
    {"File.writeCreateLogFile",                  0xFA09, "[File::s_CreateLogFile]",           ""},
    {"File.edidCreateFileBinary",                0xFA0B, "[File::s_CreateFileInfo]",          ""},
    {"File.writeApplyProjectFile",               0x1601, "[ProjectFile::s_ProjectFileApply]", ""},
    {"Auxiliary.writeRestartShutdown",           0xFC01, "Auxiliary::s_AuxiliaryOpt",         ""},
    {"Auxiliary.writeFactoryType",               0xFC02, "Auxiliary::s_AuxiliaryOpt",         ""},
    {"Auxiliary.saveDeviceData",                 0xFC03, "",                                  ""},
    {"Auxiliary.writeSourceLostCnt",             0xFC04, "Auxiliary::s_AuxiliaryOpt",         ""},
    {"Auxiliary.pickCutoutPos",                  0xFC06, "Auxiliary::s_CutoutPos",            ""},
    {"Auxiliary.setUgradeConfig",                0xFC08, "Auxiliary::s_UpgradeDetail",        ""},
    {"Auxiliary.setDeviceTime",                  0xFC0C, "Auxiliary::s_DeviceTime",           ""},
    {"Auxiliary.readSourceLossStatResult",       0xFC05, "",                                  "[Auxiliary::s_SourceLossStat]"},
    {"Auxiliary.readUpgradeProgress",            0xFC09, "",                                  "Auxiliary::s_UpgradePercent"},
    {"Auxiliary.readDeviceVersion",              0xFC0A, "",                                  "Auxiliary::s_DeviceVersion"},
    {"Auxiliary.readDeviceSelfCheckDetail",      0xFC0B, "",                                  "Auxiliary::s_DeviceSelfCheckDetail"},
    {"Auxiliary.readDeviceLoadTransferProgress", 0xFC0D, "",                                  "Auxiliary::s_DeviceProcess"},
};
// clang-format on

/// Words that a call takes: numbers as 1, records at their defaults.
QStringList wordsOf(const OperationForm &form)
{
    QStringList words;
    for (const QString &argument : form.arguments) {
        const bool isNumber =
            argument == QLatin1String("FILTER") || argument == QLatin1String("NUMBER");
        words += isNumber ? QStringLiteral("1") : QString::fromStdString(form.sample);
    }
    return words;
}

CallResult call(ScriptedDevice &device, const char *name, const QStringList &words)
{
    const Operation *const operation = findOperation(QLatin1String(name));
    if (!operation)
        return {false, QStringLiteral("no such operation"), {}};
    const PreparedCall prepared = operation->calls.prepare(words, MissingKeys::Refused);
    if (!prepared.fault.isEmpty())
        return {false, prepared.fault, {}};
    return prepared.run(device.model);
}

} // namespace

void tst_TavoroCtlOperations::tableListsNameCodeArgumentsAndAnswer()
{
    const OperationRange operations = allOperations();
    QCOMPARE(int(operations.last - operations.first), int(std::size(rows)));
    const Row *row = rows;
    for (const Operation &operation : operations) {
        const OperationForm form = operation.calls.form();
        QCOMPARE(QLatin1String(operation.name), QLatin1String(row->name));
        QCOMPARE(int(operation.command), int(row->code));
        QCOMPARE(form.arguments.join(QLatin1Char(' ')), QLatin1String(row->arguments));
        QCOMPARE(form.answer, QLatin1String(row->answer));
        ++row;
    }
}

void tst_TavoroCtlOperations::callsAreSentWithTheirCode_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(rows)); ++i) {
        if (qstrcmp(rows[i].name, "Interface.writeActualTiming") != 0)
            QTest::newRow(rows[i].name) << i;
    }
}

void tst_TavoroCtlOperations::callsAreSentWithTheirCode()
{
    QFETCH(int, index);
    const Row &row = rows[index];
    const OperationForm form = findOperation(QLatin1String(row.name))->calls.form();
    ScriptedDevice device;
    device.channel->answerBody(row.answer[0] == '[' ? "[]" : "{}");
    const CallResult result = call(device, row.name, wordsOf(form));
    QVERIFY2(result.ok, qPrintable(result.error));
    const std::vector<SentRequest> sent = device.channel->sent();
    QCOMPARE(int(sent.size()), 1);
    QCOMPARE(int(sent[0].code()), int(row.code));
    QCOMPARE(result.answer.empty(), row.answer[0] == '\0');
    if (!form.sample.empty() && sent[0].head.type == 2)
        QCOMPARE(sent[0].body, form.sample);
}

void tst_TavoroCtlOperations::writeActualTimingSendsNothing()
{
    ScriptedDevice device;
    const CallResult result = call(device, "Interface.writeActualTiming", {QStringLiteral("[]")});
    QVERIFY(!result.ok);
    QCOMPARE(result.error, QString());
    QVERIFY(device.channel->sent().empty());
}

void tst_TavoroCtlOperations::readsPrintWhatTheyDecode()
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

void tst_TavoroCtlOperations::removeAllTakesScreenThenKind()
{
    ScriptedDevice device;
    const CallResult result =
        call(device, "Layer.writeRemovedAll", {QStringLiteral("2"), QStringLiteral("0")});
    QVERIFY(result.ok);
    QCOMPARE(device.channel->sent().at(0).headBytes(29, 34),
             std::string("\x0E\x14\xFF\xFF\0\x02", 6));
}

void tst_TavoroCtlOperations::faultyArgumentsAreReportedBeforeTheCall()
{
    ScriptedDevice device;
    const CallResult result = call(device, "Device.writeSwap", {QStringLiteral("[]")});
    QCOMPARE(
        result.error,
        QStringLiteral("argument 1: line 1, column 1: expected an object {...}, found a list"));
    QVERIFY(device.channel->sent().empty());
}

void tst_TavoroCtlOperations::unknownNamesAreNotFound()
{
    QVERIFY(!findOperation(QStringLiteral("Device.writeswap")));
    QVERIFY(!findOperation(QStringLiteral("Device")));
    QVERIFY(!findOperation(QString()));
}

QTEST_GUILESS_MAIN(tst_TavoroCtlOperations)
#include "tst_tavoroctloperations.moc"
