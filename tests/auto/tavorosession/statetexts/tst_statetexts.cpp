// The sentence about the state of a device session, in each state with and without a reason.

#include <support/tavorosession/sessionbench.h>

#include <tavorocontrol/device.h>

#include <QStringList>

using namespace Tavoro;

namespace {

/// Records the sentence whenever the state or its details change.
class TextLog {
public:
    explicit TextLog(const DeviceSession &session)
    {
        const auto record = [this, &session] {
            texts << session.stateText();
        };
        QObject::connect(&session, &DeviceSession::stateChanged, &m_context, record);
        QObject::connect(&session, &DeviceSession::stateDetailsChanged, &m_context, record);
    }

    QStringList texts;

private:
    QObject m_context;
};

} // namespace

class tst_StateTexts : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bench = std::make_unique<SessionBench>(); }
    void cleanup() { m_bench.reset(); }

    void connectingHasNoReasonBeforeAnAttemptHasFailed();
    void eachStateHasASentence();
    void readingThatFailsIsNamed();
    void whatCouldNotBeReadIsNamed();

private:
    std::unique_ptr<SessionBench> m_bench;
};

void tst_StateTexts::connectingHasNoReasonBeforeAnAttemptHasFailed()
{
    QVERIFY(m_bench->execute(QStringLiteral("switch 0")));
    m_bench->open();
    const DeviceSession &wall = *m_bench->wall;
    QCOMPARE(wall.stateText(), QStringLiteral("Connecting to %1.").arg(wall.address()));
    const TextLog log(wall);
    QTRY_VERIFY(!log.texts.isEmpty());
    QCOMPARE(log.texts.first(),
             QStringLiteral("Cannot connect to %1: Connection refused.").arg(wall.address()));
}

void tst_StateTexts::eachStateHasASentence()
{
    m_bench->open();
    DeviceSession &wall = *m_bench->wall;
    TextLog log(wall);
    QTRY_VERIFY(wall.isReady());
    QCOMPARE(log.texts,
             (QStringList{QStringLiteral("Reading wall 1."), QStringLiteral("wall 1 is ready.")}));
    log.texts.clear();
    QVERIFY(m_bench->addFault("drop-before,code=0x1107,count=1"));
    wall.call(&Control::Device::writeSwap, {1});
    QTRY_VERIFY(!log.texts.isEmpty());
    QCOMPARE(log.texts.first(),
             QStringLiteral("The connection to wall 1 is lost: The remote host "
                            "closed the connection."));
    wall.close();
    QCOMPARE(log.texts.last(), QStringLiteral("wall 1 is disconnected: the session is closed."));
}

void tst_StateTexts::readingThatFailsIsNamed()
{
    QVERIFY(m_bench->addFault("status=8,code=0x1200,count=1"));
    m_bench->open();
    const TextLog log(*m_bench->wall);
    QTRY_VERIFY(m_bench->wall->isReady());
    QCOMPARE(log.texts.at(1),
             QStringLiteral("Cannot read wall 1: the interfaces could not be read (the device is "
                            "busy, or the object is in use)."));
}

void tst_StateTexts::whatCouldNotBeReadIsNamed()
{
    QVERIFY(m_bench->addFault("status=8,code=0x1400,count=1"));
    QVERIFY(m_bench->openReady());
    QCOMPARE(m_bench->wall->stateText(),
             QStringLiteral("wall 1 is ready, but the layers could not be read (the device is "
                            "busy, or the object is in use)."));
}

QTEST_GUILESS_MAIN(tst_StateTexts)
#include "tst_statetexts.moc"
