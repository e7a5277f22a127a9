// Faults that affect several callers at once or arrive after the end of a request, and floods that
// exceed the limits.

#include <support/tavorosim/simulatedconnection.h>

#include <tavorocontrol/autoreportmanager.h>
#include <tavorocontrol/device.h>

#include <QTest>

#include <chrono>
#include <thread>
#include <vector>

using namespace Tavoro;
using namespace std::chrono_literals;
using Milliseconds = std::chrono::milliseconds;

namespace {

constexpr int callers = 8;
constexpr Milliseconds requestTime = 1s;
constexpr Milliseconds grace = 500ms;
constexpr int latency = 100; ///< Milliseconds, so that all callers wait at the same time.

/// The texts that callers may get when the fault affects the fourth of them. At least one caller
/// gets the first text. Callers may also get the text of a connection that was lost before.
struct FaultRow {
    const char *fault;
    bool isLost; ///< The connection ends.
    std::vector<const char *> reasons;
};

// clang-format off
const FaultRow faultRows[] = {
    {"reboot",       true,  {"software error: Channel disconnected"}},
    {"drop-request", true,  {"software error: Channel disconnected"}},
    {"wrong-flag",   true,  {"protocol error: Invalid protocol header flag"}},
    {"drop-within",  true,  {"protocol error: Return data is too short", "software error: Channel disconnected"}},
    {"silent",       false, {"software error: Request timed out"}},
    {"stop-reading", false, {"software error: Request timed out"}},
};
// clang-format on

/// The outcome of one call.
struct Outcome {
    bool ok = false;
    QString error;
    Milliseconds time{0};
};

QString sentence(const char *reason)
{
    return QStringLiteral("Get device detail information failed: %1 .").arg(QLatin1String(reason));
}

/// A device with faults on request.
class Bench {
public:
    explicit Bench(int latencyMilliseconds = 0)
        : connection(deviceOptions(latencyMilliseconds), channelOptions())
    {
        Control::AutoReportManager::instance();
    }

    void addFault(const char *rule)
    {
        const auto answer = console(QStringLiteral("fault add ") + QLatin1String(rule));
        QVERIFY2(answer.ok, qPrintable(answer.text));
    }
    /// Every rule was applied as often as it says.
    bool hasStruck() { return console(QStringLiteral("fault list")).text.isEmpty(); }
    void lift() { QVERIFY(console(QStringLiteral("fault clear")).ok); }

    int connections() const
    {
        return static_cast<int>(connection.channel->statistics().connections);
    }

    Outcome read()
    {
        Outcome outcome;
        ProtoModel::Device::s_DeviceDetail detail;
        const auto begin = std::chrono::steady_clock::now();
        outcome.ok = Control::Device(connection.model).readDetails(detail, outcome.error);
        outcome.time =
            std::chrono::duration_cast<Milliseconds>(std::chrono::steady_clock::now() - begin);
        return outcome;
    }
    std::vector<Outcome> readAtOnce()
    {
        std::vector<Outcome> outcomes(callers);
        std::vector<std::thread> threads;
        for (Outcome &outcome : outcomes)
            threads.emplace_back([&] { outcome = read(); });
        for (std::thread &thread : threads)
            thread.join();
        return outcomes;
    }

    SimulatedConnection connection;

private:
    static Sim::SimOptions deviceOptions(int latencyMilliseconds)
    {
        Sim::SimOptions options;
        options.latencyMilliseconds = latencyMilliseconds;
        options.clockSpeed = 2000; // a restart takes 50 ms
        return options;
    }
    static SSProxy::ChannelOptions channelOptions()
    {
        SSProxy::ChannelOptions options;
        options.maxRequestTime = requestTime;
        return options;
    }
    Sim::ConsoleAnswer console(const QString &line) { return connection.simulator->execute(line); }
};

} // namespace

class tst_FaultCallers : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyBlockedCallerReturns_data();
    void everyBlockedCallerReturns();
    void lateAnswerIsDropped();
    void floodBeyondTheLimitIsDroppedAndTheAnswerArrives();
};

void tst_FaultCallers::everyBlockedCallerReturns_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < int(std::size(faultRows)); ++row)
        QTest::newRow(faultRows[row].fault) << row;
}

void tst_FaultCallers::everyBlockedCallerReturns()
{
    QFETCH(int, row);
    const FaultRow &fault = faultRows[row];
    QStringList sentences;
    if (fault.isLost)
        sentences << sentence("The device is offline");
    for (const char *reason : fault.reasons)
        sentences << sentence(reason);
    Bench bench(latency);
    QTRY_COMPARE(bench.connections(), 1);
    bench.addFault(qPrintable(
        QStringLiteral("%1,code=DeviceDetail,skip=3,count=1").arg(QLatin1String(fault.fault))));

    QStringList errors;
    for (const Outcome &outcome : bench.readAtOnce()) {
        QVERIFY2(outcome.time <= requestTime + grace,
                 qPrintable(QString::number(outcome.time.count())));
        if (!outcome.ok)
            errors << outcome.error;
        QVERIFY2(outcome.ok || sentences.contains(outcome.error), qPrintable(outcome.error));
    }
    QVERIFY(bench.hasStruck());
    QVERIFY(errors.contains(sentence(fault.reasons.front())));

    bench.lift();
    QTRY_COMPARE(bench.connections(), fault.isLost ? 2 : 1);
    QTRY_VERIFY(bench.connection.channel->isHardwareReadFinished());
    for (const Outcome &outcome : bench.readAtOnce())
        QVERIFY2(outcome.ok, qPrintable(outcome.error));
}

void tst_FaultCallers::lateAnswerIsDropped()
{
    Bench bench;
    bench.addFault("late=1200,code=DeviceDetail,count=1");
    QCOMPARE(bench.read().error, sentence("software error: Request timed out"));
    QTRY_COMPARE(bench.connection.channel->statistics().lateAnswers, quint64(1));
    QVERIFY(bench.read().ok);
    QCOMPARE(bench.connection.channel->statistics().strayAnswers, quint64(0));
}

void tst_FaultCallers::floodBeyondTheLimitIsDroppedAndTheAnswerArrives()
{
    constexpr quint64 sent = 5000;
    Bench bench;
    bench.addFault("flood=5000,code=DeviceDetail,count=1");
    const Outcome outcome = bench.read(); // no report is processed meanwhile
    QVERIFY2(outcome.ok, qPrintable(outcome.error));
    const auto statistics = bench.connection.channel->statistics();
    const auto most = static_cast<quint64>(2 * SSProxy::ChannelOptions().maxPendingReports);
    QVERIFY(statistics.droppedReports >= sent - most);
    QTRY_COMPARE(bench.connection.channel->statistics().reports, sent - statistics.droppedReports);
}

QTEST_GUILESS_MAIN(tst_FaultCallers)
#include "tst_faultcallers.moc"
