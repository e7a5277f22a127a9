// The memory that a streamed read uses, counted at each allocation of the process.

#include <support/common/allocated.h>
#include <support/tavorocontrol/streampath.h>

#include <tavorobizmodel/devicelist.h>

#include <QtTest>

#include <algorithm>

using namespace Tavoro;

namespace {

constexpr qint64 packetSize = 4 << 20;
constexpr qint64 slack = 64 << 10; ///< For heads, texts and log lines.

/// Makes each packet when it is requested, and records the allocated memory at that time.
class MeasuringChannel : public ScriptedChannel {
public:
    std::shared_ptr<SSProxy::DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<SSProxy::DeviceRequestCommand> request) override
    {
        auto response = std::make_shared<SSProxy::DeviceResponseCommand>();
        response->head() = request->head();
        response->head().totalCount = packets;
        response->body().assign(packetSize, 'x');
        note();
        if (keepsResponses)
            kept.push_back(response);
        return response;
    }

    void note() { peak = std::max(peak, Allocated::now().bytes); }

    quint32 packets = 8;
    qint64 peak = 0;
};

/// A streamed read through a measuring channel.
struct Measured {
    Measured()
    {
        channel->packets = 3;
        read(); // one-time allocations happen before the first measurement
        channel->kept.clear();
        channel->packets = 8;
        channel->peak = 0;
    }

    bool read()
    {
        return helper.sendSyncRequest(
            device.model, exportRequest(),
            [this](bool, double, const std::string &, QString &) { channel->note(); });
    }

    const MessageCatcher quiet;
    const std::shared_ptr<MeasuringChannel> channel = std::make_shared<MeasuringChannel>();
    const ScriptedDevice device{7, channel};
    Control::ControlHelper helper;
};

} // namespace

class tst_StreamedReadMemory : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void peakIsOnePacket_data();
    void peakIsOnePacket();
    void nothingIsCopiedWhenTheChannelKeepsItsAnswers();
};

void tst_StreamedReadMemory::peakIsOnePacket_data()
{
    QTest::addColumn<quint32>("packets");
    QTest::newRow("one packet") << 1U;
    QTest::newRow("two packets") << 2U;
    QTest::newRow("eight packets") << 8U;
    QTest::newRow("one gibibyte") << 256U;
}

void tst_StreamedReadMemory::peakIsOnePacket()
{
    QFETCH(const quint32, packets);
    Measured it;
    it.channel->packets = packets;
    const qint64 before = Allocated::now().bytes;
    QVERIFY(it.read());
    const qint64 held = it.channel->peak - before;
    QVERIFY2(held >= packetSize, qPrintable(QString::number(held)));
    QVERIFY2(held < packetSize + slack, qPrintable(QString::number(held)));
}

void tst_StreamedReadMemory::nothingIsCopiedWhenTheChannelKeepsItsAnswers()
{
    Measured it;
    it.channel->keepsResponses = true;
    const qint64 before = Allocated::now().bytes;
    QVERIFY(it.read());
    const qint64 held = it.channel->peak - before;
    QVERIFY2(held < 8 * packetSize + slack, qPrintable(QString::number(held)));
}

QTEST_GUILESS_MAIN(tst_StreamedReadMemory)
#include "tst_streamedreadmemory.moc"
