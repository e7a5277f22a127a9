// The example that follows the changes of a device.

#include <support/examples/examplebench.h>

#include <QTest>

class tst_FollowDevice : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void printsStatesAndSignals();
};

void tst_FollowDevice::printsStatesAndSignals()
{
    ExampleBench bench;
    ExampleProgram program(EXAMPLE, bench.hostAndPort());
    QCOMPARE(program.readLine(), QStringLiteral("Reading Main hall."));
    QCOMPARE(program.readLine(), QStringLiteral("Main hall is ready."));
    QVERIFY(bench.execute("timing 1 2 1280 720 50"));
    QCOMPARE(program.readLine(), QStringLiteral("Input 2: 1280x720 at 50 Hz"));
    QVERIFY(bench.execute("switch 0"));
    QCOMPARE(program.readLine(),
             QStringLiteral("The connection to Main hall is lost: The remote "
                            "host closed the connection."));
    QVERIFY(bench.execute("switch 1"));
    QCOMPARE(program.readLine(), QStringLiteral("Reading Main hall."));
    // The restarted device has its saved setup again, which differs from the model.
    QCOMPARE(program.readLine(), QStringLiteral("Input 2: 1920x1080 at 60 Hz"));
    QCOMPARE(program.readLine(), QStringLiteral("Main hall is ready."));
    QVERIFY(bench.execute("timing 1 2 800 600 60"));
    QCOMPARE(program.readLine(), QStringLiteral("Input 2: 800x600 at 60 Hz"));
    QCOMPARE(program.process.bytesAvailable(), qint64(0));
}

QTEST_GUILESS_MAIN(tst_FollowDevice)
#include "tst_followdevice.moc"
