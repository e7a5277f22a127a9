// files and push, and pull of pushed files.

#include <support/tavoroctl/tooltransfers.h>

#include <QRegularExpression>
#include <QTest>

using Tavoro::Sim::SimOptions;

class tst_TavoroCtlFiles : public QObject, private ToolTransfers {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void filesShowsATable();
    void filesListsOneType();
    void filesPrintsJson();
    void pulledContentEqualsPushedContent_data();
    void pulledContentEqualsPushedContent();
    void pushAnnouncesLengthAndChecksum();
    void pushUsesTheNameOfTheFile();
    void pushReadsStandardInput();
    void pushReadsAPipe();
    void pushOfAMissingFileFails();
    void refusedPushEndsWithFour();
    void interruptedPushLeavesNoFileOnTheDevice();
    void faultyPushEndsWithFour();

    void pushWhoseLastAnswerIsLostSucceeds_data();
    void pushWhoseLastAnswerIsLostSucceeds();
    void refusalOfTheLastPacketIsReported();
    void pushWhoseLastPacketIsLostFails();
    void pushWhoseLastAnswerIsLostForGoodFails();
    void pushOfMorePacketsThanAClientAcceptsIsRefused();

    void progressIsDrawnOnATerminal();
    void progressIsNotDrawnInAPipe();
    void wrongUsageEndsWithTwo_data();
    void wrongUsageEndsWithTwo();

private:
    /// A device with packets of \a size bytes.
    void usePacketsOf(quint32 size);
};

void tst_TavoroCtlFiles::init()
{
    m_bench = std::make_unique<ToolBench>();
}

void tst_TavoroCtlFiles::cleanup()
{
    m_bench.reset();
}

void tst_TavoroCtlFiles::filesShowsATable()
{
    const QByteArray file = m_bench->makeFile("nine", "123456789");
    QCOMPARE(m_bench->run("push", {file, "--type", "logo", "--id", "7", "--size", "3x4"}).exitCode,
             0);
    QCOMPARE(m_bench->run("push", {file, "--type", "12", "--name", "a b"}).exitCode, 0);
    const ToolRun files = m_bench->run("files", {});
    QCOMPARE(files.output,
             QByteArray("TYPE  ID  NAME  BYTES  HASH      PIXELS\n"
                        "logo  7   nine  9      cbf43926  3x4\n"
                        "12    0   a b   9      cbf43926\n"));
    QCOMPARE(files.errors, QByteArray());
    QCOMPARE(files.exitCode, 0);
}

void tst_TavoroCtlFiles::filesListsOneType()
{
    const QByteArray file = m_bench->makeFile("nine", "123456789");
    QCOMPARE(m_bench->run("push", {file, "--type", "2"}).exitCode, 0);
    QCOMPARE(m_bench->run("push", {file, "--type", "background"}).exitCode, 0);
    QCOMPARE(m_bench->run("files", {"logo"}).output,
             QByteArray("TYPE  ID  NAME  BYTES  HASH      PIXELS\n"
                        "logo  0   nine  9      cbf43926\n"));
    QCOMPARE(m_bench->run("files", {"6"}).output,
             QByteArray("TYPE  ID  NAME  BYTES  HASH  PIXELS\n"));
}

void tst_TavoroCtlFiles::filesPrintsJson()
{
    const QByteArray file = m_bench->makeFile("nine", "123456789");
    QCOMPARE(m_bench->run("push", {file}).exitCode, 0);
    QCOMPARE(m_bench->run("files", {"--json"}).output,
             QByteArray(R"([{"fileId":0,"fileType":0,"general":{"name":"nine"},)"
                        R"("source":{"id":0,"type":0,"zoomRatio":1},)"
                        R"("size":{"length":9,"hashSum":-873187034,"width":0,"height":0}}])"
                        "\n"));
}

void tst_TavoroCtlFiles::pulledContentEqualsPushedContent_data()
{
    QTest::addColumn<int>("length");
    QTest::newRow("empty") << 0;
    QTest::newRow("one byte") << 1;
    QTest::newRow("one packet") << 1000;
    QTest::newRow("one packet and a byte") << 1001;
    QTest::newRow("many packets") << 123456;
}

void tst_TavoroCtlFiles::pulledContentEqualsPushedContent()
{
    QFETCH(int, length);
    SimOptions options;
    options.packetSize = 1000;
    m_bench = std::make_unique<ToolBench>(options);
    const QByteArray content = bytes(length);
    const ToolRun push = m_bench->run("push", {m_bench->makeFile("sent", content), "--id", "254"});
    QCOMPARE(push.errors, QByteArray());
    QCOMPARE(push.exitCode, 0);
    const ToolRun pull = m_bench->run("pull", {"background", "254", m_bench->path("fetched")});
    QCOMPARE(pull.errors, QByteArray());
    QCOMPARE(pull.output, QByteArray());
    QCOMPARE(pull.exitCode, 0);
    QCOMPARE(m_bench->content("fetched"), content);
    QCOMPARE(m_bench->fileNames(), QByteArrayList({"fetched", "sent"}));
}

void tst_TavoroCtlFiles::pushAnnouncesLengthAndChecksum()
{
    // The device checks both, and refuses other content.
    const QByteArray file = m_bench->makeFile("nine", "123456789");
    const ToolRun push = m_bench->run("push", {file, "--verbose"});
    const QByteArray announced = R"(\"size\":{\"length\":9,\"hashSum\":-873187034,)";
    QVERIFY2(push.errors.contains(announced), push.errors.constData());
}

void tst_TavoroCtlFiles::pushUsesTheNameOfTheFile()
{
    const QByteArray file = m_bench->makeFile("wall.png", "123456789");
    QCOMPARE(m_bench->run("push", {file}).exitCode, 0);
    QVERIFY(m_bench->run("files", {}).output.contains("background  0   wall.png  9 "));
}

void tst_TavoroCtlFiles::pushReadsStandardInput()
{
    const QByteArray content = bytes(300000);
    const ToolRun push = ToolBench::run(m_bench->line("push", {"-", "--type", "logo"}), content);
    QCOMPARE(push.errors, QByteArray());
    QCOMPARE(push.exitCode, 0);
    QVERIFY(m_bench->run("files", {}).output.contains("logo  0   stdin  300000 "));
    QCOMPARE(m_bench->run("pull", {"logo", "0", "-"}).output, content);
}

void tst_TavoroCtlFiles::pushReadsAPipe()
{
    const ToolRun push =
        ToolBench::run(m_bench->line("push", {"/dev/stdin", "--name", "piped"}), "123456789");
    QCOMPARE(push.errors, QByteArray());
    QVERIFY(m_bench->run("files", {}).output.contains("piped  9      cbf43926"));
}

void tst_TavoroCtlFiles::pushOfAMissingFileFails()
{
    const QByteArray file = m_bench->path("nothing");
    const ToolRun push = m_bench->run("push", {file});
    QCOMPARE(push.errors, "Cannot read " + file + ": No such file or directory.\n");
    QCOMPARE(push.exitCode, 1);
}

void tst_TavoroCtlFiles::refusedPushEndsWithFour()
{
    const QByteArray file = m_bench->makeFile("nine", "123456789");
    const ToolRun push = m_bench->run("push", {file, "--name", QByteArray(300, 'n')});
    QCOMPARE(
        push.errors,
        QByteArray(
            "Set file import information failed: hardware error:4 (a value is out of range) .\n"));
    QCOMPARE(push.exitCode, 4);
}

void tst_TavoroCtlFiles::interruptedPushLeavesNoFileOnTheDevice()
{
    useSlowDevice();
    const QByteArray file = m_bench->makeFile("long", bytes(400000));
    Terminal terminal;
    RunningTool push(m_bench->line("push", {file, "--id", "2"}), terminal.name());
    QVERIFY(terminal.waitFor("]   1 %  long"));
    push.interrupt();
    QCOMPARE(push.finish().exitCode, 130);
    QVERIFY(terminal.drawn().endsWith("\r\x1b[KInterrupted.\r\n"));
    const QByteArray files = m_bench->run("files", {}).output;
    QVERIFY2(files.contains("image"), files.constData());
    QVERIFY2(!files.contains("long"), files.constData());
}

void tst_TavoroCtlFiles::faultyPushEndsWithFour()
{
    SimOptions options;
    options.packetSize = 1000;
    m_bench = std::make_unique<ToolBench>(options);
    m_bench->console(QStringLiteral("fault add status=10,code=FileImport,skip=3"));
    const ToolRun push = m_bench->run("push", {m_bench->makeFile("sent", bytes(5000))});
    QCOMPARE(push.errors,
             QByteArray("Set file import information failed: hardware error:10 (storage is full or "
                        "has failed) .\n"));
    QCOMPARE(push.exitCode, 4);
    m_bench->console(QStringLiteral("fault clear"));
    QCOMPARE(m_bench->run("files", {}).output, QByteArray("TYPE  ID  NAME  BYTES  HASH  PIXELS\n"));
}

void tst_TavoroCtlFiles::usePacketsOf(quint32 size)
{
    SimOptions options;
    options.packetSize = size;
    m_bench = std::make_unique<ToolBench>(options);
}

void tst_TavoroCtlFiles::pushWhoseLastAnswerIsLostSucceeds_data()
{
    QTest::addColumn<QString>("fault");
    QTest::newRow("connection lost before it") << QStringLiteral("drop-before");
    QTest::newRow("connection lost within it") << QStringLiteral("drop-within");
    QTest::newRow("no answer") << QStringLiteral("silent");
}

void tst_TavoroCtlFiles::pushWhoseLastAnswerIsLostSucceeds()
{
    QFETCH(QString, fault);
    usePacketsOf(1000);
    // The announcement, then three packets.
    m_bench->console(QStringLiteral("fault add %1,code=FileImport,skip=3,count=1").arg(fault));
    const ToolRun push =
        m_bench->run("push", {m_bench->makeFile("sent", bytes(3000)), "--request-timeout", "1000"});
    QCOMPARE(push.errors, QByteArray());
    QCOMPARE(push.exitCode, 0);
    QCOMPARE(m_bench->run("pull", {"0", "0", "-"}).output, bytes(3000));
}

void tst_TavoroCtlFiles::refusalOfTheLastPacketIsReported()
{
    usePacketsOf(1000);
    // A packet that is swallowed leaves the content incomplete, which the device notices at the
    // end.
    m_bench->console(QStringLiteral("fault add status=9,code=FileImport,skip=3,count=1"));
    const ToolRun push = m_bench->run("push", {m_bench->makeFile("sent", bytes(3000))});
    QCOMPARE(push.errors,
             QByteArray("Set file import information failed: hardware error:9 (length or hash of a "
                        "file's content differ from those announced) .\n"));
    QCOMPARE(push.exitCode, 4);
}

void tst_TavoroCtlFiles::pushWhoseLastPacketIsLostFails()
{
    usePacketsOf(1000);
    m_bench->console(QStringLiteral("fault add drop-request,code=FileImport,skip=3,count=1"));
    const ToolRun push = m_bench->run("push", {m_bench->makeFile("sent", bytes(3000))});
    QVERIFY2(push.errors.startsWith("Set file import information failed: "),
             push.errors.constData());
    QCOMPARE(push.errors.count('\n'), 1);
    QCOMPARE(push.exitCode, 6);
}

void tst_TavoroCtlFiles::pushWhoseLastAnswerIsLostForGoodFails()
{
    usePacketsOf(1000);
    m_bench->console(QStringLiteral("fault add drop-before,code=FileImport,skip=3,count=1"));
    m_bench->console(QStringLiteral("fault add drop-before,code=identity,skip=1"));
    const ToolRun push =
        m_bench->run("push", {m_bench->makeFile("sent", bytes(3000)), "--timeout", "500"});
    QVERIFY2(push.errors.startsWith("Set file import information failed: "),
             push.errors.constData());
    QVERIFY2(push.errors.endsWith("The device may have the file.\n"), push.errors.constData());
    QCOMPARE(push.exitCode, 6);
}

void tst_TavoroCtlFiles::pushOfMorePacketsThanAClientAcceptsIsRefused()
{
    usePacketsOf(1);
    const QByteArray file = m_bench->makeFile("long", bytes(65537));
    const ToolRun push = m_bench->run("push", {file});
    QCOMPARE(push.errors,
             file
                 + " has 65537 bytes. The device could not return more than 65536: a client takes "
                   "at most 65536 packets, and the packets of this device have 1 bytes.\n");
    QCOMPARE(push.exitCode, 1);
    QCOMPARE(m_bench->run("files", {"--json"}).output, QByteArray("[]\n"));
}

void tst_TavoroCtlFiles::progressIsDrawnOnATerminal()
{
    SimOptions options;
    options.packetSize = 1000;
    m_bench = std::make_unique<ToolBench>(options);
    const QByteArray file = m_bench->makeFile("wall", bytes(2000));
    Terminal terminal;
    RunningTool push(m_bench->line("push", {file}), terminal.name());
    QCOMPARE(push.finish().exitCode, 0);
    // The rate depends on the time that the transfer takes.
    const QRegularExpression drawn(
        QStringLiteral("^\r\\[#{13}-{13}\\]  50 %  wall  1\\.0 kB/2\\.0 kB[^\x1b]*\x1b\\[K"
                       "\r\\[#{26}\\] 100 %  wall  2\\.0 kB/2\\.0 kB[^\x1b]*\x1b\\[K"
                       "\r\x1b\\[K$"));
    QVERIFY(drawn.match(QString::fromUtf8(terminal.drawn())).hasMatch());
}

void tst_TavoroCtlFiles::progressIsNotDrawnInAPipe()
{
    const QByteArray file = m_bench->makeFile("wall", bytes(200000));
    const ToolRun push = m_bench->run("push", {file});
    QCOMPARE(push.errors + push.output, QByteArray("0\n"));
    const ToolRun pull = m_bench->run("pull", {"0", "0", m_bench->path("fetched")});
    QCOMPARE(pull.errors + pull.output, QByteArray());
}

void tst_TavoroCtlFiles::wrongUsageEndsWithTwo_data()
{
    QTest::addColumn<QByteArrayList>("arguments");
    QTest::addColumn<QString>("words");
    const QByteArray host = "nowhere.invalid";
    // clang-format off
    QTest::newRow("no file")      << QByteArrayList{"pull", host, "0", "0"}                  << "pull takes HOST[:PORT] TYPE ID FILE";
    QTest::newRow("type by word") << QByteArrayList{"pull", host, "movie", "0", "f"}         << "\"movie\" is not a file type; use %1";
    QTest::newRow("type 255")     << QByteArrayList{"pull", host, "255", "0", "f"}           << "\"255\" is not a file type; use %1";
    QTest::newRow("id 255")       << QByteArrayList{"pull", host, "0", "255", "f"}           << "\"255\" is not a valid file ID (0 to 254)";
    QTest::newRow("id below 0")   << QByteArrayList{"push", host, "f", "--id", "-1"}         << "\"-1\" is not a valid file ID (0 to 254)";
    QTest::newRow("size")         << QByteArrayList{"push", host, "f", "--size", "10"}       << "\"10\" is not WIDTHxHEIGHT";
    QTest::newRow("foreign option") << QByteArrayList{"pull", host, "0", "0", "f", "--type", "1"} << "Unknown option 'type'.";
    QTest::newRow("files of no type") << QByteArrayList{"files", host, "all"}                << "\"all\" is not a file type; use %1";
    // clang-format on
}

void tst_TavoroCtlFiles::wrongUsageEndsWithTwo()
{
    QFETCH(QByteArrayList, arguments);
    QFETCH(QString, words);
    words.replace(QStringLiteral("%1"),
                  QStringLiteral("0 to 254 or one of: background, logo, "
                                 "screen-preset, device-preset"));
    const ToolRun run = ToolBench::run(arguments);
    QCOMPARE(QString::fromUtf8(run.errors), QStringLiteral("tavoroctl: %1\n").arg(words));
    QCOMPARE(run.exitCode, 2);
}

QTEST_GUILESS_MAIN(tst_TavoroCtlFiles)
#include "tst_tavoroctlfiles.moc"
