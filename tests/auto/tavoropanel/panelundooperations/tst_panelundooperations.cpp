// Each operation that can be undone: the device has its former record afterwards.

#include <support/tavoropanel/undobench.h>

#include <QJsonArray>
#include <QJsonObject>

using namespace Tavoro;
using namespace Tavoro::Panel;

namespace {

/// An operation that can be undone, and an argument that changes the device. Keys that are missing
/// have their defaults.
struct Row {
    const char *operation;
    const char *argument; ///< $I, $S, $L, $F: the keys of an input, screen, layer, file.
    /// The argument of an earlier write: by default an interface follows its signal, and measures
    /// nothing new when that is restored.
    const char *earlier = nullptr;
};

// clang-format off
constexpr Row rows[] = {
//   operation                                argument
    {"Device.writeDeviceGeneral",             R"({"general":{"name":"East"}})"},
    {"Device.writeGenlockConfig",             R"({"genlock":{"type":1}})"},
    {"Device.writeSwap",                      R"({"swap":0})"},
    {"Device.writeZelk",                      R"({"zeLKEnable":1})"},
    {"Device.writeDeviceGroupInfo",           R"({"groupInfos":[{"groupId":"7","groupName":"a"}]})"},
    {"Device.writeInterfaceRelationInfo",     R"({"interfaceRelation":{"enable":1}})"},
    {"Device.writeOutputMapping",             R"({"general":{"type":3}})"},
    {"Device.writeDynamicRangConversion",     R"({"enable":1})"},
    {"Device.writeLoadToPGM",                 "1"},
    {"Interface.writeInterfaceGeneral",       R"([{$I,"general":{"name":"Camera"}}])"},
    {"Interface.writeInterfaceName",          R"([{$I,"general":{"name":"Camera"}}])"},
    {"Interface.writeTestPattern",            R"([{$I,"testPattern":{"enable":1}}])"},
    {"Interface.writePresetTiming",           R"([{$I,"presetTiming":{"refresh":50}}])"},
    {"Interface.writeImageQuality",           R"([{$I,"imageQuality":{"hue":9}}])"},
    {"Interface.writeCrop",                   R"([{$I,"crop":{"enable":1}}])"},
    {"Interface.writeCutoutGeneral",          R"([{$I,"cutoutGeneral":{"enable":1}}])"},
    {"Interface.writeHDCP",                   R"([{$I,"hdcp":{"enable":true}}])"},
    {"Interface.writeInterfaceColorDepth",    R"([{$I,"colorDepths":{"presetColorDepth":10}}])", R"([{$I,"colorDepths":{"presetColorDepth":8}}])"},
    {"Interface.writeInterfaceColorSpace",    R"([{$I,"colorSpaces":{"presetColorSpace":2}}])", R"([{$I,"colorSpaces":{"presetColorSpace":1}}])"},
    {"Interface.writeInterfaceColorRange",    R"([{$I,"colorRanges":{"presetColorRange":2}}])", R"([{$I,"colorRanges":{"presetColorRange":1}}])"},
    {"Interface.writeInterfaceFormatMapping", R"([{$I,"formatMapping":3}])"},
    {"Interface.writeInterfaceHDR",           R"([{$I,"HDR":{"colorGamut":{"presetColorGamut":2},"dynamicRange":{"presetDynamicRange":{"type":2}}}}])",
                                              R"([{$I,"HDR":{"colorGamut":{"presetColorGamut":1},"dynamicRange":{"presetDynamicRange":{"type":1}}}}])"},
    {"Screen.writeScreenEnable",              R"([{$S,"layout":{"x":40}}])"},
    {"Screen.writeScreenGeneral",             R"([{$S,"general":{"name":"Stage"}}])"},
    {"Screen.writeScreenBackgroundColor",     R"([{$S,"backgroundColor":{"R":255}}])"},
    {"Screen.writeLayout",                    R"([{$S,"layout":{"x":7}}])"},
    {"Screen.writePhysicalSize",              R"([{$S,"physicalSize":{"dotPitch":7}}])"},
    {"Screen.writePGMEdit",                   R"([{$S,"PGMEdit":1}])"},
    {"Screen.writeSelected",                  R"([{$S,"selected":1}])"},
    {"Screen.writeImageQuality",              R"([{$S,"imageQuality":{"hue":9}}])"},
    {"Screen.writeFreeze",                    R"([{$S,"freeze":1},{"screenId":2,"screenType":2,"freeze":1}])"},
    {"Screen.writeFTB",                       R"([{$S,"FTB":{"enable":1}}])"},
    {"Screen.writeTestPattern",               R"([{$S,"testPattern":{"enable":1}}])"},
    {"Screen.writeSwitchEffect",              R"([{$S,"switchEffect":{"time":9}}])"},
    {"Screen.writeScreenHDR",                 R"([{$S,"HDR":{"colorGamut":{"presetColorGamut":2}}}])"},
    {"Screen.writeScreenZelk",                R"([{$S,"screenZeLK":{"enable":1}}])"},
    {"Layer.writeEnableAll",                  R"([{$L,"zorder":8}])"},
    {"Layer.writeEnable",                     R"([{$L,"zorder":8}])"},
    {"Layer.writeZOrder",                     R"([{$L,"zorder":0}])"},
    {"Layer.writeGeneral",                    R"([{$L,"general":{"isFreeze":1}}])"},
    {"Layer.writeSource",                     R"([{$L,"source":{"general":{"type":0}}}])"},
    {"Layer.writeWindow",                     R"([{$L,"window":{"x":7}}])"},
    {"Layer.writeMask",                       R"([{$L,"mask":{"left":7}}])"},
    {"Layer.writeColor",                      R"([{$L,"testColor":{"enable":1}}])"},
    {"Layer.writeOpacity",                    R"([{$L,"opacity":7}])"},
    {"Layer.writeImageQuality",               R"([{$L,"imageQuality":{"hue":9}}])"},
    {"Layer.writeShadow",                     R"([{$L,"shadow":{"general":{"enable":1}}}])"},
    {"Layer.writeBorder",                     R"([{$L,"border":{"type":7}}])"},
    {"Layer.writeSelected",                   R"([{$L,"selected":1}])"},
    {"Layer.writeUMD",                        R"([{$L,"UMD":[]}])"},
    {"Layer.writeCutAndFill",                 R"([{$L,"cutFill":{"enable":true}}])"},
    {"Layer.writeRemoved",                    R"([{$L}])"},
    {"File.writeFilesInfo",                   R"([{$F,"general":{"name":"sky"},"desFileId":5,"desFileType":0}])"},
};
// clang-format on

constexpr char inputKeys[] = R"("slotId":1,"connectorId":1,"splitId":0)";
constexpr char screenKeys[] = R"("screenId":1,"screenType":1)";
constexpr char layerKeys[] =
    R"("layerIdenti":{"screenId":1,"screenType":1,"layerId":1,"layerType":1,"sceneType":2})";
constexpr char fileKeys[] = R"("fileId":3,"fileType":2)";

/// \a given in the shape of \a sample, whose values stay where \a given has none.
QJsonValue completed(const QJsonValue &sample, const QJsonValue &given)
{
    if (sample.isArray() && given.isArray() && !sample.toArray().isEmpty()) {
        QJsonArray elements;
        const QJsonArray records = given.toArray();
        for (const QJsonValue &record : records)
            elements.append(completed(sample.toArray().first(), record));
        return elements;
    }
    if (!sample.isObject() || !given.isObject())
        return given.isUndefined() ? sample : given;
    QJsonObject record = sample.toObject();
    const QJsonObject values = given.toObject();
    for (auto value = values.begin(); value != values.end(); ++value)
        record.insert(value.key(), completed(record.value(value.key()), value.value()));
    return record;
}

Write writeOf(const QString &operation, QString argument)
{
    argument.replace(QLatin1String("$I"), QLatin1String(inputKeys));
    argument.replace(QLatin1String("$S"), QLatin1String(screenKeys));
    argument.replace(QLatin1String("$L"), QLatin1String(layerKeys));
    argument.replace(QLatin1String("$F"), QLatin1String(fileKeys));
    const QJsonValue given = Operations::jsonValue(argument.toStdString());
    const std::string sample = Operations::find(operation)->arguments().front().sample;
    return {operation, sample.empty() ? given : completed(Operations::jsonValue(sample), given)};
}

} // namespace

class tst_PanelUndoOperations : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void deviceHasItsFormerRecordAfterUndo_data();
    void deviceHasItsFormerRecordAfterUndo();
};

void tst_PanelUndoOperations::deviceHasItsFormerRecordAfterUndo_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("earlier");
    for (const Row &row : rows)
        QTest::newRow(row.operation)
            << QString::fromLatin1(row.operation) << QString::fromLatin1(row.argument)
            << QString::fromLatin1(row.earlier);
}

void tst_PanelUndoOperations::deviceHasItsFormerRecordAfterUndo()
{
    QFETCH(const QString, operation);
    QFETCH(const QString, argument);
    QFETCH(const QString, earlier);
    UndoBench bench;
    QVERIFY(bench.openSelected());
    if (operation.startsWith(QLatin1String("File.")))
        bench.prepare(
            writeOf(QStringLiteral("File.writeCreateImageFile"),
                    QStringLiteral(R"([{$F,"source":{"id":65792,"type":1,"zoomRatio":8}}])")));
    if (!earlier.isEmpty())
        bench.prepare(writeOf(operation, earlier));

    const DeviceSnapshot before = bench.snapshot();
    const Outcome outcome =
        resultOf(bench.changes.callLatestByName({}, *bench.wall, writeOf(operation, argument)));
    QVERIFY2(outcome, qUtf8Printable(outcome.text()));
    const DeviceSnapshot after = bench.snapshot();
    QVERIFY(!after.changesSince(before).empty());
    QTRY_VERIFY(bench.changes.canUndo());

    QVERIFY(bench.undo());
    QCOMPARE(bench.snapshot().changesSince(before).size(), std::size_t(0));
    QVERIFY(!bench.changes.canUndo());
    QVERIFY(bench.redo());
    QCOMPARE(bench.snapshot().changesSince(after).size(), std::size_t(0));
    QVERIFY(!bench.changes.canRedo());
}

QTEST_MAIN(tst_PanelUndoOperations)
#include "tst_panelundooperations.moc"
