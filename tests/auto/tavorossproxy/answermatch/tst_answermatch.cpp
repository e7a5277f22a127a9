#include <tavorossproxy/channel/answermatch_p.h>

#include <tavorossproxy/devicecommand.h>

#include <QTest>

using namespace Tavoro::SSProxy;
using namespace Tavoro::SSProxy::Internal;

namespace {

constexpr quint32 maxPackets = 100;

Wire::WireHead request(CommandType type, quint32 totalCount = 0, quint32 sendCount = 0)
{
    Wire::WireHead head;
    head.type = static_cast<quint8>(type);
    head.BC = 0x12;
    head.FC = 0x34;
    head.arg2[0] = 1;
    head.arg2[3] = 4;
    head.stream = 7;
    head.number = 9;
    head.totalCount = totalCount;
    head.sendCount = sendCount;
    return head;
}

} // namespace

class tst_AnswerMatch : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void answerEchoesNumberAndStream();
    void answerWithoutACountIsPacketOneOfOne();
    void answerThatEchoesTheRequestMatches();
    void everyEchoedFieldIsCompared();
    void packetCounts_data();
    void packetCounts();
    void refusalsMatchWithoutCounts();
};

void tst_AnswerMatch::answerEchoesNumberAndStream()
{
    const auto sent = request(CommandType::Read);
    auto answer = sent;
    QVERIFY(isAnswerTo(sent, answer));
    ++answer.number;
    QVERIFY(!isAnswerTo(sent, answer));
    answer = sent;
    ++answer.stream;
    QVERIFY(!isAnswerTo(sent, answer));
}

void tst_AnswerMatch::answerWithoutACountIsPacketOneOfOne()
{
    const auto single = asSinglePacket(request(CommandType::Read));
    QCOMPARE(quint32{single.totalCount}, quint32(1));
    QCOMPARE(quint32{single.sendCount}, quint32(0));
    const auto further = asSinglePacket(request(CommandType::Read, 0, 2));
    QCOMPARE(quint32{further.totalCount}, quint32(0));
    const auto split = asSinglePacket(request(CommandType::Read, 3, 0));
    QCOMPARE(quint32{split.totalCount}, quint32(3));
}

void tst_AnswerMatch::answerThatEchoesTheRequestMatches()
{
    for (const auto type :
         {CommandType::Read, CommandType::Write, CommandType::BinaryRead, CommandType::BinaryWrite})
        QCOMPARE(mismatch(request(type), request(type, 1), maxPackets), quint16(0));
}

void tst_AnswerMatch::everyEchoedFieldIsCompared()
{
    const auto sent = request(CommandType::Read);
    auto answer = request(CommandType::Read, 1);
    answer.FC = 0x35;
    QCOMPARE(mismatch(sent, answer, maxPackets), quint16(357));
    answer = request(CommandType::Read, 1);
    answer.BC = 0x13;
    QCOMPARE(mismatch(sent, answer, maxPackets), quint16(357));
    for (quint8 &filter : answer.arg2) {
        answer = request(CommandType::Read, 1);
        filter = 0xFF;
        QCOMPARE(mismatch(sent, answer, maxPackets), quint16(357));
    }
    answer = request(CommandType::BinaryRead, 1);
    QCOMPARE(mismatch(sent, answer, maxPackets), quint16(362));
}

void tst_AnswerMatch::packetCounts_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<quint32>("requestedTotal");
    QTest::addColumn<quint32>("requestedIndex");
    QTest::addColumn<quint32>("total");
    QTest::addColumn<quint32>("index");
    QTest::addColumn<quint16>("status");

    const int read = int(CommandType::Read), write = int(CommandType::Write);
    const quint32 none = 0, one = 1, two = 2, three = 3, most = maxPackets;
    const quint16 matches = 0, wrongLength = 363;
    QTest::newRow("first packet of three") << read << none << none << three << none << matches;
    QTest::newRow("next packet of three") << read << three << one << three << one << matches;
    QTest::newRow("wrong packet") << read << three << one << three << two << wrongLength;
    QTest::newRow("other total") << read << three << one << two << one << wrongLength;
    QTest::newRow("further packet first") << read << none << none << three << one << wrongLength;
    QTest::newRow("no total") << read << none << none << none << none << wrongLength;
    QTest::newRow("index of a write") << write << three << one << one << none << matches;
    QTest::newRow("write without total") << write << three << one << none << one << wrongLength;
    QTest::newRow("most packets") << read << none << none << most << none << matches;
    QTest::newRow("too many packets") << read << none << none << most + 1 << none << wrongLength;
}

void tst_AnswerMatch::packetCounts()
{
    QFETCH(int, type);
    QFETCH(quint32, requestedTotal);
    QFETCH(quint32, requestedIndex);
    QFETCH(quint32, total);
    QFETCH(quint32, index);
    QFETCH(quint16, status);
    const auto sent = request(static_cast<CommandType>(type), requestedTotal, requestedIndex);
    const auto answer = request(static_cast<CommandType>(type), total, index);
    QCOMPARE(mismatch(sent, answer, maxPackets), status);
}

void tst_AnswerMatch::refusalsMatchWithoutCounts()
{
    auto answer = request(CommandType::Read);
    answer.status = 4;
    QCOMPARE(mismatch(request(CommandType::Read, 3, 1), answer, maxPackets), quint16(0));
}

QTEST_APPLESS_MAIN(tst_AnswerMatch)
#include "tst_answermatch.moc"
