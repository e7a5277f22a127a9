// pull: what is written, and what remains after a failure.

#include <support/tavoroctl/tooltransfers.h>

#include <QProcess>
#include <QTest>

#include <csignal>

#include <sys/stat.h>
#include <sys/sysmacros.h>

using Tavoro::Sim::SimOptions;

namespace {

constexpr unsigned nullDevice = 3; ///< Minor numbers of memory devices.
constexpr unsigned fullDevice = 7;

} // namespace

class tst_TavoroCtlPull : public QObject, private ToolTransfers {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void pullReplacesAFile();
    void pullOfAMissingFileLeavesNothing();
    void failedPullKeepsTheExistingFile();
    void faultyPullLeavesNothing_data();
    void faultyPullLeavesNothing();

    void interruptedPullLeavesNothing_data();
    void interruptedPullLeavesNothing();
    void interruptedPullKeepsTheExistingFile();
    void pullFromALostDeviceLeavesNothing();

    void pullIntoAMissingFolderFails();
    void pullToAFullDiskLeavesNothing();

    void pullAcceptsTheAnnouncedNumberOfPackets();

    void pullWritesIntoAFifo();
    void pullWritesIntoADevice();
    void pullWritesThroughALinkToADevice();
    void pullIntoASocketFails();
    void failedPullKeepsTheDevice();
    void pullWritesToStandardOutput();
    void pullToAFullStandardOutputEndsWithSeven();

private:
    /// Pushes a file of a few packets and returns its content.
    QByteArray pushContent();
    /// Creates a character device node in the folder; false if the process may not do that.
    bool makeDevice(const QByteArray &name, unsigned minor) const;
    bool isKind(const QByteArray &name, mode_t kind) const;
};

QByteArray tst_TavoroCtlPull::pushContent()
{
    SimOptions options;
    options.packetSize = 1000;
    m_bench = std::make_unique<ToolBench>(options);
    QByteArray content = bytes(2500);
    if (m_bench->run("push", {m_bench->makeFile("sent", content)}).exitCode != 0)
        content.clear();
    m_bench->removeFile("sent");
    return content;
}

bool tst_TavoroCtlPull::makeDevice(const QByteArray &name, unsigned minor) const
{
    constexpr unsigned memoryDevices = 1;
    return ::mknod(m_bench->path(name).constData(), S_IFCHR | 0666, makedev(memoryDevices, minor))
        == 0;
}

bool tst_TavoroCtlPull::isKind(const QByteArray &name, mode_t kind) const
{
    struct stat status { };
    return ::lstat(m_bench->path(name).constData(), &status) == 0
        && (status.st_mode & S_IFMT) == kind;
}

void tst_TavoroCtlPull::init()
{
    m_bench = std::make_unique<ToolBench>();
}

void tst_TavoroCtlPull::cleanup()
{
    m_bench.reset();
}

void tst_TavoroCtlPull::pullReplacesAFile()
{
    const QByteArray file = m_bench->makeFile("nine", "123456789");
    QCOMPARE(m_bench->run("push", {file}).exitCode, 0);
    m_bench->makeFile("target", "old and longer than the new one");
    QCOMPARE(m_bench->run("pull", {"0", "0", m_bench->path("target")}).exitCode, 0);
    QCOMPARE(m_bench->content("target"), QByteArray("123456789"));
}

void tst_TavoroCtlPull::pullOfAMissingFileLeavesNothing()
{
    const ToolRun pull = m_bench->run("pull", {"logo", "9", m_bench->path("target")});
    QCOMPARE(pull.errors,
             QByteArray("Get file export information failed: hardware error:3 (the body or the "
                        "filters name an object that does not exist) .\n"));
    QCOMPARE(pull.exitCode, 4);
    QCOMPARE(m_bench->fileNames(), QByteArrayList());
}

void tst_TavoroCtlPull::failedPullKeepsTheExistingFile()
{
    m_bench->makeFile("target", "old");
    QCOMPARE(m_bench->run("pull", {"logo", "9", m_bench->path("target")}).exitCode, 4);
    QCOMPARE(m_bench->content("target"), QByteArray("old"));
    QCOMPARE(m_bench->fileNames(), QByteArrayList({"target"}));
}

void tst_TavoroCtlPull::faultyPullLeavesNothing_data()
{
    QTest::addColumn<QString>("fault");
    QTest::addColumn<QByteArray>("message");
    QTest::addColumn<int>("exitCode");
    const QByteArray failed = "Get file export information failed: ";
    const QByteArray tooShort = "Received 4500 bytes, but the device announced 5000.\n";
    const QByteArray other =
        "The checksum of the received file does not match the one the device reports.\n";
    const QByteArray refused = failed
        + "hardware error:9 (length or hash of a file's content differ from those announced) .\n";
    const QByteArray noList = "Get file detail information failed: hardware error:9 (length or "
                              "hash of a file's content differ from those announced) .\n";
    const auto inTheMiddle = [](const char *fault) {
        return QLatin1String(fault) + QStringLiteral(",code=FileExport,skip=3,count=1");
    };
    // clang-format off
    QTest::newRow("refused in the middle")   << inTheMiddle("status=9")                              << refused
        << 4;
    QTest::newRow("connection lost")         << inTheMiddle("drop-within")                           << failed << 3;
    QTest::newRow("broken packet")           << inTheMiddle("wrong-checksum")                        << failed << 1;
    QTest::newRow("half a packet")           << inTheMiddle("truncate")                              << tooShort << 1;
    QTest::newRow("half of the last packet") << QStringLiteral("truncate,code=FileExport,skip=4")    << tooShort << 1;
    QTest::newRow("other bytes")             << inTheMiddle("garble")                                << other << 1;
    QTest::newRow("no list of files")        << QStringLiteral("status=9,code=FileDetail")           << noList << 4;
    // clang-format on
}

void tst_TavoroCtlPull::faultyPullLeavesNothing()
{
    QFETCH(QString, fault);
    QFETCH(QByteArray, message);
    QFETCH(int, exitCode);
    SimOptions options;
    options.packetSize = 1000;
    m_bench = std::make_unique<ToolBench>(options);
    QCOMPARE(m_bench->run("push", {m_bench->makeFile("sent", bytes(5000))}).exitCode, 0);
    m_bench->makeFile("target", "old");
    m_bench->console(QStringLiteral("fault add ") + fault);
    const ToolRun pull = m_bench->run("pull", {"0", "0", m_bench->path("target")});
    QVERIFY2(pull.errors.startsWith(message), pull.errors.constData());
    QCOMPARE(pull.errors.count('\n'), 1);
    QCOMPARE(pull.exitCode, exitCode);
    QCOMPARE(m_bench->content("target"), QByteArray("old"));
    QCOMPARE(m_bench->fileNames(), QByteArrayList({"sent", "target"}));
}

void tst_TavoroCtlPull::interruptedPullLeavesNothing_data()
{
    QTest::addColumn<int>("signalNumber");
    QTest::newRow("Ctrl-C") << SIGINT;
    QTest::newRow("end of the session") << SIGTERM;
}

void tst_TavoroCtlPull::interruptedPullLeavesNothing()
{
    QFETCH(int, signalNumber);
    useSlowDevice();
    Terminal terminal;
    RunningTool pull(m_bench->line("pull", {"background", "1", m_bench->path("target")}),
                     terminal.name());
    QVERIFY(terminal.waitFor("]   1 %  target"));
    pull.interrupt(signalNumber);
    QCOMPARE(pull.finish().exitCode, 130);
    QVERIFY(terminal.drawn().endsWith("\r\x1b[KOperation has been cancelled.\r\n"));
    QCOMPARE(m_bench->fileNames(), QByteArrayList());
}

void tst_TavoroCtlPull::interruptedPullKeepsTheExistingFile()
{
    useSlowDevice();
    m_bench->makeFile("target", "old");
    Terminal terminal;
    RunningTool pull(m_bench->line("pull", {"background", "1", m_bench->path("target")}),
                     terminal.name());
    QVERIFY(terminal.waitFor("]   1 %  target"));
    pull.interrupt();
    QCOMPARE(pull.finish().exitCode, 130);
    QCOMPARE(m_bench->content("target"), QByteArray("old"));
    QCOMPARE(m_bench->fileNames(), QByteArrayList({"target"}));
}

void tst_TavoroCtlPull::pullFromALostDeviceLeavesNothing()
{
    useSlowDevice();
    Terminal terminal;
    RunningTool pull(m_bench->line("pull", {"background", "1", m_bench->path("target")}),
                     terminal.name());
    QVERIFY(terminal.waitFor("]   1 %  target"));
    m_bench->device.reset();
    const int exitCode = pull.finish().exitCode;
    const QByteArray drawn = terminal.drawn();
    QVERIFY2(drawn.contains("\x1b[KGet file export information failed: "), drawn.constData());
    QVERIFY2(exitCode == 3, drawn.constData());
    QCOMPARE(drawn.count('\n'), 1);
    QCOMPARE(m_bench->fileNames(), QByteArrayList());
}

void tst_TavoroCtlPull::pullIntoAMissingFolderFails()
{
    const QByteArray target = m_bench->path("nowhere/target");
    const ToolRun pull = m_bench->run("pull", {"0", "0", target});
    QCOMPARE(pull.errors, "Cannot write " + target + ": No such file or directory.\n");
    QCOMPARE(pull.exitCode, 1);
}

void tst_TavoroCtlPull::pullToAFullDiskLeavesNothing()
{
    QCOMPARE(m_bench->run("push", {m_bench->makeFile("long", bytes(400000))}).exitCode, 0);
    m_bench->removeFile("long");
    // A limit on the length of files acts like a full disk.
    QProcess shell;
    const QStringList tool{QString::fromUtf8(m_bench->host()), QStringLiteral("0"),
                           QStringLiteral("0"), QString::fromUtf8(m_bench->path("target"))};
    shell.start(QStringLiteral("sh"),
                QStringList{QStringLiteral("-c"),
                            QStringLiteral("ulimit -f 100; trap '' XFSZ; exec \"$0\" pull \"$@\""),
                            QStringLiteral(TAVOROCTL)}
                    + tool);
    QVERIFY(shell.waitForFinished());
    QCOMPARE(shell.readAllStandardError(),
             "Cannot write " + m_bench->path("target") + ": File too large.\n");
    QCOMPARE(shell.exitCode(), 1);
    QCOMPARE(m_bench->fileNames(), QByteArrayList());
}

void tst_TavoroCtlPull::pullAcceptsTheAnnouncedNumberOfPackets()
{
    // More packets than a channel accepts by default. The device would refuse such a file, so it is
    // stored while the packets are longer.
    constexpr int length = 65537;
    SimOptions options;
    options.filesFolder = m_bench->folder.filePath(QStringLiteral("files"));
    const QByteArray content = bytes(length);
    {
        const ToolBench before(options);
        QCOMPARE(before.run("push", {m_bench->makeFile("sent", content)}).exitCode, 0);
    }
    options.packetSize = 1;
    const ToolBench after(options);
    const ToolRun pull = after.run("pull", {"0", "0", "-"});
    QCOMPARE(pull.errors, QByteArray());
    QCOMPARE(pull.output, content);
}

void tst_TavoroCtlPull::pullWritesIntoAFifo()
{
    const QByteArray content = pushContent();
    QCOMPARE(::mkfifo(m_bench->path("fifo").constData(), 0600), 0);
    QProcess reader;
    reader.start(QStringLiteral("cat"), {QString::fromUtf8(m_bench->path("fifo"))});
    const ToolRun pull = m_bench->run("pull", {"0", "0", m_bench->path("fifo")});
    QCOMPARE(pull.errors + pull.output, QByteArray());
    QCOMPARE(pull.exitCode, 0);
    QVERIFY(isKind("fifo", S_IFIFO));
    QVERIFY(reader.waitForFinished());
    QCOMPARE(reader.readAllStandardOutput(), content);
    QCOMPARE(m_bench->fileNames(), QByteArrayList({}));
}

void tst_TavoroCtlPull::pullWritesIntoADevice()
{
    pushContent();
    if (!makeDevice("null", nullDevice))
        QSKIP("device nodes take more rights");
    QCOMPARE(m_bench->run("pull", {"0", "0", m_bench->path("null")}).exitCode, 0);
    QVERIFY(isKind("null", S_IFCHR));
}

void tst_TavoroCtlPull::pullWritesThroughALinkToADevice()
{
    pushContent();
    if (!makeDevice("null", nullDevice))
        QSKIP("device nodes take more rights");
    QVERIFY(QFile::link(QString::fromUtf8(m_bench->path("null")),
                        QString::fromUtf8(m_bench->path("link"))));
    QCOMPARE(m_bench->run("pull", {"0", "0", m_bench->path("link")}).exitCode, 0);
    QVERIFY(isKind("null", S_IFCHR));
    QVERIFY(isKind("link", S_IFLNK));
}

void tst_TavoroCtlPull::pullIntoASocketFails()
{
    pushContent();
    QCOMPARE(::mknod(m_bench->path("socket").constData(), S_IFSOCK | 0600, 0), 0);
    const ToolRun pull = m_bench->run("pull", {"0", "0", m_bench->path("socket")});
    QCOMPARE(pull.errors,
             "Cannot write " + m_bench->path("socket") + ": No such device or address.\n");
    QCOMPARE(pull.exitCode, 1);
    QVERIFY(isKind("socket", S_IFSOCK));
}

void tst_TavoroCtlPull::failedPullKeepsTheDevice()
{
    pushContent();
    if (!makeDevice("full", fullDevice))
        QSKIP("device nodes take more rights");
    const ToolRun pull = m_bench->run("pull", {"0", "0", m_bench->path("full")});
    QCOMPARE(pull.errors, "Cannot write " + m_bench->path("full") + ": No space left on device.\n");
    QCOMPARE(pull.exitCode, 1);
    QVERIFY(isKind("full", S_IFCHR));
}

void tst_TavoroCtlPull::pullWritesToStandardOutput()
{
    const QByteArray content = pushContent();
    const ToolRun pull = m_bench->run("pull", {"0", "0", "-"});
    QCOMPARE(pull.output, content);
    QCOMPARE(pull.errors, QByteArray());
    QCOMPARE(pull.exitCode, 0);
}

void tst_TavoroCtlPull::pullToAFullStandardOutputEndsWithSeven()
{
    pushContent();
    QProcess tool;
    tool.setStandardOutputFile(QStringLiteral("/dev/full"));
    tool.start(QStringLiteral(TAVOROCTL),
               {QStringLiteral("pull"), QString::fromUtf8(m_bench->host()), QStringLiteral("0"),
                QStringLiteral("0"), QStringLiteral("-")});
    QVERIFY(tool.waitForFinished());
    QCOMPARE(tool.readAllStandardError(),
             QByteArray("Cannot write standard output: No space left on device.\n"));
    QCOMPARE(tool.exitCode(), 7);
}

QTEST_GUILESS_MAIN(tst_TavoroCtlPull)
#include "tst_tavoroctlpull.moc"
