// A thread learns the identity of a write before it is sent, and decides whether it is sent.
// Another client can then ask the device for its outcome.

#include <support/common/contains.h>
#include <support/common/requestcommand.h>
#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/simulatedconnection.h>

#include <tavorocontrol/controlhelper.h>
#include <tavorossproxy/networkchannel.h>
#include <tavorossproxy/requestannouncement.h>

#include <QTest>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <thread>
#include <vector>

using namespace CommandCodes;
using namespace Tavoro;
using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;

namespace {

Sim::SimOptions smallPackets()
{
    Sim::SimOptions options;
    options.packetSize = 4000;
    return options;
}

bool areEqual(const RequestIdentity &one, const RequestIdentity &other)
{
    return one.client == other.client && one.connection == other.connection
        && one.number == other.number;
}

} // namespace

class tst_RequestAnnouncement : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_announced.clear();
        m_connection = std::make_unique<SimulatedConnection>(smallPackets());
        m_other = std::make_unique<TcpConnection>(m_connection->simulator->port());
        QString error;
        QVERIFY2(m_other->channel->waitUntilReady(30000, error), qPrintable(error));
    }
    void cleanup()
    {
        m_other.reset();
        m_connection.reset();
    }

    void writeHasTheIdentityThatWasAnnounced();
    void readsAreNotAnnounced();
    void refusedRequestIsNeverSent();
    void splitWriteIsAnnouncedWithItsLastPacket();
    void otherRequestsAreSentWhileOneWaits();
    void requestEndsIfTheConnectionIsLostWhileItWaits();
    void newestAnnouncementOfAThreadCounts();
    void timeIsThatOfTheRequest();

private:
    NetworkChannel &channel() { return *m_connection->channel; }
    quint16 send(const std::shared_ptr<DeviceRequestCommand> &command)
    {
        return channel().sendSyncRequest(command)->status;
    }
    quint16 writeSwap(int timeout = 10000)
    {
        return send(requestCommand(2, deviceSwap, swapOff, timeout));
    }
    /// What the device answers to another client.
    RequestOutcome outcomeForOthers(const RequestIdentity &id)
    {
        return m_other->channel->outcomeOf(id);
    }
    /// The first packet of the device's details has the value.
    bool isSwapOff()
    {
        const auto response = m_other->channel->sendSyncRequest(requestCommand(1, deviceDetail));
        return response->status == 0 && contains(response->body(), "\"swap\":0");
    }
    RequestAnnouncement::Handler answering(bool isSent)
    {
        return [this, isSent](const RequestIdentity &id, std::chrono::milliseconds) {
            m_announced.push_back(id);
            return isSent;
        };
    }

    std::unique_ptr<SimulatedConnection> m_connection;
    std::unique_ptr<TcpConnection> m_other;
    std::vector<RequestIdentity> m_announced;
};

void tst_RequestAnnouncement::writeHasTheIdentityThatWasAnnounced()
{
    const ExchangeWatch watch;
    const RequestAnnouncement announcement(answering(true));
    QCOMPARE(writeSwap(), quint16(0));
    QCOMPARE(m_announced.size(), std::size_t(1));
    QVERIFY(watch.last() && watch.last()->sent);
    QVERIFY(areEqual(*watch.last()->sent, m_announced[0]));
    QCOMPARE(int(outcomeForOthers(m_announced[0]).state), int(RequestOutcome::Done));
}

void tst_RequestAnnouncement::readsAreNotAnnounced()
{
    const RequestAnnouncement announcement(answering(false));
    QCOMPARE(send(requestCommand(1, deviceDetail)), quint16(0));
    QCOMPARE(m_announced.size(), std::size_t(0));
}

void tst_RequestAnnouncement::refusedRequestIsNeverSent()
{
    {
        const RequestAnnouncement announcement(answering(false));
        QCOMPARE(writeSwap(), quint16(263));
    }
    QCOMPARE(send(requestCommand(1, deviceDetail)), quint16(0)); // has the next number
    QCOMPARE(m_announced.size(), std::size_t(1));
    QCOMPARE(int(outcomeForOthers(m_announced[0]).state), int(RequestOutcome::NotArrived));
    QCOMPARE(writeSwap(), quint16(0)); // nothing is left of the request
}

void tst_RequestAnnouncement::splitWriteIsAnnouncedWithItsLastPacket()
{
    const auto name =
        requestCommand(2, 0x1101, R"({"general":{"name":")" + std::string(10000, 'n') + R"("}})");
    const ExchangeWatch watch;
    const RequestAnnouncement announcement(answering(true));
    QString error;
    QVERIFY(!Control::ControlHelper().sendSyncRequest(m_connection->model, name, error, true));
    const std::optional<Exchange> last = watch.last();
    QVERIFY(last && last->sent);
    QCOMPARE(last->packet, 2u);
    QCOMPARE(m_announced.size(), std::size_t(1));
    QVERIFY(areEqual(*last->sent, m_announced[0]));
    QCOMPARE(int(outcomeForOthers(m_announced[0]).status), 4); // the name is too long
}

/// They get later numbers and arrive earlier: the device remembers both.
void tst_RequestAnnouncement::otherRequestsAreSentWhileOneWaits()
{
    std::optional<Exchange> read;
    const RequestAnnouncement announcement([&](const RequestIdentity &id, auto) {
        const ExchangeWatch watch;
        const bool isAnswered = send(requestCommand(1, deviceDetail)) == 0;
        read = watch.last();
        m_announced.push_back(id);
        return isAnswered;
    });
    QCOMPARE(writeSwap(), quint16(0));
    QVERIFY(read && read->sent);
    QCOMPARE(read->sent->number, m_announced[0].number + 1);
    QCOMPARE(int(outcomeForOthers(*read->sent).state), int(RequestOutcome::Done));
    QCOMPARE(int(outcomeForOthers(m_announced[0]).state), int(RequestOutcome::Done));
}

void tst_RequestAnnouncement::requestEndsIfTheConnectionIsLostWhileItWaits()
{
    QString error;
    const RequestAnnouncement announcement([&](const RequestIdentity &id, auto) {
        m_announced.push_back(id);
        m_connection->simulator->execute(QStringLiteral("switch 0"));
        while (channel().isHardwareReadFinished())
            std::this_thread::yield();
        m_connection->simulator->execute(QStringLiteral("switch 1"));
        channel().reconnectNow();
        return channel().waitUntilReady(30000, error);
    });
    const ExchangeWatch watch;
    QCOMPARE(writeSwap(60000), quint16(259));
    QVERIFY(watch.last() && !watch.last()->sent);
    QString otherError;
    m_other->channel->reconnectNow();
    QVERIFY2(m_other->channel->waitUntilReady(30000, otherError), qPrintable(otherError));
    QVERIFY(!isSwapOff());
}

void tst_RequestAnnouncement::newestAnnouncementOfAThreadCounts()
{
    const RequestAnnouncement outer(answering(false));
    {
        const RequestAnnouncement inner(answering(true));
        QCOMPARE(writeSwap(), quint16(0));
    }
    QCOMPARE(writeSwap(), quint16(263));
    QCOMPARE(m_announced.size(), std::size_t(2));
}

void tst_RequestAnnouncement::timeIsThatOfTheRequest()
{
    std::chrono::milliseconds given{};
    const RequestAnnouncement announcement([&](const RequestIdentity &, auto time) {
        given = time;
        return true;
    });
    QCOMPARE(writeSwap(60000), quint16(0));
    QVERIFY(given > 0ms && given <= 60000ms);
}

QTEST_GUILESS_MAIN(tst_RequestAnnouncement)
#include "tst_requestannouncement.moc"
