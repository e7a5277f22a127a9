// Setups in files: diff and apply.

#include <support/tavoroctl/toolcalls.h>

#include <tavoroctl/model/readonlykeys.h>
#include <tavoroctl/model/setup.h>
#include <tavoroctl/model/setupwrites.h>
#include <tavoroctl/output/jsonline.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>

#include <functional>
#include <set>

using namespace Tavoro::Ctl;
using Tavoro::Operations::ScopeKind;

class tst_TavoroCtlSetup : public QObject, private ToolCalls {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void documentOfSyncHasNoDifference();
    void documentIsIndented_data();
    void documentIsIndented();
    void everyKeyIsWrittenOrReadOnly_data();
    void everyKeyIsWrittenOrReadOnly();
    void readOnlyKeysAreThose();

    void appliedDocumentHasNoDifference_data();
    void appliedDocumentHasNoDifference();
    void setupOfAnotherDeviceIsTakenOver();
    void layersAreReordered();
    void screensExchangeTheirOutputs();
    void dryRunSendsNothing();
    void dryRunPrintsABatch();
    void keysThatTheDocumentLacksKeepTheirValues();
    void invalidDocumentsAreRefused_data();
    void invalidDocumentsAreRefused();
    void refusedWriteIsReported();

private:
    QJsonObject sync() const
    {
        return QJsonDocument::fromJson(m_bench->run("sync", {"--json"}).output).object();
    }
    Run runWith(const QByteArray &command, const QJsonObject &document,
                const QByteArrayList &options = {}) const
    {
        const QByteArray path = m_bench->makeFile("setup.json", QJsonDocument(document).toJson());
        return m_bench->run(command, QByteArrayList{path} + options);
    }
};

namespace {

/// Changes the value at \a path, such as "screens/0/general/name", by \a change.
QJsonValue changedAt(const QJsonValue &value, QStringList path,
                     const std::function<QJsonValue(const QJsonValue &)> &change)
{
    if (path.isEmpty())
        return change(value);
    const QString step = path.takeFirst();
    if (value.isArray()) {
        QJsonArray list = value.toArray();
        list[step.toInt()] = changedAt(list.at(step.toInt()), path, change);
        return list;
    }
    QJsonObject object = value.toObject();
    object.insert(step, changedAt(object.value(step), path, change));
    return object;
}

QJsonObject with(const QJsonObject &setup, const char *path, const QJsonValue &value)
{
    return changedAt(setup, QString::fromLatin1(path).split(QLatin1Char('/')),
                     [&](const QJsonValue &) { return value; })
        .toObject();
}

/// The paths of all texts and numbers in \a value.
QList<QStringList> leavesOf(const QJsonValue &value)
{
    QList<QStringList> leaves;
    const auto add = [&](const QString &step, const QJsonValue &member) {
        for (const QStringList &rest : leavesOf(member))
            leaves += QStringList{step} + rest;
    };
    if (value.isObject()) {
        const QJsonObject object = value.toObject();
        for (const QString &key : object.keys())
            add(key, object.value(key));
    } else if (value.isArray()) {
        for (int i = 0; i < value.toArray().size(); ++i)
            add(QString::number(i), value.toArray().at(i));
    } else {
        leaves += QStringList();
    }
    return leaves;
}

/// The path as differences name it: "subcards[0].online".
QString pathText(const QStringList &steps)
{
    QString text;
    for (const QString &step : steps) {
        bool isIndex = false;
        step.toInt(&isIndex);
        if (isIndex)
            text += QLatin1Char('[') + step + QLatin1Char(']');
        else
            text += (text.isEmpty() ? QString() : QStringLiteral(".")) + step;
    }
    return text;
}

struct ListOfKind {
    ScopeKind kind;
    const char *key;
    bool isIdentity(const QString &path) const
    {
        static const QStringList keys{QStringLiteral("screenId"), QStringLiteral("screenType"),
                                      QStringLiteral("fileId"), QStringLiteral("fileType")};
        return keys.contains(path) || path.startsWith(QLatin1String("layerIdenti."))
            || path.startsWith(QLatin1String("interfaceId."));
    }
};

constexpr ListOfKind lists[] = {
    {ScopeKind::Device, "device"},   {ScopeKind::Interfaces, "interfaces"},
    {ScopeKind::Screens, "screens"}, {ScopeKind::Layers, "layers"},
    {ScopeKind::Files, "files"},
};

} // namespace

void tst_TavoroCtlSetup::init()
{
    m_bench = std::make_unique<ToolBench>();
    const QByteArray file = m_bench->makeFile("nine", "123456789");
    QCOMPARE(m_bench->run("push", {file}).exitCode, 0);
}

void tst_TavoroCtlSetup::cleanup()
{
    m_bench.reset();
}

void tst_TavoroCtlSetup::documentOfSyncHasNoDifference()
{
    const Run diff = runWith("diff", sync());
    QCOMPARE(diff.output + diff.errors, QByteArray());
    QCOMPARE(diff.exitCode, 0);
    const Run apply = runWith("apply", sync());
    QCOMPARE(apply.output + apply.errors, QByteArray());
    QCOMPARE(apply.exitCode, 0);
}

void tst_TavoroCtlSetup::documentIsIndented_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("nested") << QByteArray(R"({"b":1,"a":[{"c":"x"},2]})")
                            << QByteArray("{\n  \"b\": 1,\n  \"a\": [\n    {\n      \"c\": \"x\"\n"
                                          "    },\n    2\n  ]\n}");
    QTest::newRow("empty") << QByteArray(R"({"a":[],"b":{}})")
                           << QByteArray("{\n  \"a\": [],\n  \"b\": {}\n}");
    QTest::newRow("signs in texts")
        << QByteArray(R"({"a":"{[,:\"]}\\"})") << QByteArray("{\n  \"a\": \"{[,:\\\"]}\\\\\"\n}");
}

void tst_TavoroCtlSetup::documentIsIndented()
{
    QFETCH(QByteArray, json);
    QFETCH(QByteArray, text);
    QCOMPARE(QByteArray::fromStdString(indented(json.toStdString())), text);
}

void tst_TavoroCtlSetup::everyKeyIsWrittenOrReadOnly_data()
{
    QTest::addColumn<int>("list");
    for (std::size_t i = 0; i < std::size(lists); ++i)
        QTest::newRow(lists[i].key) << int(i);
}

void tst_TavoroCtlSetup::everyKeyIsWrittenOrReadOnly()
{
    QFETCH(int, list);
    const ListOfKind &row = lists[list];
    const QString key = QLatin1String(row.key);
    const QJsonObject present = sync();
    const QJsonValue records = present.value(key);
    QStringList place{key};
    if (records.isArray())
        place += QString::number(0);
    const QList<QStringList> leaves =
        leavesOf(records.isArray() ? records.toArray().at(0) : records);
    QVERIFY(leaves.size() > 4);
    for (const QStringList &leaf : leaves) {
        const QString path = pathText(leaf);
        if (row.isIdentity(path))
            continue;
        const QJsonObject wanted =
            changedAt(present, place + leaf, [](const QJsonValue &value) -> QJsonValue {
                return value.isString() ? QJsonValue(value.toString() + QLatin1Char('x'))
                                        : QJsonValue(value.toInt() == 0 ? 1 : 0);
            }).toObject();
        QString fault;
        const std::vector<SetupChange> changes = compareSetups(present, wanted, fault);
        QCOMPARE(fault, QString());
        if (isReadOnly(row.kind, path)) {
            QVERIFY2(changes.empty(), qPrintable(path));
            continue;
        }
        QVERIFY2(changes.size() == 1 && changes.front().differences.size() == 1, qPrintable(path));
        QCOMPARE(changes.front().differences.front().path, path);
        const std::vector<SetupWrite> writes = writesFor(changes, fault);
        QVERIFY2(fault.isEmpty(), qPrintable(path + QStringLiteral(": ") + fault));
        QVERIFY2(!writes.empty(), qPrintable(path));
    }
}

void tst_TavoroCtlSetup::readOnlyKeysAreThose()
{
    static const QRegularExpression index(QStringLiteral("\\[\\d+\\]"));
    std::set<QString> found; // Down to the third key.
    const QJsonObject present = sync();
    for (const ListOfKind &row : lists) {
        const QJsonValue records = present.value(QLatin1String(row.key));
        const QJsonValue record = records.isArray() ? records.toArray().at(0) : records;
        for (const QStringList &leaf : leavesOf(record)) {
            const QString path = pathText(leaf);
            const QString shown = path.section(QLatin1Char('.'), 0, 2);
            if (isReadOnly(row.kind, path))
                found.insert(QLatin1String(row.key) + QLatin1Char('.')
                             + QString(shown).replace(index, QStringLiteral("[]")));
        }
    }
    QByteArray list;
    for (const QString &path : found)
        list += path.toUtf8() + '\n';
    QCOMPARE(list,
             QByteArray("device.general.status\n"
                        "device.genlockSignal.extSignalIn\n"
                        "device.genlockSignal.status\n"
                        "device.networks[].MAC\n"
                        "device.networks[].index\n"
                        "device.powers[].iSignal\n"
                        "device.powers[].powerId\n"
                        "device.powers[].status\n"
                        "device.subcards[].boardId\n"
                        "device.subcards[].cardType\n"
                        "device.subcards[].connectors[].id\n"
                        "device.subcards[].connectors[].type\n"
                        "device.subcards[].modelId\n"
                        "device.subcards[].online\n"
                        "device.subcards[].slotId\n"
                        "files.size.hashSum\n"
                        "files.size.height\n"
                        "files.size.length\n"
                        "files.size.width\n"
                        "files.source.id\n"
                        "files.source.type\n"
                        "files.source.zoomRatio\n"
                        "interfaces.HDCP.actualType\n"
                        "interfaces.HDR.colorGamut.actualColorGamut\n"
                        "interfaces.HDR.dynamicRange.actualDynamicRange\n"
                        "interfaces.actualTiming.compatMode\n"
                        "interfaces.actualTiming.horizontal.addTime\n"
                        "interfaces.actualTiming.horizontal.frontPorch\n"
                        "interfaces.actualTiming.horizontal.sync\n"
                        "interfaces.actualTiming.horizontal.syncPolarity\n"
                        "interfaces.actualTiming.horizontal.totalTime\n"
                        "interfaces.actualTiming.interlaced\n"
                        "interfaces.actualTiming.refresh\n"
                        "interfaces.actualTiming.vertical.addTime\n"
                        "interfaces.actualTiming.vertical.frontPorch\n"
                        "interfaces.actualTiming.vertical.sync\n"
                        "interfaces.actualTiming.vertical.syncPolarity\n"
                        "interfaces.actualTiming.vertical.totalTime\n"
                        "interfaces.colorDepths.actualColorDepth\n"
                        "interfaces.colorRanges.actualColorRange\n"
                        "interfaces.colorSpaces.actualColorSpace\n"
                        "interfaces.general.type\n"
                        "screens.HDR.colorGamut.actualColorGamut\n"
                        "screens.HDR.dynamicRange.actualDynamicRange\n"
                        "screens.screenZeLK.status\n"
                        "screens.tbar.percent\n"));
}

void tst_TavoroCtlSetup::appliedDocumentHasNoDifference_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QByteArray>("json"); // In a list.
    QTest::addColumn<QByteArray>("difference");
    // clang-format off
    QTest::newRow("name of the device") << QByteArray("device/general/name") << QByteArray(R"(["East"])")
        << QByteArray("device: general.name \"Simulated device\" -> \"East\"\n");
    QTest::newRow("preset to programme") << QByteArray("device/presetApplyType") << QByteArray("[1]")     << QByteArray("device: presetApplyType 0 -> 1\n");
    QTest::newRow("ZeLK")               << QByteArray("device/zeLKEnable")       << QByteArray("[1]")     << QByteArray("device: zeLKEnable 0 -> 1\n");
    QTest::newRow("groups")             << QByteArray("device/groupInfos")       << QByteArray(R"([[{"groupName":"East","groupId":"7"}]])")
        << QByteArray("device: groupInfos[0] nothing -> {\"groupId\":\"7\",\"groupName\":\"East\"}\n");
    QTest::newRow("mode of a connector") << QByteArray("device/subcards/0/connectors/0/workMode") << QByteArray("[2]")
        << QByteArray("device: subcards[0].connectors[0].workMode 0 -> 2\n");
    QTest::newRow("network")            << QByteArray("device/networks/0/gateway") << QByteArray(R"(["10.0.0.9"])") << QByteArray();
    QTest::newRow("preset depth")       << QByteArray("interfaces/0/colorDepths/presetColorDepth") << QByteArray("[10]")
        << QByteArray("interface 1.1.0: colorDepths.presetColorDepth 255 -> 10\n");
    QTest::newRow("HDCP")               << QByteArray("interfaces/0/HDCP/enable") << QByteArray("[1]")
        << QByteArray("interface 1.1.0: HDCP.enable 0 -> 1\n");
    QTest::newRow("freeze")             << QByteArray("screens/0/freeze")        << QByteArray("[1]")     << QByteArray("screen 1 (type 1): freeze 0 -> 1\n");
    QTest::newRow("place of a screen")  << QByteArray("screens/0/layout/x")      << QByteArray("[64]")
        << QByteArray("screen 1 (type 1): layout.x 0 -> 64\n");
    QTest::newRow("size of a screen")   << QByteArray("screens/0/mosaic/window/width") << QByteArray("[1920]")
        << QByteArray("screen 1 (type 1): mosaic.window.width 3840 -> 1920\n");
    QTest::newRow("no screens")         << QByteArray("screens")                 << QByteArray("[[]]")    << QByteArray();
    QTest::newRow("window of a layer")  << QByteArray("layers/0/window/x")       << QByteArray("[64]")    << QByteArray();
    QTest::newRow("no layers")          << QByteArray("layers")                  << QByteArray("[[]]")    << QByteArray();
    QTest::newRow("name of a file")     << QByteArray("files/0/general/name")    << QByteArray(R"(["ten"])")
        << QByteArray("file 0:0: general.name \"nine\" -> \"ten\"\n");
    // clang-format on
}

void tst_TavoroCtlSetup::appliedDocumentHasNoDifference()
{
    QFETCH(QByteArray, path);
    QFETCH(QByteArray, json);
    QFETCH(QByteArray, difference);
    const QJsonObject before = sync();
    QJsonObject wanted =
        with(before, path.constData(), QJsonDocument::fromJson(json).array().at(0));
    if (path == "screens") // Their layers are deleted with them.
        wanted.remove(QStringLiteral("layers"));
    const Run differs = runWith("diff", wanted);
    QVERIFY(!differs.output.isEmpty());
    if (!difference.isEmpty())
        QCOMPARE(differs.output, difference);
    QCOMPARE(differs.exitCode, 1);
    const Run apply = runWith("apply", wanted);
    QVERIFY2(apply.exitCode == 0, apply.errors.constData());
    const Run same = runWith("diff", wanted);
    QCOMPARE(same.output + same.errors, QByteArray());
    QCOMPARE(same.exitCode, 0);

    // And back: what was deleted is created again.
    const Run back = runWith("apply", before);
    QVERIFY2(back.exitCode == 0, back.errors.constData());
    QCOMPARE(runWith("diff", before).output, QByteArray());
}

void tst_TavoroCtlSetup::setupOfAnotherDeviceIsTakenOver()
{
    const QJsonObject before = sync();
    for (const char *line : {"Screen.writeTake [{\"screenId\":1,\"screenType\":1,\"switchEffect\":{"
                             "\"time\":5,\"direction\":0,\"type\":1}}]",
                             "Layer.writeRemovedAll 2 2",
                             "Screen.writeScreenDeleted [{\"screenId\":3,\"screenType\":3}]"}) {
        const Run write = run({"batch", host()}, QByteArray(line) + '\n');
        QVERIFY2(write.exitCode == 0, write.errors.constData());
    }
    const QJsonObject wanted = sync();
    QVERIFY(wanted != before);
    init(); // Another device in its initial state.
    const Run apply = runWith("apply", wanted);
    QVERIFY2(apply.exitCode == 0, apply.errors.constData());
    QCOMPARE(runWith("diff", wanted).output, QByteArray());
    const Run back = runWith("apply", before);
    QVERIFY2(back.exitCode == 0, back.errors.constData());
    QCOMPARE(runWith("diff", before).output, QByteArray());
}

void tst_TavoroCtlSetup::layersAreReordered()
{
    QJsonObject wanted = sync();
    const QJsonArray layers = wanted.value(QLatin1String("layers")).toArray();
    QVERIFY(layers.size() > 3);
    for (int i = 0; i < 4; ++i) { // The first four are of one scene.
        const QByteArray path = "layers/" + QByteArray::number(i) + "/zorder";
        wanted = with(wanted, path.constData(), 3 - i);
    }
    const Run apply = runWith("apply", wanted);
    QVERIFY2(apply.exitCode == 0, apply.errors.constData());
    QCOMPARE(runWith("diff", wanted).output, QByteArray());
}

void tst_TavoroCtlSetup::screensExchangeTheirOutputs()
{
    const QJsonObject before = sync();
    const auto output = [&](int screen) {
        return before.value(QLatin1String("screens"))[screen][QLatin1String(
            "mosaic")][QLatin1String("outputs")][0][QLatin1String("interfaceId")];
    };
    QJsonObject wanted = with(before, "screens/0/mosaic/outputs/0/interfaceId", output(1));
    wanted = with(wanted, "screens/1/mosaic/outputs/0/interfaceId", output(0));
    const Run apply = runWith("apply", wanted);
    QVERIFY2(apply.exitCode == 0, apply.errors.constData());
    QCOMPARE(apply.output.count("Screen.writeScreenEnable"), 4); // Each screen gives up and takes.
    QCOMPARE(runWith("diff", wanted).output, QByteArray());
}

void tst_TavoroCtlSetup::dryRunSendsNothing()
{
    const QJsonObject before = sync();
    const QJsonObject wanted = with(before, "device/swap", 0);
    const Run dry = runWith("apply", wanted, {"--dry-run"});
    QCOMPARE(dry.output, QByteArray("Device.writeSwap {\"swap\":0}\n"));
    QCOMPARE(dry.exitCode, 0);
    QCOMPARE(sync(), before);
}

void tst_TavoroCtlSetup::dryRunPrintsABatch()
{
    const QJsonObject wanted = with(with(sync(), "device/swap", 0), "screens/0/freeze", 1);
    const QByteArray lines = runWith("apply", wanted, {"--dry-run"}).output;
    QCOMPARE(run({"batch", host()}, lines).exitCode, 0);
    QCOMPARE(runWith("diff", wanted).exitCode, 0);
}

void tst_TavoroCtlSetup::keysThatTheDocumentLacksKeepTheirValues()
{
    const QJsonObject wanted =
        QJsonDocument::fromJson(R"({"formatVersion":1,"device":{"general":{"name":"East"}},)"
                                R"("interfaces":[{"interfaceId":{"slotId":1,"connectorId":1,)"
                                R"("splitId":0},"imageQuality":{"hue":9}}]})")
            .object();
    QJsonObject after = with(sync(), "device/general/name", QStringLiteral("East"));
    after = with(after, "interfaces/0/imageQuality/hue", 9);
    QCOMPARE(runWith("apply", wanted).exitCode, 0);
    QCOMPARE(sync(), after);
}

void tst_TavoroCtlSetup::invalidDocumentsAreRefused_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QByteArray>("fault");
    // clang-format off
    QTest::newRow("not JSON")       << QByteArray("{\n\"device\":nope}")                       << QByteArray("FILE: line 2: illegal value");
    QTest::newRow("no version")     << QByteArray("{}")                                    << QByteArray("FILE: \"formatVersion\" is not 1");
    QTest::newRow("other version")  << QByteArray(R"({"formatVersion":2})")                << QByteArray("FILE: \"formatVersion\" is not 1");
    QTest::newRow("unknown list")   << QByteArray(R"({"formatVersion":1,"screen":[]})")
        << QByteArray("FILE: the document: unknown key \"screen\"; did you mean \"screens\"");
    QTest::newRow("no list")        << QByteArray(R"({"formatVersion":1,"screens":{}})")   << QByteArray("FILE: \"screens\" is not a list");
    QTest::newRow("no object")      << QByteArray(R"({"formatVersion":1,"device":[]})")    << QByteArray("FILE: \"device\" is not an object");
    QTest::newRow("no identity")    << QByteArray(R"({"formatVersion":1,"screens":[{"screenId":1}]})")
        << QByteArray("FILE: element 0 of \"screens\" does not identify an object");
    QTest::newRow("twice")          << QByteArray(R"({"formatVersion":1,"files":[{"fileId":0,"fileType":0},{"fileId":0,"fileType":0}]})")
        << QByteArray("FILE: file 0:0 is in the document twice");
    QTest::newRow("unknown key")    << QByteArray(R"({"formatVersion":1,"device":{"swop":1}})")
        << QByteArray("device: unknown key \"swop\"; did you mean \"swap\"");
    QTest::newRow("out of range")   << QByteArray(R"({"formatVersion":1,"device":{"general":{"name":"East"},"swap":300}})")
        << QByteArray("Device.writeSwap, argument 1: line 1, column 9: 300 would be sent as 44; the range is 0 to 255");
    // clang-format on
}

void tst_TavoroCtlSetup::invalidDocumentsAreRefused()
{
    QFETCH(QByteArray, document);
    QFETCH(QByteArray, fault);
    const QJsonObject before = sync();
    const QByteArray path = m_bench->makeFile("setup.json", document);
    const Run apply = m_bench->run("apply", {path});
    fault.replace("FILE", path);
    QCOMPARE(apply.errors, "tavoroctl: " + fault + '\n');
    QCOMPARE(apply.exitCode, 2);
    QCOMPARE(sync(), before);
}

void tst_TavoroCtlSetup::refusedWriteIsReported()
{
    const QJsonObject wanted = with(with(sync(), "device/swap", 0), "screens/0/freeze", 9);
    const Run apply = runWith("apply", wanted);
    QCOMPARE(apply.output, QByteArray("Device.writeSwap {\"swap\":0}\n"));
    QCOMPARE(apply.errors,
             QByteArray("Set screen freeze information failed: hardware error:4 (a value is out of "
                        "range) .\n"));
    QCOMPARE(apply.exitCode, 4);
}

QTEST_GUILESS_MAIN(tst_TavoroCtlSetup)
#include "tst_tavoroctlsetup.moc"
