// Batches: which device a line reaches, and which lines are refused.

#include <support/tavoroctl/toolbench.h>

#include <QTest>

using Tavoro::Sim::SimOptions;

class tst_TavoroCtlBatch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void devicesAtOneAddressAreDistinguished();
    void devicesWithTheSameIdentityAreRefused();
    void oneDeviceMayHaveTwoNames();
    void invalidLinesAreRefused_data();
    void invalidLinesAreRefused();
    void hostOfTheBatchIsCheckedBeforeItsLines();
    void faultOfAHostNamesTheLine();
};

namespace {

QByteArray swapLine(const QByteArray &host, int swap)
{
    return host + " Device.writeSwap {\"swap\":" + QByteArray::number(swap) + "}\n";
}

bool isSwapped(const ToolBench &bench)
{
    return bench.run("call", {"Device.readDetails"}).output.contains("\"swap\":1,");
}

const QByteArray swapDone = "Set device swap status information successfully.\n";

} // namespace

void tst_TavoroCtlBatch::devicesAtOneAddressAreDistinguished()
{
    SimOptions options;
    const ToolBench first(options);
    options.sn.back() = 2;
    const ToolBench second(options);
    const ToolRun batch =
        ToolBench::run({"batch"}, swapLine(second.host(), 1) + swapLine(first.host(), 0));
    QCOMPARE(batch.errors, swapDone + swapDone);
    QCOMPARE(batch.exitCode, 0);
    QVERIFY(!isSwapped(first));
    QVERIFY(isSwapped(second));
}

void tst_TavoroCtlBatch::devicesWithTheSameIdentityAreRefused()
{
    const ToolBench first;
    const ToolBench second;
    const ToolRun batch =
        ToolBench::run({"batch"}, swapLine(first.host(), 0) + swapLine(second.host(), 1));
    QCOMPARE(batch.errors,
             swapDone + "line 2 of the batch: The devices at " + first.host() + " and "
                 + second.host() + " report the same identity; a batch cannot use both.\n");
    QCOMPARE(batch.exitCode, 3);
    QVERIFY(!isSwapped(first));
}

void tst_TavoroCtlBatch::oneDeviceMayHaveTwoNames()
{
    const ToolBench bench;
    const QByteArray otherName = "127.1:" + QByteArray::number(bench.device->port());
    const ToolRun batch =
        ToolBench::run({"batch"}, swapLine(bench.host(), 1) + swapLine(otherName, 0));
    QCOMPARE(batch.errors, swapDone + swapDone);
    QCOMPARE(batch.exitCode, 0);
    QVERIFY(!isSwapped(bench));
}

void tst_TavoroCtlBatch::invalidLinesAreRefused_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("words");
    // clang-format off
    QTest::newRow("unclosed")         << QByteArray(R"(Device.writeSwap '{"swap":1})")  << QByteArray("the closing quote is missing");
    QTest::newRow("quote alone")      << QByteArray("Device.writeSwap '")               << QByteArray("the closing quote is missing");
    QTest::newRow("closed too early") << QByteArray(R"('Device.writeSwap'{"swap":1})")  << QByteArray("expected a space after the closing quote");
    QTest::newRow("quote at quote")   << QByteArray(R"('Device.writeSwap''{"swap":1}')") << QByteArray("expected a space after the closing quote");
    // clang-format on
}

void tst_TavoroCtlBatch::invalidLinesAreRefused()
{
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, words);
    const ToolBench bench;
    QCOMPARE(ToolBench::run({"batch"}, swapLine(bench.host(), 0)).exitCode, 0);
    const ToolRun batch = ToolBench::run({"batch", bench.host()},
                                         "# A comment's quote is ignored.\n" + line
                                             + "\nDevice.readDeviceGroupInfo\n");
    QCOMPARE(batch.errors,
             "tavoroctl: line 2 of the batch: " + words
                 + "\nGet device group information successfully.\n");
    QCOMPARE(batch.exitCode, 2);
    QVERIFY(!isSwapped(bench));
}

void tst_TavoroCtlBatch::hostOfTheBatchIsCheckedBeforeItsLines()
{
    for (const QByteArray &input : {QByteArray(), QByteArray("Device.swap\n")}) {
        const ToolRun batch = ToolBench::run({"batch", "a:99999"}, input);
        QCOMPARE(batch.errors, QByteArray("tavoroctl: \"a:99999\" is not HOST[:PORT]\n"));
        QCOMPARE(batch.exitCode, 2);
    }
}

void tst_TavoroCtlBatch::faultOfAHostNamesTheLine()
{
    const ToolRun batch = ToolBench::run({"batch"}, "\na:99999 Device.writeSwap {\"swap\":1}\n");
    QCOMPARE(batch.errors,
             QByteArray("tavoroctl: line 2 of the batch: \"a:99999\" is not HOST[:PORT]\n"));
    QCOMPARE(batch.exitCode, 2);
}

QTEST_GUILESS_MAIN(tst_TavoroCtlBatch)
#include "tst_tavoroctlbatch.moc"
