// The example that shows a device from the store of the last run.

#include <support/examples/examplebench.h>

#include <QTemporaryDir>
#include <QTest>

class tst_WorkOffline : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void showsTheLastKnownDeviceAtOnce();
    void printsWhyTheStoreCannotBeOpened();
};

void tst_WorkOffline::showsTheLastKnownDeviceAtOnce()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("devices.sqlite"));
    ExampleBench bench;
    const QString screens = QStringLiteral("    Main\n    Blend\n");
    const QString ready = QStringLiteral("Main hall is ready.\n") + screens;

    ExampleProgram first(EXAMPLE, QStringList(file) << bench.hostAndPort());
    QCOMPARE(first.readAll(),
             QStringLiteral("Connecting to 127.0.0.1:%1.\n").arg(bench.port()) + ready);

    ExampleProgram online(EXAMPLE, {file});
    QCOMPARE(online.readAll(), QStringLiteral("Connecting to Main hall.\n") + screens + ready);

    QVERIFY(bench.execute("switch 0"));
    ExampleProgram offline(EXAMPLE, {file});
    QCOMPARE(offline.readAll(),
             QStringLiteral("Connecting to Main hall.\n") + screens
                 + QStringLiteral("Cannot connect to Main hall: Connection refused.\n") + screens);
}

void tst_WorkOffline::printsWhyTheStoreCannotBeOpened()
{
    const QTemporaryDir folder;
    ExampleProgram program(EXAMPLE, {folder.path()});
    QCOMPARE(program.readAll(),
             QStringLiteral("unable to open database file Error opening database\n"));
    QCOMPARE(program.process.exitCode(), 1);
}

QTEST_GUILESS_MAIN(tst_WorkOffline)
#include "tst_workoffline.moc"
