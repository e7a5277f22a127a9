// The example that reads a device.

#include <support/examples/examplebench.h>

#include <QTest>

class tst_ReadDevice : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void printsScreensAndLayers();
    void printsWhyItCannotConnect();
};

void tst_ReadDevice::printsScreensAndLayers()
{
    const ExampleBench bench;
    ExampleProgram program(EXAMPLE, bench.hostAndPort());
    QCOMPARE(program.readAll(),
             QStringLiteral("Main hall, 4 interfaces\n"
                            "screen 1: Main\n"
                            "    Layer 1: 3840x1080 at 0,0\n"
                            "    Background: 3840x1080 at 0,0\n"
                            "screen 2: Blend\n"
                            "    Layer 1: 3712x2032 at 0,0\n"
                            "    Background: 3712x2032 at 0,0\n"));
    QCOMPARE(program.process.exitCode(), 0);
}

void tst_ReadDevice::printsWhyItCannotConnect()
{
    ExampleBench bench;
    QVERIFY(bench.execute("switch 0"));
    ExampleProgram program(EXAMPLE, bench.hostAndPort());
    QCOMPARE(
        program.readAll(),
        QStringLiteral("Cannot connect to 127.0.0.1:%1: Connection refused.\n").arg(bench.port()));
    QCOMPARE(program.process.exitCode(), 1);
}

QTEST_GUILESS_MAIN(tst_ReadDevice)
#include "tst_readdevice.moc"
