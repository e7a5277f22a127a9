// The lease of a device: requests byte for byte, and what a channel makes of the answers.

#include <tavorowire/frame.h>

#include <support/tavorossproxy/channeltest.h>

#include <QTest>

#include <atomic>
#include <functional>
#include <thread>

using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;
using namespace std::string_literals;

namespace {

constexpr quint16 leaseCode = 0x0103;

} // namespace

class tst_ChannelLease : public ChannelTest {
    Q_OBJECT

private Q_SLOTS:
    void questionHasNoBody();
    void takeCarriesSecondsAndName();
    void timeIsSentAsTheDeviceCanRefuseIt_data();
    void timeIsSentAsTheDeviceCanRefuseIt();
    void releaseHasNoBody();
    void leaseEndsAtTheLatestWhenTheDeviceEndsIt();
    void holderOfAnotherClientIsNamed();
    void deviceWithoutLeasesIsReported();
    void damagedAnswerIsReported();
    void requestWithoutAConnectionIsReported();

private:
    using Question = std::function<DeviceLease(NetworkChannel &channel)>;

    /// A caller on a thread of its own.
    struct Caller {
        ~Caller() { thread.join(); }

        std::atomic<bool> isDone{false};
        DeviceLease lease; // read when isDone
        std::thread thread;
    };
    void start(Caller &caller, const Question &question);
    DeviceLease resultOf(Caller &caller);
    /// The next frame at the device.
    Wire::FrameEvent nextFrame();
    void refuse(const Wire::WireHead &request, quint8 status);
};

void tst_ChannelLease::start(Caller &caller, const Question &question)
{
    caller.thread = std::thread([this, &caller, question] {
        caller.lease = question(*m_channel);
        caller.isDone = true;
        m_loop->wake();
    });
}

DeviceLease tst_ChannelLease::resultOf(Caller &caller)
{
    if (!m_loop->runUntil([&] { return caller.isDone.load(); }))
        qFatal("the caller does not return");
    return caller.lease;
}

Wire::FrameEvent tst_ChannelLease::nextFrame()
{
    if (!m_loop->runUntil([this] { return !m_peer->frames.empty(); }))
        qFatal("no request arrives");
    Wire::FrameEvent frame = m_peer->frames.front();
    m_peer->frames.pop_front();
    return frame;
}

void tst_ChannelLease::refuse(const Wire::WireHead &request, quint8 status)
{
    Wire::WireHead head = Wire::responseHead(request);
    head.status = status;
    m_peer->send(head);
}

void tst_ChannelLease::questionHasNoBody()
{
    connectChannel();
    Caller caller;
    start(caller, [](NetworkChannel &channel) { return channel.readLease(); });
    const auto frame = nextFrame();
    QCOMPARE(frame.head.code(), leaseCode);
    QCOMPARE(frame.head.type, quint8(1));
    QCOMPARE(frame.body, std::string());
    answer(frame.head, "\0\0\0\0\0"s);
    const DeviceLease lease = resultOf(caller);
    QCOMPARE(lease.status, quint16(0));
    QCOMPARE(lease.state, DeviceLease::Free);
    QCOMPARE(lease.holder, QString());
}

void tst_ChannelLease::takeCarriesSecondsAndName()
{
    connectChannel();
    Caller caller;
    start(caller,
          [](NetworkChannel &channel) { return channel.takeLease(QStringLiteral("gate ä"), 5s); });
    const auto frame = nextFrame();
    QCOMPARE(frame.head.code(), leaseCode);
    QCOMPARE(frame.head.type, quint8(2));
    QCOMPARE(int(frame.head.arg2[0]), 1);
    QCOMPARE(frame.body, "\5\0gate \xC3\xA4"s);
    answer(frame.head, "\x01\x88\x13\0\0gate \xC3\xA4"s);
    const DeviceLease lease = resultOf(caller);
    QCOMPARE(lease.state, DeviceLease::Own);
    QCOMPARE(lease.holder, QStringLiteral("gate ä"));
    QCOMPARE(lease.remaining.count(), 5000);
}

void tst_ChannelLease::timeIsSentAsTheDeviceCanRefuseIt_data()
{
    QTest::addColumn<qint64>("seconds");
    QTest::addColumn<QByteArray>("sent");
    QTest::newRow("negative") << qint64(-1) << QByteArray("0000");
    QTest::newRow("more than 16 bits") << qint64(65537) << QByteArray("ffff");
}

void tst_ChannelLease::timeIsSentAsTheDeviceCanRefuseIt()
{
    QFETCH(const qint64, seconds);
    QFETCH(const QByteArray, sent);
    connectChannel();
    Caller caller;
    start(caller, [seconds](NetworkChannel &channel) {
        return channel.takeLease(QStringLiteral("g"), std::chrono::seconds(seconds));
    });
    const auto frame = nextFrame();
    QCOMPARE(QByteArray::fromStdString(frame.body.substr(0, 2)).toHex(), sent);
    refuse(frame.head, 4);
    QCOMPARE(resultOf(caller).status, quint16(4));
}

void tst_ChannelLease::releaseHasNoBody()
{
    connectChannel();
    Caller caller;
    start(caller, [](NetworkChannel &channel) { return channel.releaseLease(); });
    const auto frame = nextFrame();
    QCOMPARE(frame.head.code(), leaseCode);
    QCOMPARE(frame.head.type, quint8(2));
    QCOMPARE(int(frame.head.arg2[0]), 2);
    QCOMPARE(frame.body, std::string());
    answer(frame.head, "\0\0\0\0\0"s);
    QCOMPARE(resultOf(caller).state, DeviceLease::Free);
}

/// The answer takes two seconds: the lease ends five seconds after the question.
void tst_ChannelLease::leaseEndsAtTheLatestWhenTheDeviceEndsIt()
{
    connectChannel();
    const auto begin = m_loop->clock().now();
    Caller caller;
    start(caller,
          [](NetworkChannel &channel) { return channel.takeLease(QStringLiteral("gate"), 5s); });
    const auto frame = nextFrame();
    m_loop->advance(2s);
    answer(frame.head, "\x01\x88\x13\0\0gate"s);
    QVERIFY(resultOf(caller).end == begin + 5s);
}

void tst_ChannelLease::holderOfAnotherClientIsNamed()
{
    connectChannel();
    Caller caller;
    start(caller,
          [](NetworkChannel &channel) { return channel.takeLease(QStringLiteral("gate a"), 5s); });
    answer(nextFrame().head, "\x02\xA0\x0F\0\0gate b"s);
    const DeviceLease lease = resultOf(caller);
    QCOMPARE(lease.status, quint16(0));
    QCOMPARE(lease.state, DeviceLease::Others);
    QCOMPARE(lease.holder, QStringLiteral("gate b"));
    QCOMPARE(lease.remaining.count(), 4000);
}

void tst_ChannelLease::deviceWithoutLeasesIsReported()
{
    connectChannel();
    Caller caller;
    start(caller, [](NetworkChannel &channel) { return channel.readLease(); });
    refuse(nextFrame().head, 1);
    const DeviceLease lease = resultOf(caller);
    QCOMPARE(lease.status, quint16(1));
    QCOMPARE(lease.state, DeviceLease::Free);
}

void tst_ChannelLease::damagedAnswerIsReported()
{
    connectChannel();
    Caller caller;
    start(caller, [](NetworkChannel &channel) { return channel.readLease(); });
    answer(nextFrame().head, "\x07");
    const DeviceLease lease = resultOf(caller);
    QCOMPARE(lease.status, quint16(363));
    QCOMPARE(lease.state, DeviceLease::Free);
}

void tst_ChannelLease::requestWithoutAConnectionIsReported()
{
    Caller caller;
    start(caller, [](NetworkChannel &channel) { return channel.readLease(); });
    const DeviceLease lease = resultOf(caller);
    QCOMPARE(lease.status, quint16(258));
    QCOMPARE(lease.state, DeviceLease::Free);
}

QTEST_APPLESS_MAIN(tst_ChannelLease)
#include "tst_channellease.moc"
