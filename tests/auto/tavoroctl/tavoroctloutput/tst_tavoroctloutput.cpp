// Standard output that cannot be written: every command reports it and fails.

#include <support/tavoroctl/toolcalls.h>

#include <QDir>
#include <QProcess>
#include <QTest>

class tst_TavoroCtlOutput : public QObject, private ToolCalls {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void fullDiskEndsWithSeven_data();
    void fullDiskEndsWithSeven();
    void fullDiskCountsMoreThanAUsageError();
    void fullDiskIsAnErrorObjectWithJson();
    void fullDiskEndsABatch();
    void fullDiskEndsAWatch();
    void closedStandardOutputEndsWithSeven();
    void closedStandardOutputIsNotADeviceConnection();
    void closedPipeEndsWithSeven();

private:
    /// Runs \a script in a shell, with the tool as $0 and \a words as the arguments.
    static ToolRun runInShell(const QByteArray &script, const QByteArrayList &words);
};

namespace {

const QByteArray diskFull = "Cannot write standard output: No space left on device.\n";
const QByteArray fullDisk = R"(exec "$0" "$@" >/dev/full)";

QStringList shellLine(const QByteArray &script, const QByteArrayList &words)
{
    QStringList line{QStringLiteral("-c"), QString::fromUtf8(script), QStringLiteral(TAVOROCTL)};
    for (const QByteArray &word : words)
        line += QString::fromUtf8(word);
    return line;
}

} // namespace

ToolRun tst_TavoroCtlOutput::runInShell(const QByteArray &script, const QByteArrayList &words)
{
    QProcess shell;
    shell.start(QStringLiteral("sh"), shellLine(script, words));
    ToolRun run;
    if (shell.waitForFinished() && shell.exitStatus() == QProcess::NormalExit)
        run.exitCode = shell.exitCode();
    run.output = shell.readAllStandardOutput();
    run.errors = shell.readAllStandardError();
    return run;
}

void tst_TavoroCtlOutput::init()
{
    Tavoro::Sim::SimOptions options;
    options.discoveryPort = 0;
    options.clockSpeed = 5000;
    m_bench = std::make_unique<ToolBench>(options);
}

void tst_TavoroCtlOutput::cleanup()
{
    m_bench.reset();
}

void tst_TavoroCtlOutput::fullDiskEndsWithSeven_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("messages");
    const QByteArray devices = "Get device detail information successfully.\n"
                               "Get interface detail information successfully.\n"
                               "Get screen detail information successfully.\n"
                               "Get layer detail information successfully.\n";
    // clang-format off
    QTest::newRow("help")            << QByteArray("--help")                              << QByteArray();
    QTest::newRow("version option")  << QByteArray("--version")                           << QByteArray();
    QTest::newRow("help of command") << QByteArray("call --help")                         << QByteArray();
    QTest::newRow("list")            << QByteArray("list")                                << QByteArray();
    QTest::newRow("list of one")     << QByteArray("list Device.writeSwap")               << QByteArray();
    QTest::newRow("call")            << QByteArray("call HOST Device.readDeviceGroupInfo")
        << QByteArray("Get device group information successfully.\n");
    QTest::newRow("discover")        << QByteArray("discover TARGET")                     << QByteArray();
    QTest::newRow("files")           << QByteArray("files HOST")                          << QByteArray();
    QTest::newRow("replay")          << QByteArray("replay " TEST_DATA_DIR "/captures/CAPTURE") << QByteArray();
    QTest::newRow("selfcheck")       << QByteArray("selfcheck HOST")                      << QByteArray();
    QTest::newRow("show")            << QByteArray("show HOST")                           << devices;
    QTest::newRow("sync")            << QByteArray("sync HOST")                           << QByteArray();
    QTest::newRow("upgrade")         << QByteArray("upgrade HOST /firmware/2.bin")        << QByteArray();
    QTest::newRow("version")         << QByteArray("version HOST")                        << QByteArray();
    // clang-format on
}

void tst_TavoroCtlOutput::fullDiskEndsWithSeven()
{
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, messages);
    const QStringList captures =
        QDir(QStringLiteral(TEST_DATA_DIR "/captures")).entryList(QDir::Files);
    command.replace("HOST", host());
    command.replace("TARGET", "127.0.0.1:" + QByteArray::number(m_bench->device->discoveryPort()));
    command.replace("CAPTURE", captures.first().toUtf8());
    const Run full = runInShell(fullDisk, command.split(' '));
    QCOMPARE(full.errors, messages + diskFull);
    QCOMPARE(full.exitCode, 7);
}

void tst_TavoroCtlOutput::fullDiskIsAnErrorObjectWithJson()
{
    const Run full = runInShell(fullDisk, {"files", host(), "--json"});
    QCOMPARE(full.errors,
             QByteArray(R"({"event":"error","exitStatus":7,"formatVersion":1,"line":0,)"
                        R"("meaning":"Standard output could not be written.","operation":"",)"
                        R"("result":"output-failed","status":0,)"
                        R"("text":"Cannot write standard output: No space left on device."})"
                        "\n"));
    QCOMPARE(full.exitCode, 7);
}

void tst_TavoroCtlOutput::fullDiskCountsMoreThanAUsageError()
{
    const Run full = runInShell(R"(printf '%s\n' "$@" | "$0" batch >/dev/full)",
                                {"nonsense", host() + " Device.readDeviceGroupInfo"});
    QVERIFY2(full.errors.endsWith(diskFull), full.errors.constData());
    QCOMPARE(full.exitCode, 7);
}

void tst_TavoroCtlOutput::fullDiskEndsABatch()
{
    const Run full = runInShell(
        R"(printf '%s\n' "$@" | "$0" batch >/dev/full)",
        {host() + " Device.readDeviceGroupInfo", host() + R"( Device.writeSwap {"swap":0})"});
    QCOMPARE(full.errors, "Get device group information successfully.\n" + diskFull);
    QCOMPARE(full.exitCode, 7);
    QVERIFY(call({"Device.readDetails"}).output.contains(R"("swap":1)"));
}

void tst_TavoroCtlOutput::fullDiskEndsAWatch()
{
    QProcess shell;
    shell.start(QStringLiteral("sh"), shellLine(fullDisk, {"watch", host()}));
    QByteArray errors;
    QTRY_VERIFY((shell.waitForReadyRead(50), errors += shell.readAllStandardError(),
                 errors.contains("Watching")));
    m_bench->console(QStringLiteral("power 1 0"));
    QVERIFY(shell.waitForFinished());
    errors += shell.readAllStandardError();
    QVERIFY2(errors.endsWith(diskFull), errors.constData());
    QCOMPARE(shell.exitCode(), 7);
}

void tst_TavoroCtlOutput::closedStandardOutputEndsWithSeven()
{
    const Run closed = runInShell(R"(exec "$0" "$@" >&-)", {"list"});
    QCOMPARE(closed.errors, QByteArray("Cannot write standard output: Bad file descriptor.\n"));
    QCOMPARE(closed.exitCode, 7);
}

void tst_TavoroCtlOutput::closedStandardOutputIsNotADeviceConnection()
{
    // The number of a closed descriptor would go to the next one that is opened.
    const Run closed =
        runInShell(R"(exec "$0" "$@" <&- >&-)", {"call", host(), "Device.readDeviceGroupInfo"});
    QCOMPARE(closed.errors,
             QByteArray("Get device group information successfully.\n"
                        "Cannot write standard output: Bad file descriptor.\n"));
    QCOMPARE(closed.exitCode, 7);
}

void tst_TavoroCtlOutput::closedPipeEndsWithSeven()
{
    // The tool starts after the reader of its output has closed the pipe.
    QProcess shell;
    shell.start(QStringLiteral("sh"),
                shellLine(R"({ read go; "$0" list; echo "status $?" >&2; } | )"
                          R"({ exec <&-; echo closed >&2; })",
                          {}));
    QVERIFY(shell.waitForStarted());
    shell.setReadChannel(QProcess::StandardError);
    QVERIFY(shell.waitForReadyRead());
    shell.write("go\n");
    shell.closeWriteChannel();
    QVERIFY(shell.waitForFinished());
    QCOMPARE(shell.readAllStandardError(),
             QByteArray("closed\n"
                        "Cannot write standard output: Broken pipe.\n"
                        "status 7\n"));
}

QTEST_GUILESS_MAIN(tst_TavoroCtlOutput)
#include "tst_tavoroctloutput.moc"
