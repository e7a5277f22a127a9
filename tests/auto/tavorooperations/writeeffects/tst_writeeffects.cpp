// Makes every write of the table on a simulated device, and compares what the reads return before
// and after it with what the table says.

#include <support/tavorooperations/devicesnapshot.h>
#include <support/tavorosim/simulatedconnection.h>

#include <tavorooperations/operation.h>

#include <QLoggingCategory>
#include <QTest>

#include <algorithm>
#include <array>

using namespace Tavoro;
using namespace Tavoro::Operations;

class tst_WriteEffects : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyWriteHasARow();
    void writeChangesWhatTheTableNames_data();
    void writeChangesWhatTheTableNames();
};

namespace {

/// Calls, in the form "Class.member argument".
using Preparation = std::array<const char *, 5>;

/// A write that the device carries out, and that does not leave everything as it was.
struct Row {
    const char *name;
    const char
        *argument; ///< $I, $O, $S, $L, $F: the keys of an input, output, screen, layer, file.
    const Preparation &preparation; ///< Calls before it.
};

// clang-format off
constexpr char image[]       = R"(File.writeCreateImageFile [{$F,"source":{"id":65792,"type":1,"zoomRatio":8}}])";
constexpr char noImage[]     = R"(File.writeDeleteFiles [{$F}])";
constexpr char preset[]      = R"(File.writeCreatePresetFile [{"fileId":1,"fileType":6,"screens":[{$S}]}])";
constexpr char project[]     = R"(File.writeCreateProjectFile [{"fileId":1,"fileType":10,"contain":{"logo":1}}])";
constexpr char swapOff[]     = R"(Device.writeSwap {"swap":0})";
constexpr char protection[]  = R"(Interface.writeHDCP [{$I,"hdcp":{"enable":1}}])";
constexpr char freeze[]      = R"(Screen.writeFreeze [{$S,"freeze":1}])";
constexpr char transparent[] = R"(Layer.writeOpacity [{$L,"opacity":1}])";

constexpr Preparation none              = {};
constexpr Preparation storedImage       = {image};
constexpr Preparation storedPreset      = {preset, freeze, transparent};
constexpr Preparation storedProject     = {image, project, noImage, freeze, transparent};
constexpr Preparation changedEverything = {image, swapOff, protection, freeze, transparent};

constexpr Row rows[] = {
//   write                                    argument                                                                     preparation
    {"Device.writeDeviceGeneral",             R"({"general":{"name":"East"}})",                                            none},
    {"Device.writeSubcardMode",               R"({"subcards":[{"slotId":1,"connectors":[{"id":1,"workMode":3}]}]})",       none},
    {"Device.writeGenlockConfig",             R"({"genlock":{"type":1}})",                                                 none},
    {"Device.writeNetConfig",                 R"({"networks":[{"ip":"127.0.0.1","gateway":"127.0.0.2"}]})",                none},
    {"Device.writeSwap",                      R"({"swap":0})",                                                             none},
    {"Device.writeOutputMapping",             R"({"general":{"type":3}})",                                                 none},
    {"Device.writeDynamicRangConversion",     R"({"enable":1})",                                                           none},
    {"Device.writeDeviceGroupInfo",           R"({"groupInfos":[{"groupId":"7"}]})",                                       none},
    {"Device.writeInterfaceRelationInfo",     R"({"interfaceRelation":{"enable":1}})",                                     none},
    {"Device.writeZelk",                      R"({"zeLKEnable":1})",                                                       none},
    {"Device.writeLoadToPGM",                 "1",                                                                         none},

    {"Interface.writeInterfaceGeneral",       R"([{$I,"general":{"name":"Camera"}}])",                                     none},
    {"Interface.writeInterfaceName",          R"([{$O,"general":{"name":"Left"}}])",                                       none},
    {"Interface.writeTestPattern",            R"([{$O,"testPattern":{"enable":1}}])",                                      none},
    {"Interface.writePresetTiming",           R"([{$O,"presetTiming":{"refresh":50}}])",                                   none},
    {"Interface.writeActualTiming",           R"([{$I,"actualTiming":{"refresh":50}}])",                                   none},
    {"Interface.writeImageQuality",           R"([{$I,"imageQuality":{"hue":9}},{$O,"imageQuality":{"hue":9}}])",          none},
    {"Interface.writeCrop",                   R"([{$I,"crop":{"enable":1}}])",                                             none},
    {"Interface.writeCutoutGeneral",          R"([{$I,"cutoutGeneral":{"enable":1}}])",                                    none},
    {"Interface.writeHDCP",                   R"([{$I,"hdcp":{"enable":1}}])",                                             none},
    {"Interface.writeInterfaceColorDepth",    R"([{$I,"colorDepths":{"presetColorDepth":10}}])",                           none},
    {"Interface.writeInterfaceColorSpace",    R"([{$I,"colorSpaces":{"presetColorSpace":2}}])",                            none},
    {"Interface.writeInterfaceColorRange",    R"([{$I,"colorRanges":{"presetColorRange":2}}])",                            none},
    {"Interface.writeInterfaceFormatMapping", R"([{$I,"formatMapping":3}])",                                               none},
    {"Interface.writeInterfaceHDR",           R"([{$I,"HDR":{"colorGamut":{"presetColorGamut":2}}}])",                     none},

    {"Screen.writeScreenEnable",              R"([{"screenId":9,"screenType":1}])",                                        none},
    {"Screen.writeScreenGeneral",             R"([{$S,"general":{"name":"Stage"}}])",                                      none},
    {"Screen.writeScreenBackgroundColor",     R"([{$S,"backgroundColor":{"R":255}}])",                                     none},
    {"Screen.writeLayout",                    R"([{$S,"layout":{"x":7}}])",                                                none},
    {"Screen.writePhysicalSize",              R"([{$S,"physicalSize":{"dotPitch":7}}])",                                   none},
    {"Screen.writePGMEdit",                   R"([{$S,"PGMEdit":1}])",                                                     none},
    {"Screen.writeSelected",                  R"([{$S,"selected":1}])",                                                    none},
    {"Screen.writeImageQuality",              R"([{$S,"imageQuality":{"hue":9}}])",                                        none},
    {"Screen.writeFreeze",                    R"([{$S,"freeze":1}])",                                                      none},
    {"Screen.writeFTB",                       R"([{$S,"FTB":{"enable":1}}])",                                              none},
    {"Screen.writeTestPattern",               R"([{$S,"testPattern":{"enable":1}}])",                                      none},
    {"Screen.writeSwitchEffect",              R"([{$S,"switchEffect":{"time":9}}])",                                       none},
    {"Screen.writeTBar",                      R"([{$S,"tbar":{"percent":100}}])",                                          none},
    {"Screen.writeTake",                      R"([{$S}])",                                                                 none},
    {"Screen.writeScreenDeleted",             R"([{$S}])",                                                                 none},
    {"Screen.writeScreenHDR",                 R"([{$S,"HDR":{"colorGamut":{"presetColorGamut":2}}}])",                     none},
    {"Screen.writeScreenZelk",                R"([{$S,"screenZeLK":{"enable":1}}])",                                       none},

    {"Layer.writeEnableAll",                  R"([{$L,"zorder":8}])",                                                      none},
    {"Layer.writeEnable",                     R"([{$L,"zorder":8}])",                                                      none},
    {"Layer.writeZOrder",                     R"([{$L,"zorder":0}])",                                                      none},
    {"Layer.writeGeneral",                    R"([{$L,"general":{"isFreeze":1}}])",                                        none},
    {"Layer.writeSource",                     R"([{$L}])",                                                                 none},
    {"Layer.writeWindow",                     R"([{$L,"window":{"x":7}}])",                                                none},
    {"Layer.writeMask",                       R"([{$L,"mask":{"left":7}}])",                                               none},
    {"Layer.writeColor",                      R"([{$L,"testColor":{"enable":1}}])",                                        none},
    {"Layer.writeOpacity",                    R"([{$L,"opacity":7}])",                                                     none},
    {"Layer.writeImageQuality",               R"([{$L,"imageQuality":{"hue":9}}])",                                        none},
    {"Layer.writeShadow",                     R"([{$L,"shadow":{"general":{"enable":1}}}])",                               none},
    {"Layer.writeBorder",                     R"([{$L,"border":{"type":7}}])",                                             none},
    {"Layer.writeSelected",                   R"([{$L,"selected":1}])",                                                    none},
    {"Layer.writeUMD",                        R"([{$L}])",                                                                 none},
    {"Layer.writeRemoved",                    R"([{$L}])",                                                                 none},
    {"Layer.writeRemovedAll",                 "1 1",                                                                       none},
    {"Layer.writeCutAndFill",                 R"([{$L,"cutFill":{"enable":1}}])",                                          none},

    {"Preset.presetApply",                    R"([{"fileId":1,"fileType":6}])",                                            storedPreset},

    {"File.writeDeleteFiles",                 R"([{$F}])",                                                                 storedImage},
    {"File.writeFilesInfo",                   R"([{$F,"desFileId":5,"desFileType":0}])",                                   storedImage},
    {"File.importFile",                       R"([{$F,"size":{"length":3}}])",                                             none},
    {"File.writeCreateImageFile",             R"([{$F,"source":{"id":65792,"type":1}}])",                                  none},
    {"File.writeCreatePresetFile",            R"([{"fileId":1,"fileType":6}])",                                            none},
    {"File.writeCreateProjectFile",           R"([{"fileId":1,"fileType":10}])",                                           none},
    {"File.writeCreateLogFile",               R"([{$F}])",                                                                 none},
    {"File.edidCreateFileBinary",             R"([{$F,"interfaceId":{"slotId":1,"connectorId":1}}])",                      none},
    {"File.writeApplyProjectFile",            R"([{"fileId":1,"fileType":10}])",                                           storedProject},

    {"Auxiliary.writeRestartShutdown",        R"({"type":0})",                                                             none},
    {"Auxiliary.writeFactoryType",            R"({"type":1})",                                                             changedEverything},
    {"Auxiliary.saveDeviceData",              "",                                                                          none},
    {"Auxiliary.writeSourceLostCnt",          R"({"type":1})",                                                             none},
    {"Auxiliary.pickCutoutPos",               R"({"enable":1,"type":1,"id":65792})",                                       none},
    {"Auxiliary.setUgradeConfig",             R"({"filePath":"/tmp/package"})",                                            none},
    {"Auxiliary.setDeviceTime",               R"({"year":2030,"month":1,"day":1})",                                        none},
};
// clang-format on

QString textOf(const char *text)
{
    struct Keys {
        const char *sign;
        const char *keys;
    };
    constexpr Keys all[] = {
        {"$I", R"("slotId":1,"connectorId":2)"},
        {"$O", R"("slotId":3,"connectorId":1)"},
        {"$S", R"("screenId":1,"screenType":1)"},
        {"$L",
         R"("layerIdenti":{"screenId":1,"screenType":1,"layerId":2,"layerType":1,"sceneType":4})"},
        {"$F", R"("fileId":1,"fileType":2)"},
    };
    QString result = QString::fromUtf8(text);
    for (const Keys &row : all)
        result.replace(QLatin1String(row.sign), QLatin1String(row.keys));
    return result;
}

QStringList wordsOf(const char *arguments)
{
    return textOf(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// A device with the state that a write needs.
class Bench : public SimulatedConnection {
public:
    explicit Bench(const Preparation &preparation) : SimulatedConnection(options())
    {
        for (const char *const line : preparation) {
            if (!line)
                break;
            const QStringList words = wordsOf(line);
            const CallResult result =
                call(model, words.at(0), words.mid(1), MissingKeys::SentAsDefaults);
            if (!result.ok)
                qFatal("%s\n%s", line, qUtf8Printable(result.error));
        }
    }

private:
    /// The clock is so fast that a restart takes no time.
    static Sim::SimOptions options()
    {
        Sim::SimOptions options;
        options.clockSpeed = 10000;
        return options;
    }
};

/// The answers of the reads that refresh \a scopes.
std::vector<std::string> answersTo(const std::shared_ptr<BizModel::Device> &device,
                                   const std::vector<Scope> &scopes)
{
    std::vector<std::string> answers;
    for (const Scope &read : readsFor(scopes))
        answers.push_back(call(device, read.readOperation(), read.readArguments()).answer);
    return answers;
}

bool isContained(const Scope &scope, const std::vector<Scope> &scopes)
{
    return std::any_of(scopes.begin(), scopes.end(),
                       [&](const Scope &named) { return named.contains(scope); });
}

} // namespace

void tst_WriteEffects::initTestCase()
{
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false"));
}

void tst_WriteEffects::everyWriteHasARow()
{
    QStringList writes;
    for (const Operation &operation : all()) {
        if (operation.direction() == Direction::Write)
            writes += operation.name();
    }
    QStringList tested;
    for (const Row &row : rows)
        tested += QLatin1String(row.name);
    QCOMPARE(tested, writes);
}

void tst_WriteEffects::writeChangesWhatTheTableNames_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(rows)); ++i)
        QTest::newRow(rows[i].name) << i;
}

void tst_WriteEffects::writeChangesWhatTheTableNames()
{
    QFETCH(int, index);
    const Row &row = rows[index];
    const Operation operation = *find(QLatin1String(row.name));
    const PreparedCall write =
        operation.prepare(wordsOf(row.argument), MissingKeys::SentAsDefaults);
    QCOMPARE(write.fault, QString());

    Bench bench(row.preparation);
    QString error;
    DeviceSnapshot before;
    QVERIFY2(before.read(bench.model, error), qPrintable(error));
    const std::vector<std::string> answersBefore = answersTo(bench.model, write.changes);
    const CallResult result = write.run(bench.model);
    const bool isSent = operation.command() != SSProxy::Command::InterfaceActualTiming;
    QVERIFY2(result.ok == isSent, qPrintable(result.error));
    DeviceSnapshot after;
    QTRY_VERIFY2(after.read(bench.model, error), qPrintable(error)); // The device may restart.
    const std::vector<std::string> answersAfter = answersTo(bench.model, write.changes);

    const std::set<Scope> changes = after.changesSince(before);
    for (const Scope &changed : changes)
        QVERIFY2(isContained(changed, write.changes), qPrintable(changed.readOperation()));
    for (const Scope &named : write.changes) {
        const bool isChanged = std::any_of(changes.begin(), changes.end(), [&](const Scope &scope) {
            return named.contains(scope);
        });
        QVERIFY2(isChanged, qPrintable(named.readOperation()));
    }
    for (std::size_t i = 0; i < answersBefore.size(); ++i)
        QVERIFY(answersBefore[i] != answersAfter[i]);
    QCOMPARE(write.changes.empty(), !operation.whyNothingChanges().isEmpty());
}

QTEST_GUILESS_MAIN(tst_WriteEffects)
#include "tst_writeeffects.moc"
