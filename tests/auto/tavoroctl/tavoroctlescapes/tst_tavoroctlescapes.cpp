// Control characters in names from a device never reach the terminal, JSON excepted.

#include <support/tavoroctl/toolcalls.h>

#include <tavoroctl/output/printable.h>
#include <tavoroctl/output/texttable.h>

#include <QTest>

class tst_TavoroCtlEscapes : public QObject, private ToolCalls {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void controlCharactersAreEscaped_data();
    void controlCharactersAreEscaped();
    void cellsOfATableStayInTheirLine();

    void outputOfCommandsIsEscaped_data();
    void outputOfCommandsIsEscaped();
    void discoverEscapesTheName();
    void messagesAreEscaped();
    void logIsEscaped();
    void watchEscapesNamesAndValues();
    void replayIsEscaped();
    void jsonIsPrintedAsItIs();

private:
    void useHostileDevice();

    static const QString hostileName;
};

const QString tst_TavoroCtlEscapes::hostileName = QStringLiteral("a\x1b[2Jb\u009b1mc\x7f\r\n\td");

namespace {

/// True if \a output holds a control character other than the ends of lines.
bool hasControlCharacters(const QByteArray &output)
{
    const QString text = QString::fromUtf8(output);
    return std::any_of(text.begin(), text.end(), [](QChar character) {
        return character != QLatin1Char('\n') && character.category() == QChar::Other_Control;
    });
}

const QByteArray escapedName = R"(a\x1b[2Jb\x9b1mc\x7f\r\n\td)";

} // namespace

void tst_TavoroCtlEscapes::cleanup()
{
    m_bench.reset();
}

void tst_TavoroCtlEscapes::useHostileDevice()
{
    Tavoro::Sim::SimOptions options;
    options.discoveryPort = 0;
    options.name = hostileName;
    m_bench = std::make_unique<ToolBench>(options);
}

void tst_TavoroCtlEscapes::controlCharactersAreEscaped_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("printed");
    QTest::newRow("plain") << QStringLiteral("Wall 1 \u00e9 \\x")
                           << QStringLiteral("Wall 1 \u00e9 \\x");
    QTest::newRow("above the second page")
        << QStringLiteral("\U0001F4FA \u00a0") << QStringLiteral("\U0001F4FA \u00a0");
    QTest::newRow("first of C0") << QString(QChar(0)) << QStringLiteral("\\x00");
    QTest::newRow("last of C0") << QString(QChar(0x1f)) << QStringLiteral("\\x1f");
    QTest::newRow("delete") << QString(QChar(0x7f)) << QStringLiteral("\\x7f");
    QTest::newRow("first of C1") << QString(QChar(0x80)) << QStringLiteral("\\x80");
    QTest::newRow("last of C1") << QString(QChar(0x9f)) << QStringLiteral("\\x9f");
    QTest::newRow("common ones") << QStringLiteral("\t\n\r") << QStringLiteral("\\t\\n\\r");
}

void tst_TavoroCtlEscapes::controlCharactersAreEscaped()
{
    QFETCH(QString, text);
    QFETCH(QString, printed);
    QCOMPARE(Tavoro::Ctl::printable(text), printed);
}

void tst_TavoroCtlEscapes::cellsOfATableStayInTheirLine()
{
    Tavoro::Ctl::TextTable table(QStringLiteral("NAME ID"));
    table.addRow({QStringLiteral("a\nb"), QStringLiteral("1")});
    QCOMPARE(table.text(), QStringLiteral("NAME  ID\na\\nb  1\n"));
}

void tst_TavoroCtlEscapes::outputOfCommandsIsEscaped_data()
{
    QTest::addColumn<QByteArray>("command");
    for (const char *command : {"show", "sync", "files", "version", "selfcheck"})
        QTest::newRow(command) << QByteArray(command);
}

void tst_TavoroCtlEscapes::outputOfCommandsIsEscaped()
{
    QFETCH(QByteArray, command);
    useHostileDevice();
    const QByteArray file = m_bench->makeFile("nine", "123456789");
    QCOMPARE(m_bench->run("push", {file, "--name", hostileName.toUtf8()}).exitCode, 0);
    const Run run = m_bench->run(command, {});
    QVERIFY2(!hasControlCharacters(run.output), run.output.constData());
    QVERIFY2(!hasControlCharacters(run.errors), run.errors.constData());
    const bool showsNames = command != "version" && command != "selfcheck";
    QCOMPARE(run.output.contains(escapedName), showsNames);
}

void tst_TavoroCtlEscapes::discoverEscapesTheName()
{
    useHostileDevice();
    const QByteArray target = "127.0.0.1:" + QByteArray::number(m_bench->device->discoveryPort());
    QCOMPARE(run({"discover", target}).output,
             host().leftJustified(21) + "  53494D0000000001  " + escapedName + '\n');
}

void tst_TavoroCtlEscapes::messagesAreEscaped()
{
    const Run refused = run({"call", "\x1b[2J", "Device.readDetails"});
    QCOMPARE(refused.errors, QByteArray("tavoroctl: \"\\x1b[2J\" is not HOST[:PORT]\n"));
    const Run option = run({"--\x1b[2J"});
    QCOMPARE(option.errors, QByteArray("tavoroctl: Unknown option '\\x1b[2J'.\n"));
}

void tst_TavoroCtlEscapes::logIsEscaped()
{
    useHostileDevice();
    const Run read = run({"--verbose", "call", host(), "Device.readDetails"});
    QVERIFY2(!hasControlCharacters(read.errors), read.errors.constData());
}

void tst_TavoroCtlEscapes::watchEscapesNamesAndValues()
{
    useHostileDevice();
    RunningTool watch(m_bench->line("watch"));
    QVERIFY(watch.waitForErrors("Ctrl-C"));
    m_bench->console(QStringLiteral("group 7 a\u009bb"));
    QVERIFY(watch.waitForOutput("groupName"));
    watch.interrupt();
    const ToolRun run = watch.finish();
    QVERIFY2(run.errors.contains("Watching " + escapedName + ";"), run.errors.constData());
    QVERIFY2(!hasControlCharacters(run.errors), run.errors.constData());
    QVERIFY2(run.output.contains(R"(a\x9bb)"), run.output.constData());
    QVERIFY2(!hasControlCharacters(run.output), run.output.constData());
}

void tst_TavoroCtlEscapes::replayIsEscaped()
{
    m_bench = std::make_unique<ToolBench>();
    const QByteArray capture =
        m_bench->makeFile("capture", "# tavoro wire capture 1\n1 0.000924 open a\x1b[2Jb\n");
    const Run replay = run({"replay", capture});
    QCOMPARE(replay.output, QByteArray("  0.000924 1 | connected to a\\x1b[2Jb\n"));
}

void tst_TavoroCtlEscapes::jsonIsPrintedAsItIs()
{
    useHostileDevice();
    const Run read = call({"Device.readDetails"});
    QVERIFY2(read.output.contains(R"("name":"a\u001B[2Jb\u009B1mc\u007F\r\n\td")"),
             read.output.constData());
}

QTEST_GUILESS_MAIN(tst_TavoroCtlEscapes)
#include "tst_tavoroctlescapes.moc"
