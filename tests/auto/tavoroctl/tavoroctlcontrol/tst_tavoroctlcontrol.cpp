// Control of a device from the terminal, several watched devices, colours, and files that are not
// replaced.

#include <support/tavoroctl/toolcalls.h>

#include <QProcess>
#include <QTest>

class tst_TavoroCtlControl : public QObject, private ToolCalls {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void controlIsHeldUntilItIsInterrupted();
    void controlOfAnotherClientIsNotTaken();
    void forcedControlEndsThatOfAnother();
    void releaseEndsTheControlOfAnother();
    void otherActionsAreRefused();

    void severalDevicesAreWatched();
    void errorsAreRedOnATerminal_data();
    void errorsAreRedOnATerminal();

    void pushTakesAFreeIdAndPrintsIt();
    void pushDoesNotReplaceAFile();
    void pushNeedsAFreeId();

private:
    Run control(const QByteArray &action) const { return m_bench->run("control", {action}); }

    const QByteArray m_held = "This client holds control until Ctrl-C.\n";
};

void tst_TavoroCtlControl::init()
{
    m_bench = std::make_unique<ToolBench>();
}

void tst_TavoroCtlControl::cleanup()
{
    m_bench.reset();
}

void tst_TavoroCtlControl::controlIsHeldUntilItIsInterrupted()
{
    QCOMPARE(control("who").output, QByteArray("nobody\n"));
    RunningTool holder(m_bench->line("control", {"take"}));
    QVERIFY(holder.waitForErrors(m_held));
    QVERIFY(control("who").output.startsWith("127.0.0.1:"));
    const Run write = call({"Device.writeSwap", R"({"swap":0})"});
    QVERIFY2(write.errors.contains("under control"), write.errors.constData());
    QCOMPARE(write.exitCode, 4);
    holder.interrupt();
    const Run held = holder.finish();
    QCOMPARE(held.errors, m_held);
    QCOMPARE(held.exitCode, 0);
    QCOMPARE(control("who").output, QByteArray("nobody\n"));
}

void tst_TavoroCtlControl::controlOfAnotherClientIsNotTaken()
{
    RunningTool holder(m_bench->line("control", {"take"}));
    QVERIFY(holder.waitForErrors(m_held));
    const Run other = control("take");
    QVERIFY2(other.errors.contains("is controlled by 127.0.0.1:"), other.errors.constData());
    QCOMPARE(other.exitCode, 4);
}

void tst_TavoroCtlControl::forcedControlEndsThatOfAnother()
{
    RunningTool holder(m_bench->line("control", {"take"}));
    QVERIFY(holder.waitForErrors(m_held));
    RunningTool other(m_bench->line("control", {"force"}));
    QVERIFY(other.waitForErrors(m_held));
    const Run lost = holder.finish();
    QCOMPARE(lost.errors, m_held + "Another client has taken control.\n");
    QCOMPARE(lost.exitCode, 4);
    other.interrupt();
    QCOMPARE(other.finish().exitCode, 0);
}

void tst_TavoroCtlControl::releaseEndsTheControlOfAnother()
{
    RunningTool holder(m_bench->line("control", {"take"}));
    QVERIFY(holder.waitForErrors(m_held));
    QCOMPARE(control("release").exitCode, 0);
    QCOMPARE(control("who").output, QByteArray("nobody\n"));
}

void tst_TavoroCtlControl::otherActionsAreRefused()
{
    const Run run = control("grab");
    QCOMPARE(run.errors, QByteArray("tavoroctl: \"grab\" is not who, take, release or force\n"));
    QCOMPARE(run.exitCode, 2);
}

void tst_TavoroCtlControl::severalDevicesAreWatched()
{
    Tavoro::Sim::SimOptions options;
    options.name = QStringLiteral("Second");
    options.sn[0] = 7;
    const ToolBench second(options);
    RunningTool watch(m_bench->line("watch", {second.host()}));
    QVERIFY(watch.waitForErrors(host() + ": Watching Simulated device; press Ctrl-C to stop.\n"));
    QVERIFY(watch.waitForErrors(second.host() + ": Watching Second; press Ctrl-C to stop.\n"));
    const QByteArray change = ": device: powers[0].iSignal 1 -> 0, powers[0].status 1 -> 0\n";
    second.console(QStringLiteral("power 1 0"));
    QVERIFY(watch.waitForOutput(second.host() + change));
    m_bench->console(QStringLiteral("power 1 0"));
    QVERIFY(watch.waitForOutput(host() + change));
    watch.interrupt();
    const Run run = watch.finish();
    QCOMPARE(run.output, second.host() + change + host() + change);
    QCOMPARE(run.exitCode, 0);
}

void tst_TavoroCtlControl::errorsAreRedOnATerminal_data()
{
    QTest::addColumn<QStringList>("environment");
    QTest::addColumn<QByteArray>("drawn");
    const QByteArray text = "tavoroctl: unknown command \"dance\"; --help lists all commands";
    const QStringList terminal{QStringLiteral("TERM=xterm")};
    QTest::newRow("colours") << terminal << "\x1b[31m" + text + "\x1b[0m\r\n";
    QTest::newRow("NO_COLOR") << terminal + QStringList{QStringLiteral("NO_COLOR=1")}
                              << text + "\r\n";
    QTest::newRow("empty NO_COLOR")
        << terminal + QStringList{QStringLiteral("NO_COLOR=")} << "\x1b[31m" + text + "\x1b[0m\r\n";
    QTest::newRow("dumb terminal") << QStringList{QStringLiteral("TERM=dumb")} << text + "\r\n";
}

void tst_TavoroCtlControl::errorsAreRedOnATerminal()
{
    QFETCH(QStringList, environment);
    QFETCH(QByteArray, drawn);
    Terminal terminal;
    QProcess tool;
    tool.setStandardErrorFile(terminal.name());
    tool.start(QStringLiteral("env"),
               QStringList{QStringLiteral("-u"), QStringLiteral("NO_COLOR")} + environment
                   + QStringList{QStringLiteral(TAVOROCTL), QStringLiteral("dance")});
    QVERIFY(tool.waitForFinished());
    QCOMPARE(terminal.drawn(), drawn);
}

void tst_TavoroCtlControl::pushTakesAFreeIdAndPrintsIt()
{
    const QByteArray file = m_bench->makeFile("nine", "123456789");
    QCOMPARE(m_bench->run("push", {file, "--id", "1"}).output, QByteArray());
    QCOMPARE(m_bench->run("push", {file}).output, QByteArray("0\n"));
    QCOMPARE(m_bench->run("push", {file}).output, QByteArray("2\n"));
    QCOMPARE(m_bench->run("push", {file, "--type", "logo"}).output, QByteArray("0\n"));
}

void tst_TavoroCtlControl::pushDoesNotReplaceAFile()
{
    const QByteArray nine = m_bench->makeFile("nine", "123456789");
    const QByteArray three = m_bench->makeFile("three", "abc");
    QCOMPARE(m_bench->run("push", {nine, "--id", "4"}).exitCode, 0);
    const Run refused = m_bench->run("push", {three, "--id", "4"});
    QCOMPARE(refused.errors,
             QByteArray("The device has the file background 4 (\"nine\"). Replace it with --force, "
                        "or leave --id out.\n"));
    QCOMPARE(refused.exitCode, 1);
    QCOMPARE(m_bench->run("pull", {"0", "4", "-"}).output, QByteArray("123456789"));
    QCOMPARE(m_bench->run("push", {three, "--id", "4", "--force"}).exitCode, 0);
    QCOMPARE(m_bench->run("pull", {"0", "4", "-"}).output, QByteArray("abc"));
}

void tst_TavoroCtlControl::pushNeedsAFreeId()
{
    QByteArray lines;
    for (int id = 0; id < 255; ++id)
        lines += "File.writeCreatePresetFile [{\"fileId\":" + QByteArray::number(id)
            + R"(,"fileType":6,"general":{"name":"p"},"screens":[]}])" + '\n';
    const Run presets = run({"batch", "--quiet", host()}, lines);
    QVERIFY2(presets.exitCode == 0, presets.errors.left(1000).constData());
    const Run push = m_bench->run("push", {m_bench->makeFile("nine", "9"), "--type", "6"});
    QCOMPARE(push.errors,
             QByteArray("The device has no free ID for a file of the type screen-preset.\n"));
    QCOMPARE(push.exitCode, 1);
}

QTEST_GUILESS_MAIN(tst_TavoroCtlControl)
#include "tst_tavoroctlcontrol.moc"
