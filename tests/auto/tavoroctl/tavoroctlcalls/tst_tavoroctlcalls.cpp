// Options of calls and batches: merged records, dry runs, and the first error as the end.

#include <support/tavoroctl/toolcalls.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

class tst_TavoroCtlCalls : public QObject, private ToolCalls {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void mergeKeepsWhatIsNotGiven_data();
    void mergeKeepsWhatIsNotGiven();
    void mergeOfSeveralObjectsKeepsEach();
    void operationsWithoutAReadCannotBeMerged_data();
    void operationsWithoutAReadCannotBeMerged();
    void mergeOfAMissingObjectIsRefused();
    void failedReadOfAMergeSendsNoWrite();
    void optionsThatExcludeEachOtherAreRefused();

    void dryRunPrintsHeadAndBody_data();
    void dryRunPrintsHeadAndBody();
    void dryRunOfABatchReportsInvalidLines();
    void batchStopsAfterTheFirstErrorOnRequest();
    void quietShowsOnlyAnswersAndErrors();

private:
    /// The record that a read returns, without blanks.
    QByteArray read(const QByteArrayList &words) const { return call(words).output.trimmed(); }
};

void tst_TavoroCtlCalls::init()
{
    m_bench = std::make_unique<ToolBench>();
}

void tst_TavoroCtlCalls::cleanup()
{
    m_bench.reset();
}

void tst_TavoroCtlCalls::mergeKeepsWhatIsNotGiven_data()
{
    QTest::addColumn<QByteArray>("operation");
    QTest::addColumn<QByteArray>("record");
    QTest::addColumn<QByteArrayList>("read");
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const QByteArrayList device{"Device.readDetails"};
    const QByteArrayList layers{"Layer.readDetails", "1", "1", "2", "-1"};
    const QByteArrayList screens{"Screen.readDetails", "1", "1", "-1"};
    const QByteArrayList interfaces{"Interface.readDetails", "0", "-1"};
    // clang-format off
    QTest::newRow("device")    << QByteArray("Device.writeDeviceGeneral") << QByteArray(R"({"general":{"name":"East"}})") << device
        << QByteArray(R"("general":{"name":"Simulated device","status":1})") << QByteArray(R"("general":{"name":"East","status":1})");
    QTest::newRow("layer")     << QByteArray("Layer.writeWindow")
        << QByteArray(R"([{"layerIdenti":{"screenId":1,"screenType":1,"layerId":1,"layerType":1,"sceneType":2},"window":{"x":100}}])") << layers
        << QByteArray(R"("window":{"x":0,"y":0,"width":1280,"height":1080})") << QByteArray(R"("window":{"x":100,"y":0,"width":1280,"height":1080})");
    QTest::newRow("screen")    << QByteArray("Screen.writeScreenGeneral") << QByteArray(R"([{"screenId":1,"screenType":1,"general":{"name":"East"}}])")
        << screens << QByteArray(R"("general":{"name":"Main","nameGB2312":"Main","index":1})")
        << QByteArray(R"("general":{"name":"East","nameGB2312":"Main","index":1})");
    QTest::newRow("interface") << QByteArray("Interface.writeImageQuality")
        << QByteArray(R"([{"slotId":1,"connectorId":1,"splitId":0,"imageQuality":{"contrast":{"all":40}}}])") << interfaces
        << QByteArray(R"("imageQuality":{"contrast":{"all":50,)") << QByteArray(R"("imageQuality":{"contrast":{"all":40,)");
    // clang-format on
}

void tst_TavoroCtlCalls::mergeKeepsWhatIsNotGiven()
{
    QFETCH(QByteArray, operation);
    QFETCH(QByteArray, record);
    QFETCH(QByteArrayList, read);
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    const QByteArray present = tst_TavoroCtlCalls::read(read);
    QVERIFY2(present.contains(before), present.constData());
    const Run write = run({"call", "--merge", host(), operation, record});
    QVERIFY2(write.exitCode == 0, write.errors.constData());
    QByteArray expected = present;
    const auto place = expected.indexOf(before);
    expected.replace(place, before.size(), after);
    const QByteArray changed = tst_TavoroCtlCalls::read(read);
    QCOMPARE(changed, expected);
}

void tst_TavoroCtlCalls::mergeOfSeveralObjectsKeepsEach()
{
    const auto layer = [](int id, int number) {
        return R"({"layerIdenti":{"screenId":1,"screenType":1,"layerId":)" + QByteArray::number(id)
            + R"(,"layerType":1,"sceneType":2},"general":{"name":"Layer )"
            + QByteArray::number(number) + R"("}})";
    };
    const QByteArray names = '[' + layer(1, 7) + ',' + layer(2, 8) + ']';
    const Run write = run({"call", "--merge", host(), "Layer.writeGeneral", names});
    QVERIFY2(write.exitCode == 0, write.errors.constData());
    const QByteArray layers = read({"Layer.readDetails", "1", "1", "2", "-1"});
    QVERIFY2(layers.contains(R"("name":"Layer 7","isBackground":0)"), layers.constData());
    QVERIFY2(layers.contains(R"("name":"Layer 8","isBackground":0)"), layers.constData());
}

void tst_TavoroCtlCalls::operationsWithoutAReadCannotBeMerged_data()
{
    QTest::addColumn<QByteArrayList>("words");
    QTest::addColumn<QByteArray>("fault");
    // clang-format off
    QTest::newRow("preset") << QByteArrayList{"Preset.presetApply", "[{}]"}
        << QByteArray("Preset.presetApply cannot be merged: no read returns what it writes");
    QTest::newRow("clock")  << QByteArrayList{"Auxiliary.setDeviceTime", "{}"}
        << QByteArray("Auxiliary.setDeviceTime cannot be merged: no read returns what it writes");
    QTest::newRow("take")   << QByteArrayList{"Screen.writeTake", R"([{"screenId":1,"screenType":1}])"}
        << QByteArray("Screen.writeTake cannot be merged: no read returns what it writes");
    QTest::newRow("read")   << QByteArrayList{"Screen.readDetails", "1", "1", "-1"} << QByteArray("--merge needs a write and its record");
    QTest::newRow("key")    << QByteArrayList{"Device.writeSwap", R"({"swop":1})"}
        << QByteArray("Device.writeSwap, argument 1: line 1, column 2: unknown key \"swop\"; did you mean \"swap\"; the keys here are: swap");
    // clang-format on
}

void tst_TavoroCtlCalls::operationsWithoutAReadCannotBeMerged()
{
    QFETCH(QByteArrayList, words);
    QFETCH(QByteArray, fault);
    const Run write = run(QByteArrayList{"call", "--merge", host()} + words);
    QCOMPARE(write.errors, "tavoroctl: " + fault + '\n');
    QCOMPARE(write.exitCode, 2);
}

void tst_TavoroCtlCalls::mergeOfAMissingObjectIsRefused()
{
    const Run write = run({"call", "--merge", host(), "Screen.writeFTB",
                           R"([{"screenId":77,"screenType":1,"FTB":{"enable":1}}])"});
    QCOMPARE(write.errors,
             QByteArray("tavoroctl: Screen.writeFTB: the device has no object with this "
                        "identity\n"));
    QCOMPARE(write.exitCode, 2);
}

void tst_TavoroCtlCalls::failedReadOfAMergeSendsNoWrite()
{
    m_bench->console(QStringLiteral("fault add status=8,code=DeviceDetail,count=1"));
    const Run write = run({"call", "--merge", host(), "Device.writeSwap", R"({"swap":0})"});
    QCOMPARE(write.errors,
             QByteArray("Get device detail information failed: hardware error:8 (not possible now, "
                        "for example because of other work or of a limit) .\n"));
    QCOMPARE(write.exitCode, 4);
    QVERIFY(read({"Device.readDetails"}).contains(R"("swap":1)"));
}

void tst_TavoroCtlCalls::optionsThatExcludeEachOtherAreRefused()
{
    const QByteArray fault = "tavoroctl: --merge goes neither with --defaults nor with --dry-run\n";
    for (const char *other : {"--defaults", "--dry-run"}) {
        const Run write = run({"call", "--merge", other, host(), "Device.writeSwap", "{}"});
        QCOMPARE(write.errors, fault);
        QCOMPARE(write.exitCode, 2);
        QCOMPARE(run({"batch", "--merge", other, host()}).errors, fault);
    }
}

void tst_TavoroCtlCalls::dryRunPrintsHeadAndBody_data()
{
    QTest::addColumn<QByteArrayList>("words");
    QTest::addColumn<QByteArray>("output");
    // clang-format off
    QTest::newRow("write")      << QByteArrayList{"Device.writeSwap", R"({"swap":0})"}
        << QByteArray("Device.writeSwap: code 0x1107, type 2, filters 0 0 0 0, 10 bytes\n{\"swap\":0}\n");
    QTest::newRow("read")       << QByteArrayList{"Screen.readDetails", "7", "1", "-1"}
        << QByteArray("Screen.readDetails: code 0x1300, type 1, filters 0 255 1 7, 0 bytes\n");
    QTest::newRow("without a body") << QByteArrayList{"Layer.writeRemovedAll", "1", "2"}
        << QByteArray("Layer.writeRemovedAll: code 0x140E, type 2, filters 255 255 2 1, 2 bytes\n[]\n");
    // clang-format on
}

void tst_TavoroCtlCalls::dryRunPrintsHeadAndBody()
{
    QFETCH(QByteArrayList, words);
    QFETCH(QByteArray, output);
    // The host does not exist.
    const Run dry = run(QByteArrayList{"call", "--dry-run", "nowhere.invalid"} + words);
    QCOMPARE(dry.output, output);
    QCOMPARE(dry.errors, QByteArray());
    QCOMPARE(dry.exitCode, 0);
}

void tst_TavoroCtlCalls::dryRunOfABatchReportsInvalidLines()
{
    const Run dry = run({"batch", "--dry-run", "nowhere.invalid"},
                        "Device.writeSwap {\"swap\":0}\nDevice.writeSwap {\"swap\":300}\n");
    QCOMPARE(dry.output,
             QByteArray("Device.writeSwap: code 0x1107, type 2, filters 0 0 0 0, 10 bytes\n"
                        "{\"swap\":0}\n"));
    QCOMPARE(dry.errors,
             QByteArray("tavoroctl: line 2 of the batch: Device.writeSwap, argument 1: line 1, "
                        "column 9: 300 would be sent as 44; the range is 0 to 255\n"));
    QCOMPARE(dry.exitCode, 2);
}

void tst_TavoroCtlCalls::batchStopsAfterTheFirstErrorOnRequest()
{
    const QByteArray lines = "Device.writeSwap {\"swap\":2}\nDevice.writeSwap {\"swap\":0}\n";
    const Run batch = run({"batch", "--stop-on-error", host()}, lines);
    QCOMPARE(batch.errors,
             QByteArray("line 1 of the batch: Set device swap status information failed: hardware "
                        "error:4 (a value is out of range) .\n"));
    QCOMPARE(batch.exitCode, 4);
    QVERIFY(read({"Device.readDetails"}).contains(R"("swap":1)"));
}

void tst_TavoroCtlCalls::quietShowsOnlyAnswersAndErrors()
{
    const Run quiet = run({"batch", "--quiet", host()},
                          "Device.readDeviceGroupInfo\nDevice.writeSwap {\"swap\":2}\n");
    QCOMPARE(quiet.output, QByteArray("{\"groupInfos\":[]}\n"));
    QCOMPARE(quiet.errors,
             QByteArray("line 2 of the batch: Set device swap status information failed: hardware "
                        "error:4 (a value is out of range) .\n"));
}

QTEST_GUILESS_MAIN(tst_TavoroCtlCalls)
#include "tst_tavoroctlcalls.moc"
