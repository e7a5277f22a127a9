// Command lines that the tool refuses before it connects or opens anything.

#include <support/tavoroctl/toolbench.h>

#include <QTest>

class tst_TavoroCtlRefusals : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void invalidCommandLinesEndWithTwo_data();
    void invalidCommandLinesEndWithTwo();
};

void tst_TavoroCtlRefusals::invalidCommandLinesEndWithTwo_data()
{
    QTest::addColumn<QByteArrayList>("arguments");
    QTest::addColumn<QByteArray>("words");
    const QByteArray nowhere =
        "nowhere.invalid"; // A command that tried to connect would end with 1.
    // clang-format off
    QTest::newRow("discover by name")        << QByteArrayList{"discover", "wall.invalid"}      << QByteArray(R"("wall.invalid" is not ADDRESS[:PORT])");
    QTest::newRow("discover by IPv6")        << QByteArrayList{"discover", "[::1]:1"}           << QByteArray(R"("[::1]:1" is not ADDRESS[:PORT])");
    QTest::newRow("one address is not good") << QByteArrayList{"discover", "127.0.0.1:9", "10.0.0.300"}
        << QByteArray(R"("10.0.0.300" is not ADDRESS[:PORT])");
    QTest::newRow("replay of no file")       << QByteArrayList{"replay", ""}                    << QByteArray("FILE is empty");
    QTest::newRow("push of no file")         << QByteArrayList{"push", nowhere, ""}             << QByteArray("FILE is empty");
    QTest::newRow("pull into no file")       << QByteArrayList{"pull", nowhere, "0", "0", ""}   << QByteArray("FILE is empty");
    QTest::newRow("upgrade from no package") << QByteArrayList{"upgrade", nowhere, ""}          << QByteArray("PACKAGE is empty");
    // clang-format on
}

void tst_TavoroCtlRefusals::invalidCommandLinesEndWithTwo()
{
    QFETCH(QByteArrayList, arguments);
    QFETCH(QByteArray, words);
    const ToolRun run = ToolBench::run(arguments);
    QCOMPARE(run.errors, "tavoroctl: " + words + '\n');
    QCOMPARE(run.output, QByteArray());
    QCOMPARE(run.exitCode, 2);
}

QTEST_GUILESS_MAIN(tst_TavoroCtlRefusals)
#include "tst_tavoroctlrefusals.moc"
