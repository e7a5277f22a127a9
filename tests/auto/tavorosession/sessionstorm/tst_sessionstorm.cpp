// A session with fifty devices that fail at random, while it calls, reads, connects and closes at
// random. Afterwards model, item models and devices agree record for record.
//
// Environment: TAVORO_STORM_SECONDS is the time of the storm, 3 by default; TAVORO_STORM_SEED is
// the seed, 1 by default.

#include "storm.h"

#include <support/tavoromodels/allmodels.h>
#include <support/tavorosession/devicerecords.h>

#include <QElapsedTimer>
#include <QEventLoop>
#include <QLoggingCategory>

using namespace Tavoro;

namespace {

constexpr int deviceCount = 50;
constexpr int watchedDevices = 5;
constexpr int fewestActions = 1500;
constexpr int longestWait = 200000; // milliseconds; sanitizers are slow

const AllModels::Scenes scenes{{{{1, 1}, 2}, {{1, 1}, 4}, {{2, 2}, 2}, {{2, 2}, 4}}};

int numberOf(const char *variable, int usual)
{
    const int number = qEnvironmentVariableIntValue(variable);
    return number > 0 ? number : usual;
}

/// Whether the model gets equal to the device without another reading.
bool agrees(DeviceSession &wall)
{
    QElapsedTimer time;
    time.start();
    QStringList read;
    while (time.elapsed() < longestWait) {
        read = readRecords(wall);
        if (read == recordsOf(*wall.device()))
            return true;
        QTest::qWait(10);
    }
    const QStringList model = recordsOf(*wall.device());
    qWarning().noquote() << wall.name() << read.size() << "records, in the model" << model.size();
    for (int i = 0; i < std::min(read.size(), model.size()); ++i) {
        if (read[i] != model[i])
            qWarning().noquote() << "device:" << read[i] << "\nmodel: " << model[i];
    }
    return false;
}

/// Lets the storm rage for some time, and for some actions even if the machine is busy.
void rage(Storm &storm, int seconds)
{
    QElapsedTimer time;
    time.start();
    QEventLoop untilEnd;
    QTimer steps;
    int count = 0;
    QObject::connect(&steps, &QTimer::timeout, &untilEnd, [&] {
        storm.step();
        if (++count >= fewestActions && time.hasExpired(seconds * 1000))
            untilEnd.quit();
    });
    steps.start(1);
    untilEnd.exec();
}

} // namespace

class tst_SessionStorm : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false")); }
    void cleanupTestCase() { QLoggingCategory::setFilterRules(QString()); }

    void modelsAndDevicesAgreeAfterAStorm();
};

void tst_SessionStorm::modelsAndDevicesAgreeAfterAStorm()
{
    const int seconds = numberOf("TAVORO_STORM_SECONDS", 3);
    const int seed = numberOf("TAVORO_STORM_SEED", 1);
    qInfo("%d s, seed %d", seconds, seed);
    Storm storm(deviceCount, static_cast<quint32>(seed));
    QTRY_VERIFY_WITH_TIMEOUT(storm.isCalm(), longestWait);
    std::vector<std::unique_ptr<WatchedModels>> watched;
    for (std::size_t i = 0; i < watchedDevices; ++i)
        watched.push_back(std::make_unique<WatchedModels>(storm.walls()[i]->device(), scenes));
    Heartbeat heartbeat;

    rage(storm, seconds);
    storm.end();
    QTRY_VERIFY_WITH_TIMEOUT(storm.isCalm(), longestWait);

    qInfo("%s", qPrintable(storm.summary()));
    for (DeviceSession *const wall : storm.walls()) {
        if (!wall->state().reason.isEmpty()) // it was read, but not completely
            wall->readAgain();
    }
    for (DeviceSession *const wall : storm.walls())
        QVERIFY(agrees(*wall));
    for (const auto &models : watched)
        QCOMPARE(models->faults(), QStringList());
    QCOMPARE(storm.violations(), QStringList());
    // Not judged: with sanitizers and other programs on the machine, the work itself takes seconds.
    qInfo("longest gap of the application's thread: %lld ms", heartbeat.longestGap());
    for (const auto kind : {Outcome::Done, Outcome::Refused, Outcome::NotSent})
        QVERIFY(storm.outcomes(kind) > 0);
    QVERIFY(storm.states(DeviceState::Lost) > 0);
}

QTEST_GUILESS_MAIN(tst_SessionStorm)
#include "tst_sessionstorm.moc"
