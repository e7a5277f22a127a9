// What the simulated device limits: the length of a content, and the contents that are unfinished.

#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/packetsize.h>
#include <support/tavorosim/simbench.h>

#include <tavorosim/commands/commandtable.h>
#include <tavorosim/state/factorysetup.h>

#include <QTest>

using namespace CommandCodes;
using Tavoro::Sim::carryOut;
using Tavoro::Sim::DeviceStatus;
using Tavoro::Sim::Reports;
using Tavoro::Sim::Request;
using Tavoro::Sim::SimState;
using Tavoro::Sim::Uploads;
using Tavoro::SSProxy::Command;
using Tavoro::SSProxy::CommandType;

namespace {

const std::string nineBytes = "123456789";

Request writeOf(Command command)
{
    Request request;
    request.command = command;
    request.type = CommandType::Write;
    return request;
}

} // namespace

class tst_TavoroSimFileLimits : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void announcedLengthThatIsTooLongToReadIsRefused();
    void contentThatIsTooLongToReadIsRefused();
    void fileThatIsTooLongToReadIsNotCreated();
    void unfinishedContentsOfAConnectionAreLimited();
    void seventeenthUnfinishedContentOfAConnectionIsRefused();
};

void tst_TavoroSimFileLimits::announcedLengthThatIsTooLongToReadIsRefused()
{
    SimBench bench(packetsOf(200));
    constexpr int longest = 200 * 65536;
    QCOMPARE(bench.write(fileImport, SimBench::announcement(2, 7, longest + 1, 0)), 7);
    QCOMPARE(bench.send(2, 7, nineBytes), 3); // not announced
    QCOMPARE(bench.write(fileImport, SimBench::announcement(2, 7, longest, 0)), 0);
}

void tst_TavoroSimFileLimits::contentThatIsTooLongToReadIsRefused()
{
    SimState state;
    state.files.setMaxContentLength(8);
    Uploads uploads;
    Request request = writeOf(Command::FileImport);
    request.uploads = &uploads;
    request.body = SimBench::announcement(2, 7, 0, 0);
    Reports reports;
    QCOMPARE(carryOut(state, request, reports).status, DeviceStatus::Success);
    request.type = CommandType::BinaryWrite;
    request.arg2 = {2, 7, 0, 0};
    request.body = nineBytes;
    QCOMPARE(carryOut(state, request, reports).status, DeviceStatus::BodyTooLong);
    QVERIFY(state.files.index().empty());
    request.body.pop_back();
    QCOMPARE(carryOut(state, request, reports).status, DeviceStatus::Success);
}

void tst_TavoroSimFileLimits::fileThatIsTooLongToReadIsNotCreated()
{
    SimState state;
    static_cast<Tavoro::Sim::Setup &>(state) = Tavoro::Sim::makeFactorySetup({});
    Request request = writeOf(Command::FileCreateEdid);
    request.body = R"([{"fileId":1,"fileType":2,"general":{"name":"edid"},)"
                   R"("interfaceId":{"slotId":1,"connectorId":1,"splitId":0}}])";
    Reports reports;
    state.files.setMaxContentLength(127);
    QCOMPARE(carryOut(state, request, reports).status, DeviceStatus::StorageFailed);
    QVERIFY(state.files.index().empty());
    state.files.setMaxContentLength(128);
    QCOMPARE(carryOut(state, request, reports).status, DeviceStatus::Success);
}

void tst_TavoroSimFileLimits::unfinishedContentsOfAConnectionAreLimited()
{
    SimState state;
    state.files.setMaxUnfinishedBytes(10);
    Uploads uploads;
    Reports reports;
    Request request = writeOf(Command::FileImport);
    request.uploads = &uploads;
    for (const int id : {1, 2}) {
        request.body = SimBench::announcement(2, id, 0, 0);
        QCOMPARE(carryOut(state, request, reports).status, DeviceStatus::Success);
    }
    const auto send = [&](quint8 id, const char *piece) {
        request.type = CommandType::BinaryWrite;
        request.arg2 = {2, id, 0, 0};
        request.totalCount = 2;
        request.body = piece;
        return carryOut(state, request, reports).status;
    };
    QCOMPARE(send(1, "12345678"), DeviceStatus::Success);
    QCOMPARE(send(2, "123"), DeviceStatus::StorageFailed);
    QCOMPARE(send(2, "12"), DeviceStatus::Success);
    Uploads others;
    request.uploads = &others; // of another connection
    QCOMPARE(send(2, "12345678"), DeviceStatus::Success);
}

void tst_TavoroSimFileLimits::seventeenthUnfinishedContentOfAConnectionIsRefused()
{
    SimBench bench;
    for (int id = 1; id <= 17; ++id)
        QCOMPARE(bench.write(fileImport, SimBench::announcement(2, id, 0, 0)), 0);
    for (quint8 id = 1; id <= 16; ++id)
        QCOMPARE(bench.send(2, id, "a", 2), 0);
    QCOMPARE(bench.send(2, 17, "a", 2), 8);
    QCOMPARE(bench.send(2, 16, "b", 2), 0); // begins again
    QCOMPARE(bench.send(2, 1, "b", 2, 1), 0); // is complete
    QCOMPARE(bench.send(2, 17, "a", 2), 0);
}

QTEST_GUILESS_MAIN(tst_TavoroSimFileLimits)
#include "tst_tavorosimfilelimits.moc"
