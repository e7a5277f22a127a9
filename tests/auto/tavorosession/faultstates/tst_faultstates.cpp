// The states that each fault of a device leads to, with their reasons.

#include <support/tavorosession/sessionbench.h>
#include <support/tavorosession/statelog.h>
#include <support/tavorosim/faultrule.h>

#include <tavorocontrol/device.h>

#include <QSet>

using namespace Tavoro;
using namespace std::chrono_literals;

namespace {

/// Records each state that a session reports, with its reason. What repeats is recorded once, and
/// the attempts to connect are not.
class FullLog {
public:
    explicit FullLog(DeviceSession &session) : m_session(session)
    {
        QObject::connect(&session, &DeviceSession::stateChanged, &m_context, [this] { add(); });
        QObject::connect(&session, &DeviceSession::stateDetailsChanged, &m_context,
                         [this] { addDetails(); });
    }
    QString text() const { return m_entries.join(QStringLiteral(" | ")); }

private:
    void add()
    {
        QString entry = QString::fromLatin1(nameOf(m_session.state().kind));
        if (!m_session.state().reason.isEmpty())
            entry += QStringLiteral(": ") + m_session.state().reason;
        if (m_entries.isEmpty() || m_entries.last() != entry)
            m_entries << entry;
    }

    void addDetails()
    {
        if (m_session.state().kind != DeviceState::Lost)
            add();
    }

    const DeviceSession &m_session;
    QStringList m_entries;
    QObject m_context;
};

/// What a fault of one exchange leads to.
struct FaultRow {
    const char *fault;
    const char *loss; ///< Why the connection is lost; null if it is not.
    const char *failure; ///< Why a read fails on the same connection; null if it does not fail.
};

// clang-format off
constexpr FaultRow faultRows[] = {
//   fault                  loss                                       failure
    {"status=8",             nullptr,                                   "the device is busy, or the object is in use"},
    {"late=100",             nullptr,                                   nullptr},
    {"hold",                 nullptr,                                   "the device did not answer in time"},
    {"silent",               nullptr,                                   "the device did not answer in time"},
    {"ignore",               nullptr,                                   "the device did not answer in time"},
    {"stall",                "it stopped in the middle of a frame",                                   nullptr},
    {"drop-request",         "The remote host closed the connection",   nullptr},
    {"drop-before",          "The remote host closed the connection",   nullptr},
    {"drop-within",          "The remote host closed the connection",   nullptr},
    {"drop-after",           "The remote host closed the connection",   nullptr},
    {"wrong-flag",           "it sent an invalid frame (359)",          nullptr},
    {"wrong-version",        "it sent an invalid frame (359)",          nullptr},
    {"wrong-head-checksum",  "it sent an invalid frame (361)",          nullptr},
    {"wrong-length",         "it sent an invalid frame (363)",          nullptr},
    {"wrong-length=1",       "it stopped in the middle of a frame",                                   nullptr},
    {"wrong-index",          nullptr,                                   "protocol error: Invalid checksum index"},
    {"wrong-checksum",       nullptr,                                   "protocol error: Invalid checksum"},
    {"wrong-kind",           nullptr,                                   "protocol error: Invalid type"},
    {"wrong-type",           nullptr,                                   "protocol error: Invalid type"},
    {"wrong-code",           nullptr,                                   "protocol error: Invalid register address"},
    {"wrong-tag",            nullptr,                                   "the device did not answer in time"},
    {"wrong-stream",         nullptr,                                   "the device did not answer in time"},
    {"other-tag",            nullptr,                                   nullptr},
    {"packets",              nullptr,                                   "protocol error: Invalid extended data length"},
    {"swap-packets",         nullptr,                                   nullptr},
    {"twice",                nullptr,                                   nullptr},
    {"truncate=9",           nullptr,                                   "Decode json failed: error at line :0 col :9 msg:not a valid quote string!"},
    {"garble=100000",        nullptr,                                   "Decode json failed: error at line :0 col :1038 msg:not a valid string!"},
    {"reboot",               "The remote host closed the connection",   nullptr},
    {"flood=100",            nullptr,                                   nullptr},
};
// clang-format on

QString statesWhileReady(const FaultRow &row)
{
    return row.loss ? QStringLiteral("Lost: %1 | Reading | Ready").arg(QLatin1String(row.loss))
                    : QString();
}

QString statesWhileReading(const FaultRow &row)
{
    if (row.loss)
        return QStringLiteral("Reading | ") + statesWhileReady(row);
    if (!row.failure)
        return QStringLiteral("Reading | Ready");
    return QStringLiteral("Reading | Reading: the details could not be read (%1) | Reading | Ready")
        .arg(QLatin1String(row.failure));
}

/// True if a request of the faulty exchange times out.
bool timesOut(const FaultRow &row)
{
    return QByteArray(row.failure).contains("did not answer in time")
        || QByteArray(row.loss).startsWith("it stopped");
}

SessionBench::Options optionsFor(bool isImpatient)
{
    SessionBench::Options options = SessionBench::fastOptions();
    if (isImpatient) { // and less than the keep-alive: only one of them notices the fault
        options.channel.maxRequestTime = 2s;
        options.channel.stalledAnswerTimeout = 500ms;
    }
    options.outcomeTime = 0ms; // the device is not asked
    return options;
}

} // namespace

class tst_FaultStates : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup() { m_bench.reset(); }

    void statesAfterEachFault_data();
    void statesAfterEachFault();
    void everyFaultHasARow();
    void deviceThatStopsAnsweringIsLost();

private:
    DeviceSession &wall() { return *m_bench->wall; }
    /// Waits until all faults have occurred, and the device is ready and answers again.
    bool settles()
    {
        const auto isSettled = [this] {
            return !m_bench->hasFaults() && wall().isReady()
                && resultOf(wall().call(&Control::Device::readDetails))
                && resultOf(wall().modelUpdate()) && wall().isReady();
        };
        return QTest::qWaitFor(isSettled, 60000);
    }

    std::unique_ptr<SessionBench> m_bench;
};

void tst_FaultStates::statesAfterEachFault_data()
{
    QTest::addColumn<bool>("isImpatient");
    QTest::addColumn<QString>("whileReady");
    QTest::addColumn<QString>("whileReading");
    for (const FaultRow &row : faultRows)
        QTest::newRow(row.fault) << timesOut(row) << statesWhileReady(row)
                                 << statesWhileReading(row);
}

void tst_FaultStates::statesAfterEachFault()
{
    QFETCH(bool, isImpatient);
    QFETCH(QString, whileReady);
    QFETCH(QString, whileReading);
    const QByteArray fault = QTest::currentDataTag() + QByteArray(",count=1,code=");
    m_bench = std::make_unique<SessionBench>(optionsFor(isImpatient));
    QVERIFY(m_bench->openReady());
    {
        FullLog log(wall());
        QVERIFY(m_bench->addFault((fault + "0x1107").constData()));
        resultOf(wall().call(&Control::Device::writeSwap, {1}));
        QVERIFY(settles());
        QCOMPARE(log.text(), whileReady);
    }
    FullLog log(wall());
    QVERIFY(m_bench->addFault((fault + "0x1100").constData()));
    wall().readAgain();
    QVERIFY(settles());
    QCOMPARE(log.text(), whileReading);
}

void tst_FaultStates::everyFaultHasARow()
{
    QSet<QString> rows{QStringLiteral("stop-reading")}; // see deviceThatStopsAnsweringIsLost
    for (const FaultRow &row : faultRows)
        rows << QString::fromLatin1(row.fault).section(QLatin1Char('='), 0, 0);
    const QStringList names = faultNames();
    QCOMPARE(rows, QSet<QString>(names.begin(), names.end()));
}

void tst_FaultStates::deviceThatStopsAnsweringIsLost()
{
    SessionBench::Options options = SessionBench::fastOptions();
    options.channel.keepAliveInterval = 1s;
    options.channel.keepAliveTimeout = 3s;
    m_bench = std::make_unique<SessionBench>(options);
    QVERIFY(m_bench->openReady());
    FullLog log(wall());
    QVERIFY(m_bench->addFault("stop-reading,code=0x1107,count=1"));
    wall().call(&Control::Device::writeSwap, {1});
    QVERIFY(settles());
    QCOMPARE(log.text(), QStringLiteral("Lost: it stopped answering | Reading | Ready"));
}

QTEST_GUILESS_MAIN(tst_FaultStates)
#include "tst_faultstates.moc"
