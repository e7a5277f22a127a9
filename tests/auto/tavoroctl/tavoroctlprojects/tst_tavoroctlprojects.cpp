// project save and project apply on a simulated device.

#include <support/tavoroctl/toolcalls.h>

#include <QTest>

class tst_TavoroCtlProjects : public QObject, private ToolCalls {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void applyingAProjectRestoresScreensAndFiles();
    void projectContainsTheKindsThatAreNamed_data();
    void projectContainsTheKindsThatAreNamed();
    void projectHasADefaultNameAndType();
    void missingProjectEndsWithFour();
    void wrongUsageEndsWithTwo_data();
    void wrongUsageEndsWithTwo();

private:
    QByteArray readFiles() const { return m_bench->run("files", {}).output; }
};

namespace {

const QByteArray freeze = R"([{"screenId":1,"screenType":1,"freeze":1}])";
const QByteArray removeLogo = R"([{"fileId":3,"fileType":2}])";

} // namespace

void tst_TavoroCtlProjects::init()
{
    m_bench = std::make_unique<ToolBench>();
    const QByteArray file = m_bench->makeFile("nine", "123456789");
    for (const char *type : {"background", "logo", "screen-preset", "12"})
        QCOMPARE(m_bench->run("push", {file, "--type", type, "--id", "3"}).exitCode, 0);
}

void tst_TavoroCtlProjects::cleanup()
{
    m_bench.reset();
}

void tst_TavoroCtlProjects::applyingAProjectRestoresScreensAndFiles()
{
    const QByteArray screens = call({"Screen.readDetails", "1", "1", "-1"}).output;
    const Run save = m_bench->run("project save", {"1", "--name", "Tour", "--type", "13"});
    QCOMPARE(save.errors + save.output, QByteArray());
    QCOMPARE(save.exitCode, 0);
    QCOMPARE(call({"Screen.writeFreeze", freeze}).exitCode, 0);
    QCOMPARE(call({"File.writeDeleteFiles", removeLogo}).exitCode, 0);
    QVERIFY(!readFiles().contains("logo"));

    const Run apply = m_bench->run("project apply", {"1", "--type", "13"});
    QCOMPARE(apply.errors + apply.output, QByteArray());
    QCOMPARE(apply.exitCode, 0);
    QCOMPARE(call({"Screen.readDetails", "1", "1", "-1"}).output, screens);
    QVERIFY(readFiles().contains("logo           3   nine"));
    QVERIFY(readFiles().contains("13             1   Tour"));
}

void tst_TavoroCtlProjects::projectContainsTheKindsThatAreNamed_data()
{
    QTest::addColumn<QByteArray>("kinds");
    QTest::addColumn<QByteArray>("record");
    // clang-format off
    QTest::newRow("all")    << QByteArray("all")             << QByteArray(R"({"other":1,"BKG":1,"logo":1,"preset":1})");
    QTest::newRow("none")   << QByteArray("none")            << QByteArray(R"({"other":0,"BKG":0,"logo":0,"preset":0})");
    QTest::newRow("one")    << QByteArray("logo")            << QByteArray(R"({"other":0,"BKG":0,"logo":1,"preset":0})");
    QTest::newRow("two")    << QByteArray("preset,background") << QByteArray(R"({"other":0,"BKG":1,"logo":0,"preset":1})");
    QTest::newRow("others") << QByteArray("other")           << QByteArray(R"({"other":1,"BKG":0,"logo":0,"preset":0})");
    // clang-format on
}

void tst_TavoroCtlProjects::projectContainsTheKindsThatAreNamed()
{
    QFETCH(QByteArray, kinds);
    QFETCH(QByteArray, record);
    const Run save = m_bench->run("project save", {"1", "--contain", kinds, "--verbose"});
    QCOMPARE(save.exitCode, 0);
    QVERIFY2(save.errors.contains("\\\"contain\\\":" + record.replace('"', "\\\"")),
             save.errors.constData());
}

void tst_TavoroCtlProjects::projectHasADefaultNameAndType()
{
    QCOMPARE(m_bench->run("project save", {"7"}).exitCode, 0);
    QVERIFY(readFiles().contains("10             7   Project 7"));
    QCOMPARE(m_bench->run("project apply", {"7"}).exitCode, 0);
    QCOMPARE(call({"File.writeDeleteFiles", removeLogo}).exitCode, 0);
    QCOMPARE(m_bench->run("project apply", {"7"}).exitCode, 0);
    QVERIFY(readFiles().contains("logo")); // A project contains all files by default.
}

void tst_TavoroCtlProjects::missingProjectEndsWithFour()
{
    const Run apply = m_bench->run("project apply", {"9"});
    QCOMPARE(apply.errors,
             QByteArray("Set ProjectFile apply information failed: hardware error:3 (the body or "
                        "the filters name an object that does not exist) .\n"));
    QCOMPARE(apply.exitCode, 4);
}

void tst_TavoroCtlProjects::wrongUsageEndsWithTwo_data()
{
    QTest::addColumn<QByteArrayList>("arguments");
    QTest::addColumn<QByteArray>("words");
    const QByteArray nowhere = "nowhere.invalid";
    // clang-format off
    QTest::newRow("half a name") << QByteArrayList{"project", nowhere, "1"}           << QByteArray("unknown command \"project\"; --help lists all commands");
    QTest::newRow("no id")       << QByteArrayList{"project", "save", nowhere}        << QByteArray("project save takes HOST[:PORT] ID");
    QTest::newRow("bad id")      << QByteArrayList{"project", "apply", nowhere, "a"}  << QByteArray("\"a\" is not a valid file ID (0 to 254)");
    QTest::newRow("bad kind")    << QByteArrayList{"project", "save", nowhere, "1", "--contain", "logo,movie"}
        << QByteArray("\"movie\" is not a kind of files; use all, none or some of: background,logo,preset,other");
    // clang-format on
}

void tst_TavoroCtlProjects::wrongUsageEndsWithTwo()
{
    QFETCH(QByteArrayList, arguments);
    QFETCH(QByteArray, words);
    const Run refused = run(arguments);
    QCOMPARE(refused.errors, "tavoroctl: " + words + '\n');
    QCOMPARE(refused.exitCode, 2);
}

QTEST_GUILESS_MAIN(tst_TavoroCtlProjects)
#include "tst_tavoroctlprojects.moc"
