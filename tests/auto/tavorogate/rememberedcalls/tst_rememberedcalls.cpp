// How long calls are remembered, by which a second delivery is recognised.

#include <tavorogate/calls/rememberedcalls.h>

using namespace Tavoro;
using namespace Tavoro::Gate;

class tst_RememberedCalls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newCallIsUnderWayUntilItEnds();
    void correlationBelongsToOneUserAndTopic();
    void otherArgumentsAreAnotherCall();
    void oldestEndedCallIsForgotten();
    void callUnderWayIsNotForgotten();
    void readWithALongRecordIsForgotten();
    void callWithoutCorrelationIsAlwaysNew();
    void callOfWhichOnlyTheEndIsKnownIsRecognised();
    void forgottenCallIsNew();

private:
    static CallRequest call(const QByteArray &correlation)
    {
        CallRequest call;
        call.operation = QStringLiteral("Device.writeSwap");
        call.key = {QStringLiteral("anna"), QStringLiteral("tavoro/answer/anna"), correlation};
        return call;
    }
    static CallAnswer done(const std::string &record = {})
    {
        return {Outcome::Done, 0, QStringLiteral("carried out"), record};
    }
    int arrive(const CallRequest &call) { return static_cast<int>(m_calls.arrive(call).kind); }

    static constexpr int isNew = 0;
    static constexpr int isUnderWay = 1;
    static constexpr int hasEnded = 2;
    static constexpr int isDifferent = 3;
    RememberedCalls m_calls;
};

void tst_RememberedCalls::newCallIsUnderWayUntilItEnds()
{
    m_calls = {};
    QCOMPARE(arrive(call("1")), isNew);
    QCOMPARE(arrive(call("1")), isUnderWay);
    m_calls.end(call("1"), done());
    QCOMPARE(arrive(call("1")), hasEnded);
    QCOMPARE(m_calls.arrive(call("1")).answer.text, QStringLiteral("carried out"));
}

void tst_RememberedCalls::correlationBelongsToOneUserAndTopic()
{
    m_calls = {};
    QCOMPARE(arrive(call("1")), isNew);
    CallRequest other = call("1");
    other.key.user = QStringLiteral("bob");
    QCOMPARE(arrive(other), isNew);
    other.key.answerTopic = QStringLiteral("tavoro/answer/bob");
    QCOMPARE(arrive(other), isNew);
}

void tst_RememberedCalls::otherArgumentsAreAnotherCall()
{
    m_calls = {};
    QCOMPARE(arrive(call("1")), isNew);
    CallRequest other = call("1");
    other.body = "{}";
    QCOMPARE(arrive(other), isDifferent);
    other = call("1");
    other.operation = QStringLiteral("Device.writeZelk");
    QCOMPARE(arrive(other), isDifferent);
}

void tst_RememberedCalls::oldestEndedCallIsForgotten()
{
    m_calls = {};
    for (int i = 0; i <= 10000; ++i) {
        QCOMPARE(arrive(call(QByteArray::number(i))), isNew);
        m_calls.end(call(QByteArray::number(i)), done());
    }
    QCOMPARE(arrive(call("1")), hasEnded);
    QCOMPARE(arrive(call("0")), isNew);
}

void tst_RememberedCalls::callUnderWayIsNotForgotten()
{
    m_calls = {};
    QCOMPARE(arrive(call("held")), isNew);
    for (int i = 0; i <= 10001; ++i)
        m_calls.end(call(QByteArray::number(i)), done());
    QCOMPARE(arrive(call("held")), isUnderWay);
}

void tst_RememberedCalls::readWithALongRecordIsForgotten()
{
    m_calls = {};
    QCOMPARE(arrive(call("1")), isNew);
    m_calls.end(call("1"), done(std::string(4096, 'x')));
    QCOMPARE(arrive(call("1")), hasEnded);
    QCOMPARE(arrive(call("2")), isNew);
    m_calls.end(call("2"), done(std::string(4097, 'x')));
    QCOMPARE(arrive(call("2")), isNew);
}

void tst_RememberedCalls::callWithoutCorrelationIsAlwaysNew()
{
    m_calls = {};
    QCOMPARE(arrive(call({})), isNew);
    m_calls.end(call({}), done());
    QCOMPARE(arrive(call({})), isNew);
}

/// Another gateway has received it, and reports no arguments.
void tst_RememberedCalls::callOfWhichOnlyTheEndIsKnownIsRecognised()
{
    m_calls = {};
    m_calls.end(call("1"), done());
    CallRequest complete = call("1");
    complete.body = "{}";
    QCOMPARE(arrive(complete), hasEnded);
}

void tst_RememberedCalls::forgottenCallIsNew()
{
    m_calls = {};
    QCOMPARE(arrive(call("1")), isNew);
    m_calls.forget(call("1").key);
    QCOMPARE(static_cast<int>(m_calls.find(call("1").key).kind), isNew);
    QCOMPARE(arrive(call("1")), isNew);
}

QTEST_GUILESS_MAIN(tst_RememberedCalls)
#include "tst_rememberedcalls.moc"
