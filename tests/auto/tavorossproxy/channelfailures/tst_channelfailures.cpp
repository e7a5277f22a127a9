// Requests that the channel cannot send, and answers that do not match.

#include <tavorowire/frame.h>

#include <support/tavorossproxy/channeltest.h>

#include <QTest>

#include <cstring>
#include <functional>

using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;

namespace {

/// Corrects the checksum of the head after a byte of it was changed.
void renewHeadChecksum(QByteArray &frame)
{
    Wire::WireHead head;
    std::memcpy(static_cast<void *>(&head), frame.constData(), sizeof head);
    const quint16 checksum = Wire::headChecksum(head);
    frame[12] = static_cast<char>(checksum & 0xFF);
    frame[13] = static_cast<char>(checksum >> 8);
}

} // namespace

class tst_ChannelFailures : public ChannelTest {
    Q_OBJECT

private Q_SLOTS:
    void nullRequestIsInvalid();
    void unknownTypeIsInvalid();
    void bodyAboveThePacketSizeIsInvalid();
    void connectingChannelRefuses();
    void disconnectedChannelRefuses();
    void stoppedChannelRefuses();
    void callOnTheChannelsThreadIsRefused();
    void callAfterTheThreadHasEndedIsRefused();

    void answerThatDoesNotMatchFailsTheRequest_data();
    void answerThatDoesNotMatchFailsTheRequest();
    void packetCountAtTheLimitIsAccepted();
    void anotherPacketOfAReadIsRefused();
    void furtherPacketWithAnotherTotalIsRefused();
    void countsOfZeroAreOnePacket_data();
    void countsOfZeroAreOnePacket();
    void refusalsHaveNoIndex();
    void answersToWritesHaveNoIndex();
    void fatalFrameEndsTheConnection_data();
    void fatalFrameEndsTheConnection();
    void strayAnswersAreDroppedAndCounted();
    void secondAnswerIsDropped();

private:
    static Request packet1Of3(quint8 type)
    {
        Request further = request(0x1100, type);
        further->head().totalCount = 3;
        further->head().sendCount = 1;
        return further;
    }
    /// Sends a request; the device answers it with a head that \a change has changed.
    Response responseTo(const Request &command, const std::function<void(Wire::WireHead &)> &change,
                        const std::string &body = "body")
    {
        auto caller = call(command);
        auto head = Wire::responseHead(nextRequest());
        change(head);
        m_peer->send(head, body);
        return caller.response();
    }
};

void tst_ChannelFailures::nullRequestIsInvalid()
{
    connectChannel();
    QCOMPARE(m_channel->sendSyncRequest(nullptr)->status, quint16(263));
}

void tst_ChannelFailures::unknownTypeIsInvalid()
{
    connectChannel();
    for (const int type : {0, 5, 255})
        QCOMPARE(call(request(0x1100, static_cast<quint8>(type))).response()->status, quint16(263));
    QVERIFY(m_peer->frames.empty());
}

void tst_ChannelFailures::bodyAboveThePacketSizeIsInvalid()
{
    connectChannel();
    QCOMPARE(call(request(0x1107, 2, std::string(65, 'x'))).response()->status, quint16(263));
    auto caller = call(request(0x1107, 2, std::string(64, 'x')));
    answer(nextRequest());
    QCOMPARE(caller.response()->status, quint16(0));
}

void tst_ChannelFailures::connectingChannelRefuses()
{
    QCOMPARE(call(request()).response()->status, quint16(258));
    m_peer->accept();
    QCOMPARE(call(request()).response()->status, quint16(258));
}

void tst_ChannelFailures::disconnectedChannelRefuses()
{
    connectChannel();
    m_peer->fail(QStringLiteral("cable pulled"));
    QVERIFY(!m_channel->isHardwareReadFinished());
    QCOMPARE(call(request()).response()->status, quint16(259));
    QCOMPARE(m_channel->deviceBaseInfo().name,
             std::string("wall")); // the manager still finds the channel by it
}

void tst_ChannelFailures::stoppedChannelRefuses()
{
    connectChannel();
    m_channel->stopChannel();
    QVERIFY(!m_channel->isHardwareReadFinished());
    QCOMPARE(call(request()).response()->status, quint16(259));
    m_loop->run();
    QVERIFY(!m_peer->isOpen);
    m_loop->advance(60s);
    QCOMPARE(m_peer->opened, 1);
}

void tst_ChannelFailures::callOnTheChannelsThreadIsRefused()
{
    connectChannel();
    QCOMPARE(m_channel->sendSyncRequest(request())->status, quint16(261));
}

void tst_ChannelFailures::callAfterTheThreadHasEndedIsRefused()
{
    connectChannel();
    m_loop->end();
    QVERIFY(!m_peer->isOpen);
    QCOMPARE(call(request()).response()->status, quint16(264));
}

void tst_ChannelFailures::answerThatDoesNotMatchFailsTheRequest_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("status");
    QTest::newRow("function code") << 29 << 0x01 << 357;
    QTest::newRow("base code") << 30 << 0x12 << 357;
    QTest::newRow("filter") << 33 << 0x01 << 357;
    QTest::newRow("type") << 20 << 2 << 362;
    QTest::newRow("unknown kind") << 10 << 99 << 362;
    QTest::newRow("kind of a client") << 10 << 1 << 362;
    QTest::newRow("packet count") << 23 << 2 << 363; // more than 131072
    QTest::newRow("checksum index") << 9 << 7 << 360;
    QTest::newRow("checksum of the body") << 40 << int('X') << 361;
}

void tst_ChannelFailures::answerThatDoesNotMatchFailsTheRequest()
{
    QFETCH(int, position);
    QFETCH(int, value);
    QFETCH(int, status);
    connectChannel();
    auto caller = call(request());
    QByteArray frame = Wire::encodeFrame(Wire::responseHead(nextRequest()), "body");
    frame[position] = static_cast<char>(value);
    renewHeadChecksum(frame);
    m_peer->send(frame.toStdString());

    const auto response = caller.response();
    QVERIFY(response);
    QCOMPARE(int(response->status), status);
    QCOMPARE(response->body(), std::string());
    QVERIFY(m_channel->isHardwareReadFinished()); // the connection is kept
    auto next = call(request());
    answer(nextRequest(), "good");
    QCOMPARE(next.response()->body(), std::string("good"));
}

void tst_ChannelFailures::packetCountAtTheLimitIsAccepted()
{
    connectChannel();
    for (const unsigned count : {65536u, 65537u}) {
        const auto response =
            responseTo(request(), [&](Wire::WireHead &head) { head.totalCount = count; }, {});
        QCOMPARE(int(response->status), count == 65536 ? 0 : 363);
    }
}

void tst_ChannelFailures::anotherPacketOfAReadIsRefused()
{
    connectChannel();
    for (const quint8 type : {quint8(1), quint8(3)}) {
        const auto response = responseTo(packet1Of3(type), [](Wire::WireHead &head) {
            head.totalCount = 3;
            head.sendCount = 2;
        });
        QCOMPARE(int(response->status), 363);
        QCOMPARE(response->body(), std::string());
    }
}

void tst_ChannelFailures::furtherPacketWithAnotherTotalIsRefused()
{
    connectChannel();
    const auto response = responseTo(packet1Of3(1), [](Wire::WireHead &head) {
        head.totalCount = 4;
        head.sendCount = 1;
    });
    QCOMPARE(int(response->status), 363);
    QCOMPARE(response->body(), std::string());
}

void tst_ChannelFailures::countsOfZeroAreOnePacket_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<unsigned>("sendCount");
    QTest::addColumn<int>("status");
    QTest::newRow("read, index 0") << 1 << 0u << 0;
    QTest::newRow("binary read, index 0") << 3 << 0u << 0;
    QTest::newRow("write, index 0") << 2 << 0u << 0;
    QTest::newRow("read, index 1") << 1 << 1u << 363;
    QTest::newRow("write, index 1") << 2 << 1u << 363;
    QTest::newRow("binary write, last index") << 4 << 4294967295u << 363;
}

/// Otherwise a caller that divides by the count would get an infinite progress.
void tst_ChannelFailures::countsOfZeroAreOnePacket()
{
    QFETCH(int, type);
    QFETCH(unsigned, sendCount);
    connectChannel();
    const auto response =
        responseTo(request(0x1100, static_cast<quint8>(type)), [&](Wire::WireHead &head) {
            head.totalCount = 0;
            head.sendCount = sendCount;
        });
    QTEST(int(response->status), "status");
    if (response->status != 0)
        return;
    const PacketHead answer = response->head();
    QCOMPARE(quint32{answer.totalCount}, 1u);
    QCOMPARE(quint32{answer.sendCount}, 0u);
    QCOMPARE(response->body(), std::string("body"));
}

void tst_ChannelFailures::refusalsHaveNoIndex()
{
    connectChannel();
    const auto response =
        responseTo(packet1Of3(1), [](Wire::WireHead &head) { head.status = 8; }, {});
    QCOMPARE(int(response->status), 8);
}

void tst_ChannelFailures::answersToWritesHaveNoIndex()
{
    connectChannel();
    const auto response = responseTo(packet1Of3(2), [](Wire::WireHead & /*head*/) {}, {});
    QCOMPARE(int(response->status), 0);
}

void tst_ChannelFailures::fatalFrameEndsTheConnection_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("withChecksum");
    QTest::addColumn<int>("status");
    QTest::newRow("flag") << 0 << 0 << true << 359;
    QTest::newRow("version") << 2 << 2 << true << 359;
    QTest::newRow("checksum of the head") << 30 << 0x12 << false << 361;
    QTest::newRow("body above the limit") << 7 << 0x10 << true << 363;
}

void tst_ChannelFailures::fatalFrameEndsTheConnection()
{
    QFETCH(int, position);
    QFETCH(int, value);
    QFETCH(bool, withChecksum);
    QFETCH(int, status);
    connectChannel();
    auto first = call(request());
    auto second = call(request());
    nextRequest();
    QByteArray frame = Wire::encodeFrame(Wire::responseHead(nextRequest()));
    frame[position] = static_cast<char>(value);
    if (withChecksum)
        renewHeadChecksum(frame);
    m_peer->send(frame.toStdString());
    QCOMPARE(int(first.response()->status), status);
    QCOMPARE(int(second.response()->status), status);
    QVERIFY(!m_peer->isOpen);
    QCOMPARE(m_channel->statistics().protocolErrors, quint64(1));
    QCOMPARE(call(request()).response()->status, quint16(259));
    m_loop->advance(250ms);
    QCOMPARE(m_peer->opened, 2);
}

void tst_ChannelFailures::strayAnswersAreDroppedAndCounted()
{
    connectChannel();
    auto caller = call(request());
    const auto head = nextRequest();
    auto otherTag = head;
    otherTag.lables = static_cast<quint8>(head.lables + 1);
    answer(otherTag, "other tag");
    auto otherStream = head;
    otherStream.stream = static_cast<quint16>(head.stream + 1);
    answer(otherStream, "other stream");
    QCOMPARE(m_channel->statistics().strayAnswers, quint64(2));
    QVERIFY(!caller.isDone());
    answer(head, "mine");
    QCOMPARE(caller.response()->body(), std::string("mine"));
}

void tst_ChannelFailures::secondAnswerIsDropped()
{
    connectChannel();
    auto caller = call(request());
    const auto head = nextRequest();
    answer(head, "first");
    answer(head, "second");
    QCOMPARE(caller.response()->body(), std::string("first"));
    QCOMPARE(m_channel->statistics().strayAnswers, quint64(1));
}

QTEST_APPLESS_MAIN(tst_ChannelFailures)
#include "tst_channelfailures.moc"
