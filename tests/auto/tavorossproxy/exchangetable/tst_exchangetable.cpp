#include <tavorossproxy/channel/exchangetable_p.h>
#include <tavorossproxy/channeloptions.h>
#include <tavorowire/frame.h>

#include <support/tavorossproxy/manualloop.h>

#include <QTest>

#include <cstring>
#include <set>

using namespace Tavoro::SSProxy;
using namespace Tavoro::SSProxy::Internal;

namespace {

constexpr quint32 maxPackets = 100;

DeviceRequestCommand request(quint8 type = 1, quint32 totalCount = 0, quint16 stream = 0)
{
    Wire::WireHead head;
    head.type = type;
    head.BC = 0x11;
    head.totalCount = totalCount;
    head.stream = stream;
    DeviceRequestCommand command;
    command.head() = Wire::packetHead(head);
    return command;
}

Wire::WireHead headOf(const QByteArray &frame)
{
    Wire::WireHead head;
    std::memcpy(static_cast<void *>(&head), frame.constData(), sizeof head);
    return head;
}

/// By value: the field is packed.
quint32 numberOf(const Wire::WireHead &head)
{
    return head.number;
}

Wire::FrameEvent answerTo(const Wire::WireHead &head, const std::string &body = {})
{
    Wire::FrameEvent answer;
    answer.head = head;
    answer.body = body;
    return answer;
}

} // namespace

class tst_ExchangeTable : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void allTagsAreUsedBeforeOneIsUsedAgain();
    void timedOutRequestsShortenTheLifeOfATag();
    void tagIsNeverZero();
    void requestWithoutAFreeTagIsRefused();
    void owedAnswerKeepsItsTag();
    void unsentRequestThatTimesOutFreesItsTag();
    void framesAreSentInOrder();
    void requestsAreNumberedInTheOrderOfSending();
    void numbersContinueOnTheNextConnection();
    void answerWithAnotherNumberIsStray();
    void readsGetStreamsOfTheirOwn();
    void streamsOfUnfinishedReadsAreNotUsedAgain();
    void streamsAreUsedAgainAfterTheLastPacket();
    void packetsOfOneThreadShareAStream();
    void packetsOfTwoThreadsDoNotShareAStream();
    void streamOfTheCallerIsKept();
    void requestEndsIfTheConnectionIsLostBeforeSubmit();
    void shutFreesOwedTags();

private:
    /// Begins without waiting.
    ExchangeTable::Ticket begin(const DeviceRequestCommand &command)
    {
        return m_table->begin(command, m_clock.now());
    }
    /// Begins, submits and sends a request. Returns its head as sent.
    Wire::WireHead sent(const DeviceRequestCommand &command);
    /// Makes a whole exchange and returns its tag.
    quint8 exchanged();
    /// Makes a whole exchange for one packet of a read and returns its stream.
    quint16 readPacket(quint32 totalCount, quint32 sendCount, quint16 stream = 0);
    /// Makes as many reads as there are streams for reads. Returns whether one of them gets \a
    /// stream.
    bool isUsedAgain(quint16 stream);

    ManualLoop m_clock;
    std::unique_ptr<ExchangeTable> m_table;
};

void tst_ExchangeTable::init()
{
    m_table = std::make_unique<ExchangeTable>(m_clock);
    m_table->open(1024);
}

Wire::WireHead tst_ExchangeTable::sent(const DeviceRequestCommand &command)
{
    const auto ticket = begin(command);
    m_table->submit(ticket.head.lables, Wire::encodeFrame(ticket.head));
    return headOf(*m_table->takeUnsent());
}

quint8 tst_ExchangeTable::exchanged()
{
    const auto head = sent(request());
    m_table->complete(answerTo(head), maxPackets);
    m_table->await(head, m_clock.now());
    return head.lables;
}

void tst_ExchangeTable::allTagsAreUsedBeforeOneIsUsedAgain()
{
    std::set<quint8> tags;
    for (int i = 0; i < 255; ++i)
        tags.insert(exchanged());
    QCOMPARE(tags.size(), std::size_t(255));
    QCOMPARE(begin(request()).head.lables, *tags.begin());
}

/// A channel reconnects before more answers are owed.
void tst_ExchangeTable::timedOutRequestsShortenTheLifeOfATag()
{
    for (int i = 0; i < ChannelOptions().maxTimedOutRequests - 1; ++i)
        m_table->await(sent(request()), m_clock.now()); // times out
    QCOMPARE(m_table->timedOutRequests(), 127);
    const quint8 tag = exchanged();
    for (int i = 0; i < 127; ++i)
        QVERIFY(exchanged() != tag);
    QCOMPARE(exchanged(), tag);
}

void tst_ExchangeTable::tagIsNeverZero()
{
    for (int i = 0; i < 600; ++i)
        QVERIFY(exchanged() != 0);
}

void tst_ExchangeTable::requestWithoutAFreeTagIsRefused()
{
    Wire::WireHead last;
    for (int i = 0; i < 255; ++i)
        last = sent(request(2)); // more reads would wait
    QCOMPARE(begin(request()).refusal, quint16(262));

    m_table->complete(answerTo(last), maxPackets);
    m_table->await(last, m_clock.now());
    const auto ticket = begin(request());
    QCOMPARE(ticket.refusal, quint16(0));
    QCOMPARE(ticket.head.lables, last.lables);
}

void tst_ExchangeTable::owedAnswerKeepsItsTag()
{
    const auto late = sent(request());
    QCOMPARE(m_table->await(late, m_clock.now())->status, quint16(260));
    QCOMPARE(m_table->timedOutRequests(), 1);
    for (int i = 0; i < 254; ++i)
        QVERIFY(sent(request(2)).lables != late.lables);
    QCOMPARE(begin(request()).refusal, quint16(262));

    m_table->complete(answerTo(late, "late"), maxPackets);
    QCOMPARE(m_table->timedOutRequests(), 0);
    QCOMPARE(m_table->counts().lateAnswers, quint64(1));
    QCOMPARE(begin(request()).head.lables, late.lables);
}

void tst_ExchangeTable::unsentRequestThatTimesOutFreesItsTag()
{
    const auto ticket = begin(request());
    m_table->submit(ticket.head.lables, Wire::encodeFrame(ticket.head));
    QCOMPARE(m_table->await(ticket.head, m_clock.now())->status, quint16(260));
    QVERIFY(!m_table->takeUnsent().has_value());
    QCOMPARE(m_table->timedOutRequests(), 0);
}

void tst_ExchangeTable::framesAreSentInOrder()
{
    for (const char *body : {"one", "two", "three"}) {
        const auto head = begin(request()).head;
        m_table->submit(head.lables, Wire::encodeFrame(head, body));
    }
    constexpr int headSize = sizeof(Wire::WireHead);
    QCOMPARE(m_table->takeUnsent()->mid(headSize), QByteArray("one"));
    QCOMPARE(m_table->takeUnsent()->mid(headSize), QByteArray("two"));
    QCOMPARE(m_table->takeUnsent()->mid(headSize), QByteArray("three"));
    QVERIFY(!m_table->takeUnsent().has_value());
}

void tst_ExchangeTable::requestsAreNumberedInTheOrderOfSending()
{
    const auto first = begin(request()).head;
    const auto second = begin(request()).head;
    const auto third = begin(request()).head;
    m_table->submit(third.lables, Wire::encodeFrame(third));
    m_table->submit(second.lables, Wire::encodeFrame(second));
    m_table->await(second, m_clock.now()); // times out before it is sent
    m_table->submit(first.lables, Wire::encodeFrame(first));
    QCOMPARE(numberOf(headOf(*m_table->takeUnsent())), quint32(1));
    const QByteArray last = *m_table->takeUnsent();
    QCOMPARE(numberOf(headOf(last)), quint32(2));
    Wire::FrameParser parser;
    std::string_view bytes(last.constData(), static_cast<std::size_t>(last.size()));
    QCOMPARE(parser.next(bytes)->status, quint16(0)); // the checksum is that of the numbered head
    QCOMPARE(m_table->lastSent(first.lables)->number, quint32(2));
    QVERIFY(!m_table->lastSent(second.lables).has_value());
}

void tst_ExchangeTable::numbersContinueOnTheNextConnection()
{
    QCOMPARE(numberOf(sent(request())), quint32(1));
    m_table->close(Disconnected, Disconnected);
    m_table->open(1024);
    QCOMPARE(numberOf(sent(request())), quint32(2));
}

void tst_ExchangeTable::answerWithAnotherNumberIsStray()
{
    const auto head = sent(request());
    auto other = head;
    ++other.number;
    m_table->complete(answerTo(other), maxPackets);
    QCOMPARE(m_table->counts().strayAnswers, quint64(1));
    m_table->complete(answerTo(head, "own"), maxPackets);
    QCOMPARE(m_table->await(head, m_clock.now())->body(), std::string("own"));
}

void tst_ExchangeTable::readsGetStreamsOfTheirOwn()
{
    const quint16 first = begin(request()).head.stream;
    const quint16 second = begin(request()).head.stream;
    QCOMPARE(first, quint16(1));
    QCOMPARE(second, quint16(2));
}

quint16 tst_ExchangeTable::readPacket(quint32 totalCount, quint32 sendCount, quint16 stream)
{
    DeviceRequestCommand command = request(1, sendCount == 0 ? 0 : totalCount, stream);
    command.head().sendCount = sendCount;
    const auto head = sent(command);
    auto answer = answerTo(head);
    answer.head.totalCount = totalCount;
    answer.head.sendCount = sendCount;
    m_table->complete(std::move(answer), maxPackets);
    m_table->await(head, m_clock.now());
    return head.stream;
}

bool tst_ExchangeTable::isUsedAgain(quint16 stream)
{
    bool isUsed = false;
    for (int i = 0; i < 0x7FFF; ++i)
        isUsed |= readPacket(1, 0) == stream;
    return isUsed;
}

void tst_ExchangeTable::streamsOfUnfinishedReadsAreNotUsedAgain()
{
    const quint16 first = readPacket(3, 0);
    const quint16 second = readPacket(3, 0);
    QVERIFY(!isUsedAgain(first));
    QVERIFY(!isUsedAgain(second));
}

void tst_ExchangeTable::streamsAreUsedAgainAfterTheLastPacket()
{
    const quint16 ended = readPacket(2, 0);
    readPacket(2, 1, ended);
    QVERIFY(isUsedAgain(ended));

    const quint16 lost = readPacket(2, 0);
    m_table->close(259, 259);
    m_table->open(1024);
    QVERIFY(isUsedAgain(lost));
}

void tst_ExchangeTable::packetsOfOneThreadShareAStream()
{
    const quint16 first = begin(request(2, 3)).head.stream;
    const quint16 second = begin(request(2, 3)).head.stream;
    QCOMPARE(first, second);
    QVERIFY(first >= 0x8000);
}

void tst_ExchangeTable::packetsOfTwoThreadsDoNotShareAStream()
{
    const quint16 here = begin(request(2, 3)).head.stream;
    quint16 there = 0;
    std::thread([&] { there = begin(request(2, 3)).head.stream; }).join();
    QVERIFY(here != there);
}

void tst_ExchangeTable::streamOfTheCallerIsKept()
{
    QCOMPARE(begin(request(1, 3, 77)).head.stream, quint16(77));
}

void tst_ExchangeTable::requestEndsIfTheConnectionIsLostBeforeSubmit()
{
    const auto ticket = begin(request());
    m_table->close(Disconnected, Disconnected);
    m_table->submit(ticket.head.lables, Wire::encodeFrame(ticket.head));
    QVERIFY(!m_table->takeUnsent().has_value());
    QCOMPARE(m_table->await(ticket.head, m_clock.now())->status, quint16(259));
}

void tst_ExchangeTable::shutFreesOwedTags()
{
    const auto late = sent(request());
    m_table->await(late, m_clock.now());
    m_table->close(Disconnected, Disconnected);
    QCOMPARE(m_table->timedOutRequests(), 0);
    m_table->open(1024);
    m_table->complete(answerTo(late), maxPackets);
    QCOMPARE(m_table->counts().strayAnswers, quint64(1));
}

QTEST_APPLESS_MAIN(tst_ExchangeTable)
#include "tst_exchangetable.moc"
