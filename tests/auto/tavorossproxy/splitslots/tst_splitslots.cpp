// A device keeps 16 split answers and collects 16 split writes for each connection: the channel
// holds further callers back.

#include <support/tavorossproxy/channeltest.h>

#include <tavorowire/frame.h>

#include <QTest>

#include <list>

using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;

namespace {

constexpr quint8 readType = 1;
constexpr quint8 writeType = 2;
constexpr int slotCount = 16;

using Request = std::shared_ptr<DeviceRequestCommand>;

/// Packet \a index of an exchange of two.
Request packet(quint8 type, quint8 exchange, quint32 index, const PacketHead &first, int timeout)
{
    auto request = std::make_shared<DeviceRequestCommand>();
    request->head() = first;
    request->head().type = type;
    request->head().BC = 0x12;
    request->head().FC = exchange;
    request->head().totalCount = type == writeType || index > 0 ? 2 : 0;
    request->head().sendCount = index;
    request->setTimeout(timeout);
    return request;
}

/// Callers on separate threads, each of which makes a split exchange of two packets.
class Callers {
public:
    Callers(ManualLoop &loop, std::shared_ptr<NetworkChannel> channel)
        : m_loop(loop), m_channel(std::move(channel))
    { }
    ~Callers()
    {
        m_channel->stopChannel();
        m_loop.run();
        for (Caller &caller : m_callers)
            caller.thread.join();
    }

    /// Begins the exchange with the function code \a exchange.
    void add(quint8 type, quint8 exchange, int timeout = 60000)
    {
        Caller &caller = m_callers.emplace_back();
        caller.thread = std::thread([=, &caller] {
            auto first = packet(type, exchange, 0, {}, timeout);
            auto response = m_channel->sendSyncRequest(first);
            // The caller of a write does not choose a common stream for its packets.
            const PacketHead head = type == readType ? first->head() : PacketHead();
            if (response->status == 0)
                response = m_channel->sendSyncRequest(packet(type, exchange, 1, head, timeout));
            caller.status = response->status;
            m_loop.wake();
        });
    }
    /// The status with which the \a index-th caller ended.
    int status(std::size_t index)
    {
        Caller &caller = *std::next(m_callers.begin(), static_cast<std::ptrdiff_t>(index));
        return m_loop.runUntil([&] { return caller.status >= 0; }) ? caller.status.load() : -1;
    }

private:
    struct Caller {
        std::atomic<int> status{-1};
        std::thread thread;
    };

    ManualLoop &m_loop;
    const std::shared_ptr<NetworkChannel> m_channel;
    std::list<Caller> m_callers;
};

} // namespace

class tst_SplitSlots : public ChannelTest {
    Q_OBJECT

private Q_SLOTS:
    void seventeenthCallerWaitsForTheLastPacketOfAnother_data();
    void seventeenthCallerWaitsForTheLastPacketOfAnother();
    void refusalFreesASlot_data();
    void refusalFreesASlot();
    void timeoutFreesASlot();
    void waitEndsWithTheCallersTime();
    void waitEndsWithTheConnection();
    void callersGetSlotsInTheirOrder();
    void abandonedReadLosesItsSlotAfterTenSeconds();
    void otherRequestsDoNotWait();

private:
    /// Rows for reads and writes.
    static void addTypes();
    /// Lets 16 callers begin. Returns the heads of their first packets.
    std::vector<Wire::WireHead> fill(Callers &callers, quint8 type, int timeout = 60000);
    /// Nothing reaches the device although \a count callers wait.
    bool areHeldBack(std::size_t count);
    void answerFirst(const Wire::WireHead &head);
    void refuse(const Wire::WireHead &head);
};

void tst_SplitSlots::addTypes()
{
    QTest::addColumn<quint8>("type");
    QTest::newRow("read") << readType;
    QTest::newRow("write") << writeType;
}

std::vector<Wire::WireHead> tst_SplitSlots::fill(Callers &callers, quint8 type, int timeout)
{
    std::vector<Wire::WireHead> heads;
    for (int i = 0; i < slotCount; ++i) {
        callers.add(type, static_cast<quint8>(i), timeout);
        heads.push_back(nextRequest());
    }
    return heads;
}

bool tst_SplitSlots::areHeldBack(std::size_t count)
{
    m_loop->awaitWaiting(count);
    m_loop->run();
    return m_peer->frames.empty();
}

void tst_SplitSlots::answerFirst(const Wire::WireHead &head)
{
    auto response = Wire::responseHead(head);
    if (head.type == readType)
        response.totalCount = 2;
    m_peer->send(response);
}

void tst_SplitSlots::refuse(const Wire::WireHead &head)
{
    auto response = Wire::responseHead(head);
    response.status = 8;
    m_peer->send(response);
}

void tst_SplitSlots::seventeenthCallerWaitsForTheLastPacketOfAnother_data()
{
    addTypes();
}

void tst_SplitSlots::seventeenthCallerWaitsForTheLastPacketOfAnother()
{
    QFETCH(quint8, type);
    connectChannel();
    Callers callers(*m_loop, m_channel);
    const auto heads = fill(callers, type);
    callers.add(type, slotCount);
    QVERIFY(areHeldBack(slotCount + 1));

    answerFirst(heads[3]);
    const auto second = nextRequest();
    QCOMPARE(int(second.FC), 3);
    QVERIFY(areHeldBack(slotCount + 1));
    auto last = Wire::responseHead(second);
    last.totalCount = 2;
    last.sendCount = 1;
    m_peer->send(last);
    QCOMPARE(callers.status(3), 0);
    QCOMPARE(int(nextRequest().FC), slotCount);
}

void tst_SplitSlots::refusalFreesASlot_data()
{
    addTypes();
}

void tst_SplitSlots::refusalFreesASlot()
{
    QFETCH(quint8, type);
    connectChannel();
    Callers callers(*m_loop, m_channel);
    const auto heads = fill(callers, type);
    callers.add(type, slotCount);
    QVERIFY(areHeldBack(slotCount + 1));
    refuse(heads[5]);
    QCOMPARE(int(nextRequest().FC), slotCount);
}

void tst_SplitSlots::timeoutFreesASlot()
{
    connectChannel();
    Callers callers(*m_loop, m_channel);
    fill(callers, readType, 1000);
    callers.add(readType, slotCount);
    QVERIFY(areHeldBack(slotCount + 1));
    m_loop->advance(1s);
    QCOMPARE(int(nextRequest().FC), slotCount);
    QCOMPARE(callers.status(0), 260);
}

void tst_SplitSlots::waitEndsWithTheCallersTime()
{
    connectChannel();
    Callers callers(*m_loop, m_channel);
    fill(callers, readType);
    callers.add(readType, slotCount, 500);
    QVERIFY(areHeldBack(slotCount + 1));
    m_loop->advance(500ms);
    QCOMPARE(callers.status(slotCount), 260);
    QVERIFY(m_peer->frames.empty());
    QCOMPARE(m_channel->statistics().timeouts, quint64(1));
}

void tst_SplitSlots::waitEndsWithTheConnection()
{
    connectChannel();
    Callers callers(*m_loop, m_channel);
    fill(callers, writeType);
    callers.add(writeType, slotCount);
    QVERIFY(areHeldBack(slotCount + 1));
    m_peer->fail(QStringLiteral("cable pulled"));
    QCOMPARE(callers.status(slotCount), 259);
}

void tst_SplitSlots::callersGetSlotsInTheirOrder()
{
    connectChannel();
    Callers callers(*m_loop, m_channel);
    const auto heads = fill(callers, readType);
    for (int i = slotCount; i < slotCount + 3; ++i) {
        callers.add(readType, static_cast<quint8>(i));
        QVERIFY(areHeldBack(static_cast<std::size_t>(i) + 1));
    }
    for (int i = slotCount; i < slotCount + 3; ++i) {
        refuse(heads[static_cast<std::size_t>(i - slotCount)]);
        QCOMPARE(int(nextRequest().FC), i);
    }
}

/// The channel does not notice when a caller stops requesting packets.
void tst_SplitSlots::abandonedReadLosesItsSlotAfterTenSeconds()
{
    connectChannel();
    std::vector<Wire::WireHead> heads;
    for (int i = 0; i < slotCount; ++i) {
        auto caller = call(packet(readType, static_cast<quint8>(i), 0, {}, 60000));
        heads.push_back(nextRequest());
        answerFirst(heads.back());
        QCOMPARE(int(caller.response()->status), 0);
    }
    m_loop->advance(9999ms);
    m_peer->frames.clear(); // a ping
    Callers callers(*m_loop, m_channel);
    callers.add(readType, slotCount);
    QVERIFY(areHeldBack(1));
    m_loop->advance(1ms);
    QCOMPARE(int(nextRequest().kind), 6); // the next ping
    QCOMPARE(int(nextRequest().FC), slotCount);
}

void tst_SplitSlots::otherRequestsDoNotWait()
{
    connectChannel();
    Callers readers(*m_loop, m_channel);
    Callers writers(*m_loop, m_channel);
    const auto heads = fill(readers, readType);
    fill(writers, writeType);
    auto single = call(request(0x1107, writeType, "{}"));
    answer(nextRequest());
    QCOMPARE(int(single.response()->status), 0);
    auto whoControls = call(request(0x0101, readType));
    answer(nextRequest());
    QCOMPARE(int(whoControls.response()->status), 0);
    answerFirst(heads[0]);
    QCOMPARE(int(nextRequest().sendCount), 1);
}

QTEST_GUILESS_MAIN(tst_SplitSlots)
#include "tst_splitslots.moc"
