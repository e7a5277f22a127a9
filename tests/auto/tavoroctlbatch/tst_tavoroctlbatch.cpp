// Batches of the tool: which device a line reaches, and which lines are refused.

#include <toolbench.h>

#include <QTest>

using Tavoro::Sim::SimOptions;

class tst_TavoroCtlBatch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void devicesOfOneAddressAreToldApart();
    void devicesOfOneIdentityAreRefused();
    void oneDeviceMayHaveTwoNames();
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

void tst_TavoroCtlBatch::devicesOfOneAddressAreToldApart()
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

void tst_TavoroCtlBatch::devicesOfOneIdentityAreRefused()
{
    const ToolBench first;
    const ToolBench second;
    const ToolRun batch =
        ToolBench::run({"batch"}, swapLine(first.host(), 0) + swapLine(second.host(), 1));
    QCOMPARE(batch.errors,
             swapDone + "The devices at " + first.host() + " and " + second.host()
                 + " tell the same identity; a batch cannot tell them apart.\n");
    QCOMPARE(batch.exitCode, 1);
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

QTEST_GUILESS_MAIN(tst_TavoroCtlBatch)
#include "tst_tavoroctlbatch.moc"
