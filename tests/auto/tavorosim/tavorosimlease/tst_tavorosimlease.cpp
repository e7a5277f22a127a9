// The simulated device grants its lease to one client at a time. The tests advance its clock.

#include <support/tavorosim/commandcodes.h>
#include <support/tavorosim/simbench.h>

#include <QTest>

#include <memory>
#include <string>

using namespace CommandCodes;
using namespace Tavoro;
using namespace std::string_literals;
using SSProxy::CommandType;

namespace {

constexpr quint8 takeAction = 1;
constexpr quint8 releaseAction = 2;

const std::string freeLease = "\0\0\0\0\0"s;

Sim::SimOptions stoppedClock()
{
    Sim::SimOptions options;
    options.clockSpeed = 0;
    return options;
}

/// A client that has identified its connection by eight times \a name.
struct Client {
    Client(const SimBench &bench, char name, char connection = 1)
    {
        WireFrame frame;
        frame.head.kind = 4;
        frame.body = std::string(8, name) + std::string{connection, 0, 0, 0};
        if (!wire.connectTo(bench.device->port()) || wire.exchange(frame).head.kind != 5)
            qFatal("the device does not identify itself");
    }

    WireFrame request(quint8 action, const std::string &body)
    {
        WireFrame frame = WireClient::request(leaseCode, CommandType::Write, body);
        frame.head.arg2[0] = action;
        return wire.exchange(frame);
    }
    /// The lease after an attempt to take it for \a seconds.
    std::string take(char seconds, const std::string &holder)
    {
        return request(takeAction, std::string{seconds, 0} + holder).body;
    }
    std::string release() { return request(releaseAction, {}).body; }
    std::string read() { return wire.read(leaseCode).body; }

    WireClient wire;
};

} // namespace

class tst_TavoroSimLease : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bench = std::make_unique<SimBench>(stoppedClock()); }
    void cleanup() { m_bench.reset(); }

    void leaseIsGrantedToOneClient();
    void leaseEndsWhenItsTimeIsOver();
    void holderRenewsItsLease();
    void holderReleasesItsLease();
    void otherClientCannotReleaseTheLease();
    void leaseSurvivesTheConnectionOfItsHolder();
    void leaseEndsWhenTheDeviceRestarts();
    void newHolderEndsTheConnectionOfTheFormerOne();
    void releasedLeaseEndsNoConnection();
    void leaseIsIndependentOfControl();
    void invalidRequestsAreRefused_data();
    void invalidRequestsAreRefused();
    void clientWithoutAnIdentificationIsRefused();

private:
    void pass(int milliseconds)
    {
        QVERIFY(m_bench->device->execute(QStringLiteral("pass %1").arg(milliseconds)).ok);
    }

    std::unique_ptr<SimBench> m_bench;
};

void tst_TavoroSimLease::leaseIsGrantedToOneClient()
{
    Client a(*m_bench, 'a');
    Client b(*m_bench, 'b');
    QCOMPARE(a.read(), freeLease);
    QCOMPARE(a.take(5, "gate a"), "\x01\x88\x13\0\0gate a"s);
    pass(1000);
    QCOMPARE(b.take(5, "gate b"), "\x02\xA0\x0F\0\0gate a"s); // 4000 ms are left
    QCOMPARE(b.read(), "\x02\xA0\x0F\0\0gate a"s);
    QCOMPARE(a.read(), "\x01\xA0\x0F\0\0gate a"s);
}

void tst_TavoroSimLease::leaseEndsWhenItsTimeIsOver()
{
    Client a(*m_bench, 'a');
    a.take(5, "gate a");
    pass(4999);
    QCOMPARE(a.read(), "\x01\x01\0\0\0gate a"s);
    pass(1);
    QCOMPARE(a.read(), freeLease);
}

void tst_TavoroSimLease::holderRenewsItsLease()
{
    Client a(*m_bench, 'a');
    a.take(5, "gate a");
    pass(4000);
    QCOMPARE(a.take(2, "gate A"), "\x01\xD0\x07\0\0gate A"s); // also shorter, and with a new name
}

void tst_TavoroSimLease::holderReleasesItsLease()
{
    Client a(*m_bench, 'a');
    Client b(*m_bench, 'b');
    a.take(5, "gate a");
    QCOMPARE(a.release(), freeLease);
    QCOMPARE(a.release(), freeLease);
    QCOMPARE(b.take(5, "gate b"), "\x01\x88\x13\0\0gate b"s);
}

void tst_TavoroSimLease::otherClientCannotReleaseTheLease()
{
    Client a(*m_bench, 'a');
    Client b(*m_bench, 'b');
    a.take(5, "gate a");
    QCOMPARE(b.release(), "\x02\x88\x13\0\0gate a"s);
}

void tst_TavoroSimLease::leaseSurvivesTheConnectionOfItsHolder()
{
    {
        Client a(*m_bench, 'a', 1);
        a.take(5, "gate a");
    }
    Client b(*m_bench, 'b');
    QCOMPARE(b.take(5, "gate b"), "\x02\x88\x13\0\0gate a"s);
    Client again(*m_bench, 'a', 2);
    QCOMPARE(again.read(), "\x01\x88\x13\0\0gate a"s);
}

void tst_TavoroSimLease::leaseEndsWhenTheDeviceRestarts()
{
    Client a(*m_bench, 'a', 1);
    a.take(5, "gate a");
    QVERIFY(m_bench->device->execute(QStringLiteral("switch 0")).ok);
    QVERIFY(m_bench->device->execute(QStringLiteral("switch 1")).ok);
    Client b(*m_bench, 'b');
    QCOMPARE(b.read(), freeLease);
}

/// The former holder has sent requests that the device has not read yet, or sends them now: the
/// device does not carry them out.
void tst_TavoroSimLease::newHolderEndsTheConnectionOfTheFormerOne()
{
    Client a(*m_bench, 'a');
    Client b(*m_bench, 'b');
    a.take(5, "gate a");
    QCOMPARE(a.wire.control(1), 0);
    pass(5000);
    QCOMPARE(a.wire.write(deviceSwap, swapOff).head.status, quint8(0)); // no other client has it
    QCOMPARE(b.take(5, "gate b"), "\x01\x88\x13\0\0gate b"s);
    QVERIFY(a.wire.waitForEnd());
    QCOMPARE(b.wire.control(1), 0); // the connection of the former holder had control
    Client again(*m_bench, 'a', 2);
    QCOMPARE(again.take(5, "gate a"), "\x02\x88\x13\0\0gate b"s);
}

void tst_TavoroSimLease::releasedLeaseEndsNoConnection()
{
    Client a(*m_bench, 'a');
    Client b(*m_bench, 'b');
    a.take(5, "gate a");
    a.release();
    b.take(5, "gate b");
    QCOMPARE(a.read(), "\x02\x88\x13\0\0gate b"s);
}

void tst_TavoroSimLease::leaseIsIndependentOfControl()
{
    Client a(*m_bench, 'a');
    Client operatorClient(*m_bench, 'o');
    a.take(5, "gate a");
    QCOMPARE(operatorClient.wire.write(deviceSwap, swapOff).head.status, quint8(0));
    QCOMPARE(a.take(5, "gate a"), "\x01\x88\x13\0\0gate a"s); // another client has control
}

void tst_TavoroSimLease::invalidRequestsAreRefused_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("action");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<int>("status");
    const auto row = [](const char *name, int type, int action, const std::string &body,
                        int status) {
        QTest::newRow(name) << type << action << QByteArray::fromStdString(body) << status;
    };
    row("read with a body", 1, 0, "x", 2);
    row("take without a body", 2, 1, "", 2);
    row("take without a name", 2, 1, "\5\0"s, 2);
    row("take with a damaged name", 2, 1, "\5\0gate\xFF"s, 2);
    row("take for no time", 2, 1, "\0\0gate"s, 4);
    row("take for too long", 2, 1, "\x11\x0Egate"s, 4); // 3601 seconds
    row("release with a body", 2, 2, "x", 2);
    row("no action", 2, 0, "", 4);
    row("unknown action", 2, 3, "", 4);
    row("binary read", 3, 0, "", 1);
    row("binary write", 4, 1, "\5\0gate"s, 1);
}

void tst_TavoroSimLease::invalidRequestsAreRefused()
{
    QFETCH(const int, type);
    QFETCH(const int, action);
    QFETCH(const QByteArray, body);
    QFETCH(const int, status);
    Client a(*m_bench, 'a');
    WireFrame frame =
        WireClient::request(leaseCode, static_cast<CommandType>(type), body.toStdString());
    frame.head.arg2[0] = static_cast<quint8>(action);
    const WireFrame answer = a.wire.exchange(frame);
    QCOMPARE(int(answer.head.status), status);
    QCOMPARE(answer.body, std::string());
    QCOMPARE(a.read(), freeLease);
}

void tst_TavoroSimLease::clientWithoutAnIdentificationIsRefused()
{
    QCOMPARE(m_bench->client->read(leaseCode).body, freeLease);
    WireFrame frame = WireClient::request(leaseCode, CommandType::Write, "\5\0gate"s);
    frame.head.arg2[0] = takeAction;
    QCOMPARE(int(m_bench->client->exchange(frame).head.status), 8);
}

QTEST_GUILESS_MAIN(tst_TavoroSimLease)
#include "tst_tavorosimlease.moc"
