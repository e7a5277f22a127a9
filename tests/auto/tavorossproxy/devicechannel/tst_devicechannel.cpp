// What the channel sends for a request, what it returns for the answer, and how long it waits.

#include <tavorowire/frame.h>

#include <support/tavorossproxy/channeltest.h>

#include <QTest>

using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;

class tst_DeviceChannel : public ChannelTest {
    Q_OBJECT

private Q_SLOTS:
    void requestIsSentAsDocumented();
    void requestWithoutABodyHasLengthZero();
    void requestGetsItsTagAndStream();
    void requestThatIsRefusedHasNoTag();
    void responseCarriesHeadAndBody();
    void channelKeepsNoAnswer();
    void statusOfTheDeviceIsPassedOn();
    void concurrentCallersGetTheirOwnAnswers();
    void furtherPacketsUseTheStreamOfTheFirst();

    void requestEndsAtItsTimeout();
    void defaultTimeoutIsTenSeconds();
    void zeroTimeoutEndsTheRequestAtOnce();
    void singleBytesDoNotExtendTheTimeout();
    void lateAnswerIsDroppedAndCounted();
    void tooManyTimedOutRequestsReconnect();
    void requestsAreHeldBackWhileTheDeviceDoesNotRead();

    void reportsGoToTheHandler();
};

void tst_DeviceChannel::requestIsSentAsDocumented()
{
    connectChannel();
    auto command = request(0x1107, 2, R"({"swap":1})");
    command->head().arg2[3] = 9;
    auto caller = call(command);
    const auto head = nextRequest();
    QCOMPARE(head.kind, quint8(1));
    QCOMPARE(head.lables, quint8(1));
    QCOMPARE(head.status, quint8(0));
    QCOMPARE(head.bodyLength, quint32(10));
    QCOMPARE(head.stream, quint16(1));
    QCOMPARE(head.type, quint8(2));
    QCOMPARE(head.code(), quint16(0x1107));
    QCOMPARE(head.arg2[3], quint8(9));
    answer(head);
    QCOMPARE(caller.response()->status, quint16(0));
}

void tst_DeviceChannel::requestWithoutABodyHasLengthZero()
{
    connectChannel();
    auto caller = call(request());
    const auto head = nextRequest();
    QCOMPARE(head.bodyLength, quint32(0));
    answer(head);
    QVERIFY(caller.response());
}

void tst_DeviceChannel::requestGetsItsTagAndStream()
{
    connectChannel();
    const auto command = request();
    auto caller = call(command);
    const auto head = nextRequest();
    answer(head);
    QVERIFY(caller.response());
    QCOMPARE(command->head().lables, head.lables);
    QCOMPARE(Wire::wireHead(command->head()).stream, head.stream);
}

/// Nor does it keep the tag of its last exchange, whose outcome would be taken for its own.
void tst_DeviceChannel::requestThatIsRefusedHasNoTag()
{
    connectChannel();
    const auto command = request();
    auto caller = call(command);
    answer(nextRequest());
    QCOMPARE(int(caller.response()->status), 0);
    QVERIFY(command->head().lables != 0);
    m_peer->fail(QStringLiteral("cable pulled"));
    QCOMPARE(int(call(command).response()->status), 259);
    QCOMPARE(int(command->head().lables), 0);
}

void tst_DeviceChannel::responseCarriesHeadAndBody()
{
    connectChannel();
    auto caller = call(request());
    auto head = Wire::responseHead(nextRequest());
    head.totalCount = 3;
    m_peer->send(head, "one third");
    const auto response = caller.response();
    QVERIFY(response);
    QCOMPARE(response->status, quint16(0));
    QCOMPARE(response->body(), std::string("one third"));
    QCOMPARE(response->head().totalCount, quint32(3));
    QCOMPARE(response->head().sendCount, quint32(0));
    QCOMPARE(response->head().type, quint8(1));
}

/// A long read needs no more memory than the packet that its caller holds.
void tst_DeviceChannel::channelKeepsNoAnswer()
{
    connectChannel();
    std::weak_ptr<DeviceResponseCommand> last;
    for (int i = 0; i < 3; ++i) {
        auto caller = call(request());
        answer(nextRequest(), std::string(1 << 20, 'x'));
        auto response = caller.response();
        QCOMPARE(response.use_count(), 2L); // one in the caller, one in the test
        last = response;
    }
    QVERIFY(last.expired());
}

void tst_DeviceChannel::statusOfTheDeviceIsPassedOn()
{
    connectChannel();
    for (const int status : {1, 67, 68, 255}) {
        auto caller = call(request());
        auto head = Wire::responseHead(nextRequest());
        head.status = static_cast<quint8>(status);
        m_peer->send(head);
        QCOMPARE(int(caller.response()->status), status);
    }
}

void tst_DeviceChannel::concurrentCallersGetTheirOwnAnswers()
{
    connectChannel();
    std::vector<std::unique_ptr<Call>> callers;
    for (quint16 i = 0; i < 8; ++i) {
        auto command = request(static_cast<quint16>(0x1200 + i));
        callers.push_back(std::make_unique<Call>(*m_loop, m_channel, command));
    }
    std::vector<Wire::WireHead> heads;
    for (int i = 0; i < 8; ++i)
        heads.push_back(nextRequest());
    for (auto head = heads.rbegin(); head != heads.rend(); ++head)
        answer(*head, "answer " + std::to_string(head->FC));
    for (unsigned i = 0; i < 8; ++i) {
        const auto response = callers[i]->response();
        QVERIFY(response);
        QCOMPARE(response->body(), "answer " + std::to_string(i));
    }
}

void tst_DeviceChannel::furtherPacketsUseTheStreamOfTheFirst()
{
    connectChannel();
    const auto first = request(0xFA04, 3);
    auto caller = call(first);
    const auto firstHead = nextRequest();
    answer(firstHead, "first");
    QVERIFY(caller.response());

    const auto further = request(0xFA04, 3);
    Wire::WireHead copied = Wire::wireHead(first->head());
    copied.lables = 0;
    copied.totalCount = 2;
    copied.sendCount = 1;
    further->head() = Wire::packetHead(copied);
    auto furtherCaller = call(further);
    const auto furtherHead = nextRequest();
    QCOMPARE(furtherHead.stream, firstHead.stream);
    QCOMPARE(furtherHead.sendCount, quint32(1));
    answer(furtherHead, "second");
    QVERIFY(furtherCaller.response());
}

void tst_DeviceChannel::requestEndsAtItsTimeout()
{
    connectChannel();
    auto caller = call(request(0x1100, 1, {}, 20000));
    const auto head = nextRequest();
    m_loop->advance(10s);
    m_peer->send(Wire::encodeLinkFrame(Wire::FrameKind::Pong).toStdString());
    m_loop->advance(9999ms);
    QVERIFY(!caller.isDone());
    m_loop->advance(1ms);
    const auto response = caller.response();
    QVERIFY(response);
    QCOMPARE(response->status, quint16(260));
    QCOMPARE(response->body(), std::string());
    QCOMPARE(response->head().lables, head.lables);
    QCOMPARE(m_channel->statistics().timeouts, quint64(1));
}

void tst_DeviceChannel::defaultTimeoutIsTenSeconds()
{
    connectChannel();
    const auto command = request();
    command->setTimeout(DeviceRequestCommand().timeout());
    auto caller = call(command);
    nextRequest();
    m_loop->advance(9999ms);
    QVERIFY(!caller.isDone());
    m_loop->advance(1ms);
    QCOMPARE(caller.response()->status, quint16(260));
}

void tst_DeviceChannel::zeroTimeoutEndsTheRequestAtOnce()
{
    connectChannel();
    for (const int timeout : {0, -1}) {
        auto caller = call(request(0x1100, 1, {}, timeout));
        QCOMPARE(caller.response()->status, quint16(260));
    }
}

void tst_DeviceChannel::singleBytesDoNotExtendTheTimeout()
{
    connectChannel();
    auto caller = call(request(0x1100, 1, {}, 1000));
    const auto head = nextRequest();
    const QByteArray frame = Wire::encodeFrame(Wire::responseHead(head), "a long body");
    for (int i = 0; i < 40; ++i) {
        m_peer->send(std::string_view(frame.constData() + i, 1));
        m_loop->advance(25ms);
    }
    QCOMPARE(caller.response()->status, quint16(365));

    m_peer->send(std::string_view(frame.constData() + 40, std::size_t(frame.size()) - 40));
    QCOMPARE(m_channel->statistics().lateAnswers, quint64(1));
}

void tst_DeviceChannel::lateAnswerIsDroppedAndCounted()
{
    connectChannel();
    Wire::WireHead late;
    {
        auto caller = call(request(0x1100, 1, {}, 100));
        late = nextRequest();
        m_loop->advance(100ms);
        QCOMPARE(caller.response()->status, quint16(260));
    }
    auto caller = call(request(0x1100, 1, {}, 100));
    const auto next = nextRequest();
    QVERIFY(next.lables != late.lables);
    answer(late, "late");
    QCOMPARE(m_channel->statistics().lateAnswers, quint64(1));
    answer(next, "in time");
    QCOMPARE(caller.response()->body(), std::string("in time"));
}

void tst_DeviceChannel::tooManyTimedOutRequestsReconnect()
{
    connectChannel();
    for (int i = 0; i < 128; ++i) {
        QVERIFY(m_peer->isOpen);
        auto caller = call(request(0x1100, 1, {}, 10));
        nextRequest();
        m_loop->advance(10ms);
        QCOMPARE(caller.response()->status, quint16(260));
    }
    m_loop->run();
    QVERIFY(!m_peer->isOpen);
    m_loop->advance(250ms);
    QCOMPARE(m_peer->opened, 2);
    connectChannel();
    auto caller = call(request());
    answer(nextRequest(), "again");
    QCOMPARE(caller.response()->body(), std::string("again"));
}

void tst_DeviceChannel::requestsAreHeldBackWhileTheDeviceDoesNotRead()
{
    m_channel.reset();
    m_loop->run();
    m_options.maxUnsentBytes = 1;
    openChannel();
    connectChannel();
    m_peer->setReading(false);
    auto first = call(request(0x1101));
    m_loop->awaitWaiting(1);
    m_loop->run();
    {
        auto second = call(request(0x1102, 1, {}, 500));
        m_loop->awaitWaiting(2);
        m_loop->advance(500ms);
        QCOMPARE(second.response()->status, quint16(260));
    }
    auto third = call(request(0x1103));
    m_loop->awaitWaiting(2);
    m_loop->run();

    m_peer->setReading(true);
    const auto firstHead = nextRequest();
    const auto thirdHead = nextRequest();
    QCOMPARE(firstHead.code(), quint16(0x1101));
    QCOMPARE(thirdHead.code(), quint16(0x1103)); // the second was never sent
    answer(thirdHead);
    answer(firstHead);
    QCOMPARE(first.response()->status, quint16(0));
    QCOMPARE(third.response()->status, quint16(0));
}

void tst_DeviceChannel::reportsGoToTheHandler()
{
    connectChannel();
    Wire::WireHead head;
    head.kind = 3;
    head.type = 1;
    head.BC = 0x11;
    head.FC = 0x03;
    m_peer->send(head, R"({"powers":[]})");
    QCOMPARE(m_reports.size(), std::size_t(1));
    QCOMPARE(m_reports[0].first.lock(), std::shared_ptr<DeviceChannel>(m_channel));
    QCOMPARE(m_reports[0].second->head().BC, quint8(0x11));
    QCOMPARE(m_reports[0].second->head().FC, quint8(0x03));
    QCOMPARE(m_reports[0].second->body(), std::string(R"({"powers":[]})"));
    QCOMPARE(m_channel->statistics().reports, quint64(1));
}

QTEST_APPLESS_MAIN(tst_DeviceChannel)
#include "tst_devicechannel.moc"
