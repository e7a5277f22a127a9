// The example that performs a take.

#include <support/examples/examplebench.h>

#include <QTest>

class tst_Take : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void printsTheOutcome_data();
    void printsTheOutcome();
};

void tst_Take::printsTheOutcome_data()
{
    QTest::addColumn<QByteArray>("console");
    QTest::addColumn<QString>("screen");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("output");
    // clang-format off
    QTest::newRow("done") << QByteArray() << "1" << 0
        << "Main hall: screen take information was carried out.\n";
    QTest::newRow("refused") << QByteArray("fault add status=8,code=0x130E") << "1" << 1
        << "Main hall: screen take information was refused: the device is busy, or the object is in use.\n";
    QTest::newRow("no screen") << QByteArray() << "9" << 1
        << "Main hall does not have the screen.\n";
    // clang-format on
}

void tst_Take::printsTheOutcome()
{
    QFETCH(QByteArray, console);
    QFETCH(QString, screen);
    ExampleBench bench;
    QVERIFY(console.isEmpty() || bench.execute(console.constData()));
    ExampleProgram program(EXAMPLE, bench.hostAndPort() << screen);
    QTEST(program.readAll(), "output");
    QTEST(program.process.exitCode(), "exitCode");
}

QTEST_GUILESS_MAIN(tst_Take)
#include "tst_take.moc"
