// Calls of operations by their names.

#include <support/tavorosession/sessionbench.h>

#include <tavorobizmodel/screen.h>

using namespace Tavoro;
using Operations::MissingKeys;

namespace {

const QString freeze = QStringLiteral("Screen.writeFreeze");

QStringList lackingFreeze()
{
    return {QStringLiteral(R"([{"screenId":1,"screenType":1}])")};
}

} // namespace

class tst_NamedCalls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_bench.reset(); }

    void missingKeysAreRefused();
    void missingKeysAreSentAsDefaultsOnRequest();
    void unknownOperationIsNotSent();

private:
    DeviceSession &wall() { return *m_bench->wall; }
    int frozen() { return wall().device()->findScreen(1, 1).lock()->detail().freeze; }

    std::unique_ptr<SessionBench> m_bench;
};

/// Screen 1 is frozen, which is not the default.
void tst_NamedCalls::init()
{
    m_bench = std::make_unique<SessionBench>();
    QVERIFY(m_bench->openReady());
    const QString frozenScreen = QStringLiteral(R"([{"screenId":1,"screenType":1,"freeze":1}])");
    QVERIFY(resultOf(wall().callByName(freeze, {frozenScreen})));
    QVERIFY(resultOf(wall().modelUpdate()));
    QCOMPARE(frozen(), 1);
}

void tst_NamedCalls::missingKeysAreRefused()
{
    const Outcome outcome = resultOf(wall().callByName(freeze, lackingFreeze()));
    QCOMPARE(outcome.kind(), Outcome::NotSent);
    QVERIFY2(outcome.reason().contains(QLatin1String("freeze")), qPrintable(outcome.reason()));
}

void tst_NamedCalls::missingKeysAreSentAsDefaultsOnRequest()
{
    QVERIFY(resultOf(wall().callByName(freeze, lackingFreeze(), MissingKeys::SentAsDefaults)));
    QVERIFY(resultOf(wall().modelUpdate()));
    QCOMPARE(frozen(), 0);
}

void tst_NamedCalls::unknownOperationIsNotSent()
{
    const Outcome outcome = resultOf(wall().callByName(QStringLiteral("Screen.writeMagic")));
    QCOMPARE(outcome.kind(), Outcome::NotSent);
    QCOMPARE(outcome.reason(), QStringLiteral("unknown operation \"Screen.writeMagic\""));
}

QTEST_GUILESS_MAIN(tst_NamedCalls)
#include "tst_namedcalls.moc"
