// Devices that send more than clients can take, and processes with too many connections.

#include <tavorowire/frame.h>

#include <support/common/messagecatcher.h>
#include <support/tavorossproxy/channeltest.h>

#include <QTest>

using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;

class tst_ChannelFlood : public ChannelTest {
    Q_OBJECT

private Q_SLOTS:
    void answerAfterManyReportsArrives();
    void droppedReportsAreCountedAndLoggedOnceASecond();
    void releasedReportsAreNotDropped();
    void destroyedChannelLogsWhatWasDropped();
    void waitingReportsFollowWhenOthersAreReleased();
    void stoppedChannelDropsWaitingReports();
    void deviceThatDoesNotReadGetsNoFurtherPongs();
    void refusedFramesAreLoggedOnceASecond();
    void channelsBeyondTheLimitConnectLater();
    void zeroLimitsLetRequestsThrough();
    void zeroPausesArePauses();
    void unlimitedTimesAreLong();
    void timedOutRequestsAreLimitedToAllTags();
    void longestBodyFitsIntoAFrame();

private:
    void reopen();
    void report(int count);
};

void tst_ChannelFlood::reopen()
{
    m_channel.reset();
    m_loop->run();
    openChannel();
    connectChannel();
}

void tst_ChannelFlood::report(int count)
{
    Wire::WireHead head;
    head.kind = 3;
    head.type = 1;
    head.BC = 0x11;
    head.FC = 0x03;
    for (int i = 0; i < count; ++i)
        m_peer->send(head, R"({"powers":[]})");
}

void tst_ChannelFlood::answerAfterManyReportsArrives()
{
    connectChannel();
    auto caller = call(request());
    const auto head = nextRequest();
    report(100000); // none is released
    answer(head, "here");
    QCOMPARE(caller.response()->body(), std::string("here"));
    QCOMPARE(m_reports.size(), std::size_t(1024));
    QCOMPARE(m_channel->statistics().reports, quint64(1024));
    QCOMPARE(m_channel->statistics().droppedReports, quint64(100000 - 2048));
}

void tst_ChannelFlood::droppedReportsAreCountedAndLoggedOnceASecond()
{
    m_options.maxPendingReports = 1;
    reopen();
    MessageCatcher messages;
    const auto lines = [&] {
        return messages.texts("tavoro.channel", QtWarningMsg);
    };
    report(12);
    m_loop->advance(999ms);
    report(10);
    QCOMPARE(lines(), QStringList());
    m_loop->advance(1ms);
    QStringList logged{QStringLiteral("Too many reports from \"wall:6630\" dropped 20")};
    QCOMPARE(lines(), logged);
    m_loop->advance(10s);
    QCOMPARE(lines(), logged);
    report(1);
    m_loop->advance(1s);
    logged.append(QStringLiteral("Too many reports from \"wall:6630\" dropped 1"));
    QCOMPARE(lines(), logged);
    QCOMPARE(m_channel->statistics().droppedReports, quint64(21));
}

void tst_ChannelFlood::releasedReportsAreNotDropped()
{
    m_options.maxPendingReports = 1;
    reopen();
    for (int i = 0; i < 100; ++i) {
        report(1);
        QCOMPARE(m_reports.size(), std::size_t(1));
        m_reports.clear();
    }
    QCOMPARE(m_channel->statistics().droppedReports, quint64(0));
}

void tst_ChannelFlood::destroyedChannelLogsWhatWasDropped()
{
    m_options.maxPendingReports = 1;
    reopen();
    MessageCatcher messages;
    report(12);
    m_channel->stopChannel();
    m_loop->run();
    const QStringList logged{QStringLiteral("Too many reports from \"wall:6630\" dropped 10")};
    QCOMPARE(messages.texts("tavoro.channel", QtWarningMsg), logged);
    m_loop->advance(10s);
    QCOMPARE(messages.texts("tavoro.channel", QtWarningMsg), logged);
}

void tst_ChannelFlood::waitingReportsFollowWhenOthersAreReleased()
{
    m_options.maxPendingReports = 2;
    reopen();
    report(4);
    QCOMPARE(m_reports.size(), std::size_t(2));
    m_reports.clear();
    m_loop->run();
    QCOMPARE(m_reports.size(), std::size_t(2));
}

void tst_ChannelFlood::stoppedChannelDropsWaitingReports()
{
    m_options.maxPendingReports = 2;
    reopen();
    report(4);
    m_channel->stopChannel();
    m_loop->run();
    m_reports.clear();
    m_loop->run();
    QVERIFY(m_reports.empty());
}

void tst_ChannelFlood::deviceThatDoesNotReadGetsNoFurtherPongs()
{
    m_options.maxUnsentBytes = 1000;
    reopen();
    Wire::WireHead ping;
    ping.kind = 6;
    m_peer->setReading(false);
    for (int i = 0; i < 100000; ++i)
        m_peer->send(ping);
    m_peer->setReading(true);
    QCOMPARE(m_peer->frames.size(), std::size_t(25)); // of 40 bytes: there is room for the 25th
    m_peer->send(ping);
    QCOMPARE(m_peer->frames.size(), std::size_t(26));
    QCOMPARE(m_peer->frames.back().head.kind, quint8(7));
}

void tst_ChannelFlood::refusedFramesAreLoggedOnceASecond()
{
    connectChannel();
    MessageCatcher messages;
    const auto lines = [&] {
        return messages.texts("tavoro.channel", QtWarningMsg);
    };
    Wire::WireHead question; // which a device must not send
    question.kind = 1;
    for (int i = 0; i < 100000; ++i)
        m_peer->send(question);
    QStringList logged{QStringLiteral("Frame refused from \"wall:6630\" status %1").arg(WrongType)};
    QCOMPARE(lines(), logged);
    m_loop->advance(1s);
    logged.append(QStringLiteral("Further frames refused from \"wall:6630\" number 99999 "
                                 "last status %1")
                      .arg(WrongType));
    QCOMPARE(lines(), logged);
    m_loop->advance(1s);
    QCOMPARE(lines(), logged);
    m_peer->send(question);
    QCOMPARE(lines().size(), 3);
    QCOMPARE(m_channel->statistics().protocolErrors, quint64(100001));
}

void tst_ChannelFlood::channelsBeyondTheLimitConnectLater()
{
    m_options.maxConnections = 1;
    reopen();
    ManualPeer peer;
    auto second = Internal::StreamChannel::open(QStringLiteral("second:6630"),
                                                std::make_unique<ManualStream>(peer), m_loop,
                                                m_options, [](auto, auto) {});
    m_loop->run();
    QCOMPARE(peer.opened, 0);
    QString error;
    QVERIFY(!second->waitUntilReady(0, error));
    QCOMPARE(error,
             QStringLiteral("The device at second:6630 cannot be reached: "
                            "there are too many connections."));
    m_channel->stopChannel();
    m_loop->advance(250ms);
    QCOMPARE(peer.opened, 1);
    second.reset();
    m_loop->run();
}

void tst_ChannelFlood::zeroLimitsLetRequestsThrough()
{
    m_options.maxRequestTime = 0ms;
    m_options.maxPacketCount = 0;
    m_options.maxUnsentBytes = 0;
    m_options.maxTimedOutRequests = 0;
    reopen();
    auto caller = call(request());
    answer(nextRequest(), "here");
    QCOMPARE(caller.response()->body(), std::string("here"));
    m_loop->run();
    QVERIFY(m_channel->isHardwareReadFinished());
}

void tst_ChannelFlood::zeroPausesArePauses()
{
    m_options.firstReconnectPause = 0ms;
    m_options.longestReconnectPause = 0ms;
    m_options.keepAliveInterval = 0ms;
    reopen();
    m_loop->advance(10ms);
    QCOMPARE(m_peer->frames.size(), std::size_t(10)); // pings
    const int before = m_peer->opened;
    for (int attempt = 1; attempt <= 3; ++attempt) {
        m_peer->fail(QStringLiteral("cable pulled"));
        m_loop->advance(0ms);
        QCOMPARE(m_peer->opened, before + attempt - 1);
        m_loop->advance(2ms);
        QCOMPARE(m_peer->opened, before + attempt);
    }
}

void tst_ChannelFlood::unlimitedTimesAreLong()
{
    constexpr auto never = ChannelOptions::Milliseconds::max();
    m_options.connectTimeout = never;
    m_options.identityTimeout = never;
    m_options.firstReconnectPause = never;
    m_options.longestReconnectPause = never;
    m_options.keepAliveInterval = never;
    m_options.keepAliveTimeout = never;
    m_options.stalledAnswerTimeout = never;
    reopen();
    auto caller = call(request(0x1100, 1, {}, 1000));
    const QByteArray frame = Wire::encodeFrame(Wire::responseHead(nextRequest()), "a body");
    m_peer->send(std::string_view(frame.constData(), 42));
    m_loop->advance(1h);
    QCOMPARE(int(caller.response()->status), 365);
    QVERIFY(m_channel->isHardwareReadFinished());
    QVERIFY(m_peer->frames.empty());

    const int before = m_peer->opened;
    m_peer->fail(QStringLiteral("cable pulled"));
    m_loop->advance(1h);
    QCOMPARE(m_peer->opened, before);
    m_loop->advance(23h);
    QCOMPARE(m_peer->opened, before + 1);
    m_loop->advance(1h);
    m_peer->accept();
    m_loop->advance(1h);
    QVERIFY(m_peer->isOpen);
}

void tst_ChannelFlood::timedOutRequestsAreLimitedToAllTags()
{
    m_options.maxTimedOutRequests = 1000;
    reopen();
    for (int owed = 0; owed < 255; ++owed) {
        QVERIFY(m_channel->isHardwareReadFinished());
        auto caller = call(request(0x1100, 1, {}, 1));
        nextRequest();
        m_loop->advance(1ms);
        QCOMPARE(int(caller.response()->status), 260);
    }
    QVERIFY(!m_channel->isHardwareReadFinished());
}

void tst_ChannelFlood::longestBodyFitsIntoAFrame()
{
    m_options.maxBodySize = 0xFFFFFFFF;
    m_channel.reset();
    m_loop->run();
    openChannel();
    m_peer->accept();
    Wire::WireHead head;
    head.kind = 5;
    m_peer->send(head, identity(0xFFFFFFFF));
    QCOMPARE(m_channel->deviceBaseInfo().maxPacketSize, quint32(1) << 30);
}

QTEST_APPLESS_MAIN(tst_ChannelFlood)
#include "tst_channelflood.moc"
