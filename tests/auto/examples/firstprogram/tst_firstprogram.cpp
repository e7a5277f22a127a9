// The first program of README.md: the page shows its source, and it does what the page says.

#include <support/common/filecontent.h>
#include <support/examples/exampleprogram.h>

#include <QTest>

class tst_FirstProgram : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readmeShowsTheWholeSource();
    void readsTheDeviceTakesAndPrintsReports();
    void printsWhyItCannotConnect();
};

void tst_FirstProgram::readmeShowsTheWholeSource()
{
    const QByteArray source = contentOf(QStringLiteral(FIRST_PROGRAM_SOURCE));
    QVERIFY(!source.isEmpty());
    const QByteArray readme = contentOf(QStringLiteral(README));
    QVERIFY(readme.contains("```cpp\n" + source + "```\n"));
    const QByteArray project = contentOf(QStringLiteral(FIRST_PROGRAM_PROJECT));
    QVERIFY(!project.isEmpty());
    QVERIFY(readme.contains("```cmake\n" + project + "```\n"));
}

void tst_FirstProgram::readsTheDeviceTakesAndPrintsReports()
{
    ExampleProgram device(
        TAVOROSIM, QStringLiteral("--port 0 --discovery 0 --name Wall").split(QLatin1Char(' ')));
    const QString port = device.readLine().section(QLatin1Char(':'), -1);
    ExampleProgram program(FIRST_PROGRAM, {QStringLiteral("127.0.0.1"), port});
    QVERIFY(program.readLine().startsWith(QStringLiteral("Wall has ")));
    QCOMPARE(program.readLine(), QStringLiteral("The take is done."));
    device.process.write("power 1 0\n");
    QVERIFY(device.process.waitForBytesWritten(ExampleProgram::patience));
    QCOMPARE(program.readLine(), QStringLiteral("The device reports a change of part 5."));
}

void tst_FirstProgram::printsWhyItCannotConnect()
{
    ExampleProgram program(FIRST_PROGRAM, {QStringLiteral("127.0.0.1"), QStringLiteral("0")});
    QVERIFY(!program.readLine().isEmpty());
    QVERIFY(program.process.waitForFinished(ExampleProgram::patience));
    QCOMPARE(program.process.exitCode(), 1);
}

QTEST_GUILESS_MAIN(tst_FirstProgram)
#include "tst_firstprogram.moc"
