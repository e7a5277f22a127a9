// What every command writes with --json, checked against docs/schema/tavoroctl.json.

#include <support/tavoroctl/toolcalls.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QProcess>
#include <QTcpServer>
#include <QTest>

class tst_TavoroCtlJson : public QObject, private ToolCalls {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void outputOfEveryCommandIsValid_data();
    void outputOfEveryCommandIsValid();
    void everyCommandIsInTheTable();
    void differencesOfADiffAreValid();
    void changesOfAWatchAreValid();
    void errorsAreObjects_data();
    void errorsAreObjects();
    void errorOfABatchNamesItsLine();
    void failuresOfAReadAreNotices();
    void messagesOfSuccessAreLeftOut();
    void contentOnStandardOutputIsNotMixedWithEvents();

private:
    /// Runs a line of the table. HOST, TARGET and FOLDER stand for the device and its surroundings.
    Run runLine(QByteArray line, const QByteArray &input = {}) const;
    static QByteArray faults(const QByteArray &definition, const QByteArrayList &documents);
    static QByteArrayList lines(const QByteArray &output);
};

void tst_TavoroCtlJson::initTestCase()
{
    QProcess python;
    python.start(QStringLiteral("python3"),
                 {QStringLiteral("-c"), QStringLiteral("import jsonschema")});
    if (!python.waitForFinished() || python.exitCode() != 0)
        QSKIP("python3-jsonschema is not installed");
}

void tst_TavoroCtlJson::init()
{
    Tavoro::Sim::SimOptions options;
    options.discoveryPort = 0;
    options.clockSpeed = 5000;
    options.packetSize = 4096;
    m_bench = std::make_unique<ToolBench>(options);
}

void tst_TavoroCtlJson::cleanup()
{
    m_bench.reset();
}

QByteArrayList tst_TavoroCtlJson::lines(const QByteArray &output)
{
    QByteArrayList lines = output.split('\n');
    lines.removeAll(QByteArray());
    return lines;
}

QByteArray tst_TavoroCtlJson::faults(const QByteArray &definition, const QByteArrayList &documents)
{
    QProcess validator;
    validator.start(QStringLiteral("python3"),
                    {QStringLiteral(VALIDATOR), QStringLiteral(SCHEMA_DIR)});
    for (const QByteArray &document : documents)
        validator.write(definition + '\t' + document + '\n');
    validator.closeWriteChannel();
    if (!validator.waitForFinished())
        return "the validator does not end";
    QByteArray found = validator.readAllStandardOutput() + validator.readAllStandardError();
    const QByteArray end = QByteArray::number(documents.size()) + " documents\n";
    if (documents.isEmpty() || !found.endsWith(end))
        return "not all documents were checked: " + found;
    found.chop(end.size());
    return found;
}

ToolRun tst_TavoroCtlJson::runLine(QByteArray line, const QByteArray &input) const
{
    line.replace("HOST", host());
    line.replace("TARGET", "127.0.0.1:" + QByteArray::number(m_bench->device->discoveryPort()));
    line.replace("FOLDER", m_bench->folder.path().toUtf8());
    line.replace("CAPTURES", TEST_DATA_DIR "/captures");
    return run(QByteArrayList{"--json"} + line.split(' '), input);
}

void tst_TavoroCtlJson::outputOfEveryCommandIsValid_data()
{
    QTest::addColumn<QByteArrayList>("definitions"); // Of each line; the last one may repeat.
    QTest::addColumn<QByteArray>("line");
    // clang-format off
    QTest::newRow("apply")            << QByteArrayList{"write", "done"}   << QByteArray("apply HOST FOLDER/setup");
    QTest::newRow("batch")            << QByteArrayList{"done"}            << QByteArray("batch HOST");
    QTest::newRow("call")             << QByteArrayList{"files"}           << QByteArray("call HOST File.readDetails -1 -1");
    QTest::newRow("call of a write")  << QByteArrayList{"done"}            << QByteArray(R"(call HOST Device.writeSwap {"swap":1})");
    QTest::newRow("call of a dry run") << QByteArrayList{"request"}        << QByteArray(R"(call --dry-run HOST Device.writeSwap {"swap":1})");
    QTest::newRow("control")          << QByteArrayList{"holder"}          << QByteArray("control HOST who");
    QTest::newRow("control release")  << QByteArrayList{"done"}            << QByteArray("control HOST release");
    QTest::newRow("discover")         << QByteArrayList{"devices"}         << QByteArray("discover TARGET");
    QTest::newRow("files")            << QByteArrayList{"files"}           << QByteArray("files HOST");
    QTest::newRow("help")             << QByteArrayList{"program"}         << QByteArray("help");
    QTest::newRow("help of one")      << QByteArrayList{"command"}         << QByteArray("help preset save");
    QTest::newRow("--help")           << QByteArrayList{"program"}         << QByteArray("--help");
    QTest::newRow("--version")        << QByteArrayList{"program"}         << QByteArray("--version");
    QTest::newRow("list")             << QByteArrayList{"operations"}      << QByteArray("list");
    QTest::newRow("list of a class")  << QByteArrayList{"operations"}      << QByteArray("list Screen");
    QTest::newRow("list of one")      << QByteArrayList{"operation"}       << QByteArray("list Screen.writeTake");
    QTest::newRow("preset apply")     << QByteArrayList{"done"}            << QByteArray("preset apply HOST 1");
    QTest::newRow("preset save")      << QByteArrayList{"done"}            << QByteArray("preset save HOST 1");
    QTest::newRow("project apply")    << QByteArrayList{"done"}            << QByteArray("project apply HOST 1");
    QTest::newRow("project save")     << QByteArrayList{"done"}            << QByteArray("project save HOST 1");
    QTest::newRow("pull")             << QByteArrayList{"progress", "done"} << QByteArray("pull HOST background 9 FOLDER/pulled");
    QTest::newRow("push")             << QByteArrayList{"progress", "done"} << QByteArray("push HOST FOLDER/nine --id 3");
    QTest::newRow("reboot")           << QByteArrayList{"done"}            << QByteArray("reboot HOST");
    QTest::newRow("replay")           << QByteArrayList{"captured"}        << QByteArray("replay CAPTURES/halfanswer.txt");
    QTest::newRow("replay to a file") << QByteArrayList{"done"}            << QByteArray("replay CAPTURES/halfanswer.txt --pcapng FOLDER/out");
    QTest::newRow("selfcheck")        << QByteArrayList{"selfcheck"}       << QByteArray("selfcheck HOST");
    QTest::newRow("show")             << QByteArrayList{"snapshot"}        << QByteArray("show HOST");
    QTest::newRow("sync")             << QByteArrayList{"setup"}           << QByteArray("sync HOST");
    QTest::newRow("upgrade")          << QByteArrayList{"progress", "unit", "done"} << QByteArray("upgrade HOST /firmware/2.bin");
    QTest::newRow("version")          << QByteArrayList{"versions"}        << QByteArray("version HOST");
    // clang-format on
}

void tst_TavoroCtlJson::outputOfEveryCommandIsValid()
{
    QFETCH(QByteArrayList, definitions);
    QFETCH(QByteArray, line);
    const QByteArray nine = m_bench->makeFile("nine", "123456789");
    QCOMPARE(m_bench->run("push", {nine, "--id", "9"}).exitCode, 0);
    if (line.contains(" apply"))
        QCOMPARE(m_bench->run(line.split(' ').first() + " save", {"1"}).exitCode, 0);
    const QByteArray setup = R"({"formatVersion":1,"device":{"general":{"name":"East"}}})";
    m_bench->makeFile("setup", setup);
    const Run output = runLine(line, "Device.readDetails\n\nDevice.writeSwap {\"swap\":0}\n");
    QCOMPARE(output.exitCode, 0);
    // The document of sync has several lines.
    const QByteArrayList documents =
        line.startsWith("sync") ? QByteArrayList{output.output.simplified()} : lines(output.output);
    QMap<QByteArray, QByteArrayList> byDefinition;
    for (const QByteArray &document : documents) {
        const QString event =
            QJsonDocument::fromJson(document).object().value(QLatin1String("event")).toString();
        const QByteArray definition =
            definitions.contains(event.toUtf8()) ? event.toUtf8() : definitions.first();
        byDefinition[definition] += document;
    }
    for (const QByteArray &definition : definitions)
        QCOMPARE(faults(definition, byDefinition.value(definition)), QByteArray());
    QCOMPARE(byDefinition.size(), definitions.size());
    if (!output.errors.isEmpty())
        QCOMPARE(faults("notice", lines(output.errors)), QByteArray());
}

void tst_TavoroCtlJson::everyCommandIsInTheTable()
{
    const QJsonArray commands = QJsonDocument::fromJson(run({"help", "--json"}).output)
                                    .object()
                                    .value(QLatin1String("commands"))
                                    .toArray();
    QVERIFY(commands.size() > 15);
    QFile source(QStringLiteral(THIS_SOURCE));
    QVERIFY(source.open(QIODevice::ReadOnly));
    const QByteArray table = source.readAll();
    for (const QJsonValue command : commands) {
        const QByteArray name = command.toObject().value(QLatin1String("name")).toString().toUtf8();
        const QByteArray other = "m_bench->line(\"" + name + "\""; // In a test of its own.
        QVERIFY2(table.contains("QTest::newRow(\"" + name + "\")") || table.contains(other),
                 name.constData());
    }
}

void tst_TavoroCtlJson::differencesOfADiffAreValid()
{
    m_bench->makeFile("setup", R"({"formatVersion":1,"device":{"swap":0},"screens":[]})");
    const Run diff = run(m_bench->line("diff", {m_bench->path("setup"), "--json"}));
    QCOMPARE(diff.exitCode, 1);
    QCOMPARE(lines(diff.output).size(), 5);
    QCOMPARE(faults("change", lines(diff.output)), QByteArray());
}

void tst_TavoroCtlJson::changesOfAWatchAreValid()
{
    RunningTool watch(m_bench->line("watch", {"--json"}));
    QVERIFY(watch.waitForErrors("Watching"));
    m_bench->console(QStringLiteral("power 1 0"));
    QVERIFY(watch.waitForOutput("powers"));
    const QByteArray file = m_bench->makeFile("wall", QByteArray(10000, 'w'));
    QCOMPARE(m_bench->run("push", {file, "--type", "logo", "--id", "3"}).exitCode, 0);
    QVERIFY(watch.waitForOutput("\"percent\":100"));
    watch.interrupt();
    const Run run = watch.finish();
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(lines(run.output).first(),
             R"({"differences":[{"after":0,"before":1,"path":"powers[0].iSignal"},)"
             R"({"after":0,"before":1,"path":"powers[0].status"}],"event":"change",)"
             R"("formatVersion":1,"host":")"
                 + host() + R"(","object":"device"})");
    QCOMPARE(faults("change", lines(run.output)), QByteArray());
    QCOMPARE(faults("notice", lines(run.errors)), QByteArray());
}

void tst_TavoroCtlJson::errorsAreObjects_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("fields"); ///< exitStatus, result, status, operation.
    QTest::addColumn<QByteArray>("meaning");
    // clang-format off
    QTest::newRow("usage")         << QByteArray("dance")                                     << QByteArray("2 usage 0 ")
        << QByteArray("The command line or an input is not valid; nothing was sent for it.");
    QTest::newRow("unknown option") << QByteArray("list --fly")                               << QByteArray("2 usage 0 ")
        << QByteArray("The command line or an input is not valid; nothing was sent for it.");
    QTest::newRow("bad record")    << QByteArray("call HOST Device.writeSwap []")             << QByteArray("2 usage 0 Device.writeSwap")
        << QByteArray("The command line or an input is not valid; nothing was sent for it.");
    QTest::newRow("unreachable")   << QByteArray("--timeout 1000 show 127.0.0.1:1")           << QByteArray("3 unreachable 0 ")
        << QByteArray("The device could not be reached, or the connection was lost during a read.");
    QTest::newRow("refused")       << QByteArray(R"(call HOST Device.writeSwap {"swap":2})")  << QByteArray("4 refused 4 Device.writeSwap")
        << QByteArray("a value is out of range");
    QTest::newRow("refused command") << QByteArray("preset apply HOST 9")                     << QByteArray("4 refused 3 ")
        << QByteArray("the body or the filters name an object that does not exist");
    QTest::newRow("defined by the device") << QByteArray("project save HOST 1")               << QByteArray("4 refused 99 ")
        << QByteArray("a status that only this device defines");
    QTest::newRow("timed out")     << QByteArray("--request-timeout 300 version HOST")        << QByteArray("5 timed-out 260 ")
        << QByteArray("software error: Request timed out");
    QTest::newRow("unknown outcome") << QByteArray("--request-timeout 300 preset save HOST 1")       << QByteArray("6 unknown-outcome 260 ")
        << QByteArray("software error: Request timed out");
    // clang-format on
}

void tst_TavoroCtlJson::errorsAreObjects()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, fields);
    QFETCH(QByteArray, meaning);
    m_bench->console(QStringLiteral("fault add status=99,code=FileCreateProject"));
    m_bench->console(QStringLiteral("fault add silent,code=AuxiliaryDeviceVersion"));
    m_bench->console(QStringLiteral("fault add silent,code=FileCreatePreset"));
    const Run failed = runLine(line);
    QCOMPARE(failed.output, QByteArray());
    QCOMPARE(failed.errors.count('\n'), 1);
    QCOMPARE(faults("error", lines(failed.errors)), QByteArray());
    const QJsonObject error = QJsonDocument::fromJson(failed.errors).object();
    const auto value = [&](const char *key) {
        return error.value(QLatin1String(key)).toVariant().toString().toUtf8();
    };
    QCOMPARE(
        QByteArrayList({value("exitStatus"), value("result"), value("status"), value("operation")})
            .join(' '),
        fields);
    QCOMPARE(value("meaning"), meaning);
    QCOMPARE(failed.exitCode, error.value(QLatin1String("exitStatus")).toInt());
}

void tst_TavoroCtlJson::errorOfABatchNamesItsLine()
{
    const Run batch = runLine("batch HOST", "\nDevice.writeSwap {\"swap\":2}\n");
    QCOMPARE(batch.errors,
             QByteArray(R"({"event":"error","exitStatus":4,"formatVersion":1,"line":2,)"
                        R"("meaning":"a value is out of range","operation":"Device.writeSwap",)"
                        R"("result":"refused","status":4,)"
                        R"("text":"Set device swap status information failed: hardware error:4 ."})"
                        "\n"));
}

void tst_TavoroCtlJson::failuresOfAReadAreNotices()
{
    m_bench->console(QStringLiteral("fault add status=9,code=LayerDetail"));
    const QByteArrayList errors = lines(runLine("sync HOST").errors);
    QCOMPARE(errors.size(), 2);
    QCOMPARE(faults("notice", {errors.at(0)}), QByteArray());
    QVERIFY(errors.at(0).contains("Get layer detail information failed: hardware error:9 ."));
    QCOMPARE(faults("error", {errors.at(1)}), QByteArray());
}

void tst_TavoroCtlJson::messagesOfSuccessAreLeftOut()
{
    QCOMPARE(runLine("call HOST Device.readDetails").errors, QByteArray());
    QCOMPARE(runLine("show HOST").errors, QByteArray());
}

void tst_TavoroCtlJson::contentOnStandardOutputIsNotMixedWithEvents()
{
    const QByteArray nine = m_bench->makeFile("nine", "123456789");
    QCOMPARE(m_bench->run("push", {nine, "--id", "9"}).exitCode, 0);
    QCOMPARE(runLine("pull HOST 0 9 -").output, QByteArray("123456789"));
}

QTEST_GUILESS_MAIN(tst_TavoroCtlJson)
#include "tst_tavoroctljson.moc"
