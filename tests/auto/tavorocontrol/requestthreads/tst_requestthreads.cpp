#include <support/common/requestcommand.h>
#include <support/tavorobizmodel/journal.h>
#include <support/tavorocontrol/scripteddevice.h>
#include <tavorocontrol/controlhelper.h>

#include <QtTest>

#include <algorithm>
#include <atomic>
#include <thread>

using namespace Tavoro;

namespace {

constexpr int threadCount = 4;
constexpr int rounds = 50;

/// Reads and writes in turn, in two packets each. Returns the number of correct rounds.
int readAndWrite(Control::ControlHelper &helper, const std::shared_ptr<BizModel::Device> &model)
{
    int good = 0;
    for (int round = 0; round < rounds; ++round) {
        std::string result;
        QString error;
        const bool read = helper.sendSyncRequest(model, requestCommand(1, 0x1100), result, error);
        const bool written =
            helper.sendSyncRequest(model, requestCommand(2, 0x1107, "abcdefgh"), error, true);
        if (read && written && result == "onetwo" && error.isEmpty())
            ++good;
    }
    return good;
}

void prepare(ScriptedChannel &channel, int exchanges)
{
    channel.info.maxPacketSize = 4;
    for (int i = 0; i < exchanges; ++i) {
        channel.answer(ScriptedAnswer::packet("one", 2));
        channel.answer(ScriptedAnswer::packet("two"));
        channel.answer({});
        channel.answer({});
    }
}

} // namespace

class tst_RequestThreads : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void oneHelperServesSeveralDevicesAtOnce();
    void oneDeviceIsWrittenBySeveralThreadsAtOnce();
    void cancelledStateIsSetFromAnotherThread();
};

void tst_RequestThreads::oneHelperServesSeveralDevicesAtOnce()
{
    const Journal journal;
    Control::ControlHelper helper;
    std::vector<std::unique_ptr<ScriptedDevice>> devices;
    for (quint8 number = 1; number <= threadCount; ++number) {
        devices.push_back(std::make_unique<ScriptedDevice>(number));
        prepare(*devices.back()->channel, rounds);
    }
    std::vector<int> good(threadCount);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < devices.size(); ++i)
        threads.emplace_back([&, i] { good[i] = readAndWrite(helper, devices[i]->model); });
    for (std::thread &thread : threads)
        thread.join();

    QCOMPARE(good, std::vector<int>(threadCount, rounds));
    for (const auto &device : devices)
        QCOMPARE(device->channel->sent().size(), std::size_t(4 * rounds));
    const QStringList lines = journal.lines();
    constexpr int exchanges = threadCount * rounds;
    QCOMPARE(lines.filter(QStringLiteral("info: TavoroCmd")).size(), 4 * exchanges);
    QCOMPARE(lines.filter(QStringLiteral("status bar 0")).size(), 2 * exchanges);
    QCOMPARE(lines.filter(QStringLiteral("reading: 1")).size(), exchanges);
    QCOMPARE(lines.filter(QStringLiteral("sending: ")).size(), 2 * exchanges);
}

void tst_RequestThreads::oneDeviceIsWrittenBySeveralThreadsAtOnce()
{
    const Journal journal;
    ScriptedDevice device;
    device.channel->info.maxPacketSize = 4;
    std::atomic<int> good{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < threadCount; ++i) {
        threads.emplace_back([&] {
            Control::ControlHelper helper;
            for (int round = 0; round < rounds; ++round) {
                QString error;
                good += helper.sendSyncRequest(device.model, requestCommand(2, 0x1107, "abcdefgh"),
                                               error, true);
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();

    QCOMPARE(good.load(), threadCount * rounds);
    const auto sent = device.channel->sent();
    QCOMPARE(sent.size(), std::size_t(2 * threadCount * rounds));
    // Packets of different writes may interleave, but none is lost or changed.
    const auto firsts = std::count_if(sent.begin(), sent.end(), [](const SentRequest &packet) {
        return packet.head.sendCount == 0 && packet.body == "abcd";
    });
    QCOMPARE(int(firsts), threadCount * rounds);
}

void tst_RequestThreads::cancelledStateIsSetFromAnotherThread()
{
    const Journal journal;
    ScriptedDevice device;
    prepare(*device.channel, rounds);
    Control::ControlHelper helper;
    std::atomic<bool> done{false};
    std::thread canceller([&] {
        while (!done)
            helper.setCancelledState(true);
    });
    const int good = readAndWrite(helper, device.model);
    done = true;
    canceller.join();
    QCOMPARE(good, rounds);
}

QTEST_GUILESS_MAIN(tst_RequestThreads)
#include "tst_requestthreads.moc"
