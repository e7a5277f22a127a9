#include <tavorossproxy/channel/channelreadiness_p.h>
#include <tavorossproxy/channel/exchangetable_p.h>

#include <support/tavorossproxy/manualloop.h>

#include <QTest>

#include <memory>
#include <thread>

using namespace Tavoro;
using namespace Tavoro::SSProxy;
using namespace Tavoro::SSProxy::Internal;
using namespace std::chrono_literals;

class tst_ChannelReadiness : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void newChannelIsNotReady();
    void requestsAreRefusedWhileTheChannelConnects();
    void identityOpensTheTable();
    void lossRefusesWithDisconnected();
    void failedAttemptRefusesWithItsCause();
    void onlyThePresentConnectionCanBeEnded();
    void stopIsFinal();
    void waitEndsWhenTheDeviceHasIdentifiedItself();
    void waitEndsWhenTheChannelStops();
    void waitEndsAtItsDeadline();

private:
    bool begin();
    QString errorNow();

    ManualLoop m_clock;
    std::unique_ptr<ExchangeTable> m_table;
    std::unique_ptr<ChannelReadiness> m_readiness;
};

void tst_ChannelReadiness::init()
{
    m_table = std::make_unique<ExchangeTable>(m_clock);
    m_readiness = std::make_unique<ChannelReadiness>(QStringLiteral("device:1"), *m_table);
}

bool tst_ChannelReadiness::begin()
{
    ProtoModel::DeviceBaseInfo info;
    info.name = "stage";
    info.maxPacketSize = 64;
    return m_readiness->begin(info, {"client", 1});
}

/// Why the channel is not ready; empty if it is.
QString tst_ChannelReadiness::errorNow()
{
    QString error;
    m_readiness->await(m_clock, m_clock.now(), error);
    return error;
}

void tst_ChannelReadiness::newChannelIsNotReady()
{
    QCOMPARE(errorNow(),
             QStringLiteral("The device at device:1 cannot be reached: no connection yet."));
    QCOMPARE(m_readiness->connections(), quint64(0));
    QCOMPARE(m_table->refusal(), quint16(257));
}

void tst_ChannelReadiness::requestsAreRefusedWhileTheChannelConnects()
{
    m_readiness->beginConnecting();
    QCOMPARE(m_table->refusal(), quint16(258));
    m_readiness->setReason(QStringLiteral("no answer"));
    m_readiness->setPeerName(QStringLiteral("other:2"));
    QCOMPARE(errorNow(), QStringLiteral("The device at other:2 cannot be reached: no answer."));
}

void tst_ChannelReadiness::identityOpensTheTable()
{
    QVERIFY(begin());
    QCOMPARE(errorNow(), QString());
    QCOMPARE(m_table->refusal(), quint16(0));
    QCOMPARE(m_readiness->connections(), quint64(1));
    QCOMPARE(m_readiness->deviceInfo().name, std::string("stage"));
}

void tst_ChannelReadiness::lossRefusesWithDisconnected()
{
    begin();
    QVERIFY(m_readiness->end(364, QStringLiteral("it is silent"), 0));
    QCOMPARE(m_table->refusal(), quint16(259));
    QCOMPARE(m_readiness->reason(), QStringLiteral("it is silent"));
}

void tst_ChannelReadiness::failedAttemptRefusesWithItsCause()
{
    m_readiness->beginConnecting();
    QVERIFY(m_readiness->end(359, QStringLiteral("another version"), 0));
    QCOMPARE(m_table->refusal(), quint16(359));
}

void tst_ChannelReadiness::onlyThePresentConnectionCanBeEnded()
{
    begin();
    QVERIFY(!m_readiness->endConnection(0, QStringLiteral("too late")));
    QCOMPARE(m_table->refusal(), quint16(0));
    QVERIFY(m_readiness->endConnection(1, QStringLiteral("stuck")));
    QCOMPARE(m_table->refusal(), quint16(259));
    QCOMPARE(m_readiness->reason(), QStringLiteral("stuck"));
    QVERIFY(!m_readiness->endConnection(1, QStringLiteral("again")));
}

void tst_ChannelReadiness::stopIsFinal()
{
    begin();
    m_readiness->stop(264, QStringLiteral("the end"));
    m_readiness->stop(259, QStringLiteral("another end"));
    m_readiness->beginConnecting();
    m_readiness->setReason(QStringLiteral("no answer"));
    QVERIFY(!begin());
    QVERIFY(!m_readiness->end(359, QStringLiteral("lost"), 0));
    QVERIFY(!m_readiness->endConnection(1, QStringLiteral("stuck")));
    QCOMPARE(m_table->refusal(), quint16(264));
    QCOMPARE(m_readiness->reason(), QStringLiteral("the end"));
    QCOMPARE(m_readiness->connections(), quint64(1));
}

void tst_ChannelReadiness::waitEndsWhenTheDeviceHasIdentifiedItself()
{
    bool isReady = false;
    QString error;
    std::thread caller([&] { isReady = m_readiness->await(m_clock, m_clock.now() + 1h, error); });
    m_clock.awaitWaiting(1);
    begin();
    caller.join();
    QVERIFY(isReady);
}

void tst_ChannelReadiness::waitEndsWhenTheChannelStops()
{
    bool isReady = true;
    QString error;
    std::thread caller([&] { isReady = m_readiness->await(m_clock, m_clock.now() + 1h, error); });
    m_clock.awaitWaiting(1);
    m_readiness->stop(259, QStringLiteral("the end"));
    caller.join();
    QVERIFY(!isReady);
    QCOMPARE(error, QStringLiteral("The device at device:1 cannot be reached: the end."));
}

void tst_ChannelReadiness::waitEndsAtItsDeadline()
{
    bool isReady = true;
    QString error;
    std::thread caller([&] { isReady = m_readiness->await(m_clock, m_clock.now() + 5s, error); });
    m_clock.awaitWaiting(1);
    m_clock.advance(5s);
    caller.join();
    QVERIFY(!isReady);
}

QTEST_APPLESS_MAIN(tst_ChannelReadiness)
#include "tst_channelreadiness.moc"
