// Scenarios of the simulated device: their text, and those of the program.

#include <tavorosim/console/scenario.h>

#include <QTest>

using namespace Tavoro::Sim;

class tst_Scenario : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void linesBecomeStepsWithThePausesBeforeThem();
    void invalidTextIsRefused_data();
    void invalidTextIsRefused();
    void theProgramHasThreeScenarios();
    void scenariosOfTheProgramAreValid();
};

namespace {

QStringList stepsOf(const Scenario &scenario)
{
    QStringList steps;
    for (const Scenario::Step &step : scenario.steps)
        steps += QStringLiteral("%1 after %2: %3").arg(step.line).arg(step.pause).arg(step.command);
    return steps;
}

} // namespace

void tst_Scenario::linesBecomeStepsWithThePausesBeforeThem()
{
    QString error;
    const auto scenario =
        parseScenario(QStringLiteral("# scene\n\npower 1 0\nwait 20\nwait 5\n"
                                     "  fault  add silent,count=1\nwait 7\nrepeat"),
                      error);
    QCOMPARE(error, QString());
    QVERIFY(scenario);
    QCOMPARE(stepsOf(*scenario),
             QStringList({QStringLiteral("3 after 0: power 1 0"),
                          QStringLiteral("6 after 25: fault add silent,count=1"),
                          QStringLiteral("0 after 7: ")}));
    QVERIFY(scenario->isRepeated);
}

void tst_Scenario::invalidTextIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("reason");
    // clang-format off
    QTest::newRow("unknown command")  << "wait 1\nexplode"        << "line 2: unknown command: explode";
    QTest::newRow("usage")            << "power 1"                << "line 1: usage: power ID STATUS";
    QTest::newRow("range")            << "power 1 7"              << "line 1: \"7\" is not a valid STATUS (0 or 1)";
    QTest::newRow("fault")            << "fault add status=0"     << "line 1: status takes a number from 1 to 255";
    QTest::newRow("pause")            << "wait soon"              << "line 1: usage: wait MILLISECONDS";
    QTest::newRow("negative pause")   << "wait -1"                << "line 1: usage: wait MILLISECONDS";
    QTest::newRow("long pause")       << "wait 2147483647\nwait 1" << "line 2: usage: wait MILLISECONDS";
    QTest::newRow("after the repeat") << "wait 1\nrepeat\nwait 1" << "line 3: \"repeat\" must be the last line";
    QTest::newRow("without a pause")  << "power 1 0\nrepeat"      << "a scenario that repeats needs a pause (wait MILLISECONDS)";
    // clang-format on
}

void tst_Scenario::invalidTextIsRefused()
{
    QFETCH(QString, text);
    QString error;
    QVERIFY(!parseScenario(text, error));
    QTEST(error, "reason");
}

void tst_Scenario::theProgramHasThreeScenarios()
{
    QCOMPARE(scenarioNames(),
             QStringList({QStringLiteral("busy-show"), QStringLiteral("flaky-network"),
                          QStringLiteral("power-failure")}));
}

void tst_Scenario::scenariosOfTheProgramAreValid()
{
    for (const QString &name : scenarioNames()) {
        QString error;
        const auto scenario = readScenario(name, error);
        QVERIFY2(scenario, qPrintable(error));
        QCOMPARE(scenario->name, name);
        QVERIFY(scenario->isRepeated);
        QVERIFY(scenario->steps.size() > 5);
    }
}

QTEST_GUILESS_MAIN(tst_Scenario)
#include "tst_scenario.moc"
