// Setups in files: diff and apply.

#include <support/tavoroctl/setupcalls.h>

#include <tavoroctl/output/jsonline.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace Tavoro::Ctl;

class tst_TavoroCtlSetup : public QObject, private SetupCalls {
    Q_OBJECT

private Q_SLOTS:
    void init() { startDevice(); }
    void cleanup() { m_bench.reset(); }

    void documentOfSyncHasNoDifference();
    void documentIsIndented_data();
    void documentIsIndented();

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
};

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
    startDevice(); // Another device in its initial state.
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
