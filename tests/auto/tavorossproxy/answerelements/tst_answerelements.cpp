// The channel refuses JSON answers with more elements than ChannelOptions::maxElements.

#include <support/common/messagecatcher.h>
#include <support/tavorossproxy/channeltest.h>

#include <tavorocontrol/proto/codec.h>
#include <tavorocontrol/proto/layer.h>
#include <tavorowire/frame.h>
#include <tavorowire/jsonelements.h>

#include <QTest>

using namespace Tavoro::SSProxy;

class tst_AnswerElements : public ChannelTest {
    Q_OBJECT

private Q_SLOTS:
    void answerAtTheLimitPasses();
    void answerAboveTheLimitIsRefused();
    void commasInStringsDoNotCount();
    void refusedAnswerKeepsTheConnection();
    void refusalLogsCountAndLimit();
    void packetsOfASplitAnswerCountTogether();
    void stringCutBetweenPacketsStaysAString();
    void splitAnswersCountApart();
    void newAnswerOnAnUnfinishedStreamCountsFromZero();
    void packetsAfterAFailureCountFromZero();
    void refusedSplitReadFreesItsSlot();
    void contentOfAFileDoesNotCount();
    void answerToAWriteDoesNotCount();
    void reportAboveTheLimitIsSkippedAndCounted();
    void largestDeviceIsFarBelowTheDefault();
    void limitOfZeroCountsAsOne();

private:
    /// Replaces the channel with a connected one that accepts \a limit elements.
    void connectWithLimit(quint32 limit);
    /// Sends a request whose answer is packet \a index of \a total. The stream is that of an
    /// earlier packet, or 0.
    Response exchangePacket(const std::string &body, quint32 index, quint32 total,
                            quint16 stream = 0, quint8 type = 1);
    quint16 exchangeStatus(const std::string &body, quint8 type = 1)
    {
        return exchangePacket(body, 0, 1, 0, type)->status;
    }
};

namespace {

quint16 streamOf(const std::shared_ptr<DeviceResponseCommand> &response)
{
    return Wire::wireHead(response->head()).stream;
}

} // namespace

void tst_AnswerElements::connectWithLimit(quint32 limit)
{
    m_channel.reset();
    m_loop->run();
    m_peer->opened = 0;
    m_options.maxElements = limit;
    openChannel();
    connectChannel();
}

ChannelTest::Response tst_AnswerElements::exchangePacket(const std::string &body, quint32 index,
                                                         quint32 total, quint16 stream, quint8 type)
{
    auto command = request(0x1300, type);
    auto head = Wire::wireHead(command->head());
    head.stream = stream;
    head.sendCount = index;
    head.totalCount = index > 0 ? total : 0;
    command->head() = Wire::packetHead(head);
    auto caller = call(command);
    auto answerHead = Wire::responseHead(nextRequest());
    answerHead.totalCount = total;
    answerHead.sendCount = index;
    m_peer->send(answerHead, body);
    return caller.response();
}

void tst_AnswerElements::answerAtTheLimitPasses()
{
    connectWithLimit(4);
    const auto response = exchangePacket(R"([{"a":1},{"a":2}])", 0, 1);
    QCOMPARE(response->status, quint16(0));
    QCOMPARE(response->body(), std::string(R"([{"a":1},{"a":2}])"));
}

void tst_AnswerElements::answerAboveTheLimitIsRefused()
{
    connectWithLimit(4);
    const auto response = exchangePacket(R"([{"a":1},{"a":2},])", 0, 1);
    QCOMPARE(response->status, quint16(363));
    QCOMPARE(response->body(), std::string());
    QCOMPARE(response->head().type, quint8(1));
    QCOMPARE(response->head().BC, quint8(0x13));
}

void tst_AnswerElements::commasInStringsDoNotCount()
{
    connectWithLimit(2);
    QCOMPARE(exchangeStatus(R"(["a,[{\",,\\\",","b,,,"])"), quint16(0));
    QCOMPARE(exchangeStatus(R"(["a,[{\",,\\",","b,,,"])"), quint16(363));
}

void tst_AnswerElements::refusedAnswerKeepsTheConnection()
{
    connectWithLimit(2);
    QCOMPARE(exchangeStatus("[1,2,3]"), quint16(363));
    QVERIFY(m_peer->isOpen);
    QVERIFY(m_channel->isHardwareReadFinished());
    QCOMPARE(exchangeStatus("[1,2]"), quint16(0));
}

void tst_AnswerElements::refusalLogsCountAndLimit()
{
    connectWithLimit(2);
    const MessageCatcher catcher;
    QCOMPARE(exchangeStatus("[1,2,3,4,5]"), quint16(363));
    QCOMPARE(catcher.texts("tavoro.channel", QtWarningMsg).join(QLatin1Char('\n')),
             QStringLiteral("Answer refused from \"wall:6630\" elements 5 limit 2"));
}

void tst_AnswerElements::packetsOfASplitAnswerCountTogether()
{
    connectWithLimit(5);
    const auto first = exchangePacket("[1,2,", 0, 3);
    QCOMPARE(first->status, quint16(0));
    QCOMPARE(exchangePacket("3,4,", 1, 3, streamOf(first))->status, quint16(0));
    QCOMPARE(exchangePacket("5,6]", 2, 3, streamOf(first))->status, quint16(363));
}

void tst_AnswerElements::stringCutBetweenPacketsStaysAString()
{
    connectWithLimit(2);
    const auto first = exchangePacket(R"(["a\)", 0, 3);
    QCOMPARE(exchangePacket(R"(",,,)", 1, 3, streamOf(first))->status, quint16(0));
    QCOMPARE(exchangePacket(R"(,,,",1])", 2, 3, streamOf(first))->status, quint16(0));
}

void tst_AnswerElements::splitAnswersCountApart()
{
    connectWithLimit(4);
    const auto one = exchangePacket("[1,2,3,", 0, 2);
    const auto other = exchangePacket("[", 0, 2);
    QVERIFY(streamOf(one) != streamOf(other));
    QCOMPARE(exchangeStatus("[1,2,3,4]"), quint16(0));
    QCOMPARE(exchangePacket("1,2,3,4]", 1, 2, streamOf(other))->status, quint16(0));
    QCOMPARE(exchangePacket("4,5]", 1, 2, streamOf(one))->status, quint16(363));
}

void tst_AnswerElements::newAnswerOnAnUnfinishedStreamCountsFromZero()
{
    connectWithLimit(4);
    const quint16 stream = streamOf(exchangePacket("[1,2,3,", 0, 2));
    QCOMPARE(exchangePacket("[1,", 0, 2, stream)->status, quint16(0));
    QCOMPARE(exchangePacket("2,3]", 1, 2, stream)->status, quint16(0));
}

void tst_AnswerElements::packetsAfterAFailureCountFromZero()
{
    connectWithLimit(3);
    const auto first = exchangePacket("[1,2,", 0, 2);
    auto command = request(0x1300);
    command->head() = first->head();
    command->head().sendCount = 1;
    auto caller = call(command);
    auto refusal = Wire::responseHead(nextRequest());
    refusal.status = 6;
    refusal.totalCount = 2;
    refusal.sendCount = 1;
    m_peer->send(refusal);
    QCOMPARE(caller.response()->status, quint16(6));
    QCOMPARE(exchangePacket("3,4]", 1, 2, streamOf(first))->status, quint16(0));
}

void tst_AnswerElements::refusedSplitReadFreesItsSlot()
{
    connectWithLimit(2);
    for (int i = 0; i < 17; ++i) // the device has 16 slots
        QCOMPARE(exchangePacket("[1,2,3,", 0, 2)->status, quint16(363));
}

void tst_AnswerElements::contentOfAFileDoesNotCount()
{
    connectWithLimit(2);
    const auto response = exchangePacket(",,,,[[[[", 0, 1, 0, 3);
    QCOMPARE(response->status, quint16(0));
    QCOMPARE(response->body(), std::string(",,,,[[[["));
}

void tst_AnswerElements::answerToAWriteDoesNotCount()
{
    connectWithLimit(2);
    QCOMPARE(exchangeStatus("[1,2,3,4]", 2), quint16(0));
}

void tst_AnswerElements::reportAboveTheLimitIsSkippedAndCounted()
{
    connectWithLimit(3);
    Wire::WireHead report;
    report.kind = quint8(Wire::FrameKind::Report);
    m_peer->send(report, "[1,2,3,4]");
    m_peer->send(report, "[1,2,3]");
    m_loop->run();
    QCOMPARE(m_reports.size(), std::size_t(1));
    QCOMPARE(m_reports.front().second->body(), std::string("[1,2,3]"));
    QCOMPARE(m_channel->statistics().protocolErrors, quint64(1));
    QCOMPARE(exchangeStatus("[1,2,3]"), quint16(0));
}

void tst_AnswerElements::largestDeviceIsFarBelowTheDefault()
{
    constexpr quint64 mostLayers = 40000;
    std::string layer;
    ajson::encodeRecord(Tavoro::ProtoModel::Layer::s_LayerFullDetail(), layer);
    Wire::JsonElements elements;
    elements.add(layer);
    QCOMPARE(ChannelOptions().maxElements, 8388608u);
    QVERIFY(2 * mostLayers * elements.count() < ChannelOptions().maxElements);
}

void tst_AnswerElements::limitOfZeroCountsAsOne()
{
    connectWithLimit(0);
    QCOMPARE(exchangeStatus("{\"a\":1}"), quint16(0));
    QCOMPARE(exchangeStatus("[{\"a\":1}"), quint16(363));
}

QTEST_GUILESS_MAIN(tst_AnswerElements)
#include "tst_answerelements.moc"
