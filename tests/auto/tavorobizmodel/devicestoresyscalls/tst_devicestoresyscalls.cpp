// Ends a save at each of its system calls, and lets each of them fail for lack of space. strace
// does both, call by call.

#include <support/common/tracedrun.h>
#include <support/tavorobizmodel/storedstates.h>

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace StoredStates;

namespace {

/// Runs in a child process: saves the new state over the old one, with a short retry interval.
int saveAsChild(const QString &fileName)
{
    const StoredModel model(fileName, 20);
    if (!model.isOpen)
        return 1;
    model.save(deviceIn(New));
    return 0;
}

} // namespace

class tst_DeviceStoreSyscalls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void saveKilledAtAnyCallLeavesAWholeState_data() { TracedRun::addRows(m_calls); }
    void saveKilledAtAnyCallLeavesAWholeState();
    void saveWithoutSpaceAtAnyCallIsTriedAgainOrLeavesTheOldState_data()
    {
        TracedRun::addRows(m_calls);
    }
    void saveWithoutSpaceAtAnyCallIsTriedAgainOrLeavesTheOldState();

private:
    struct Outcome : TracedRun::Result {
        State state = Mixed;
    };

    /// Saves over a new copy of the old state under strace with \a options.
    Outcome saved(const QStringList &options);
    State storedState() const;

    const QTemporaryDir m_folder;
    const QString m_old = m_folder.filePath(QStringLiteral("old.sqlite"));
    const QString m_file = m_folder.filePath(QStringLiteral("devices.sqlite"));
    TracedRun::Calls m_calls; ///< Those of an undisturbed save.
};

void tst_DeviceStoreSyscalls::initTestCase()
{
    {
        const StoredModel model(m_old);
        model.save(deviceIn(Old));
    }
    const QString log = m_folder.filePath(QStringLiteral("calls"));
    const Outcome outcome = saved(TracedRun::logTo(log));
    QCOMPARE(outcome.exitCode, 0);
    QCOMPARE(outcome.state, New);

    m_calls = TracedRun::callsIn(log);
    QVERIFY(m_calls.value("pwrite64") > 10);
    QVERIFY(m_calls.value("fdatasync") + m_calls.value("fsync") > 2);
}

void tst_DeviceStoreSyscalls::saveKilledAtAnyCallLeavesAWholeState()
{
    QFETCH(int, count);
    const QString call = QString::fromUtf8(QTest::currentDataTag());
    State last = Old;
    for (int number = 1; number <= count; ++number) {
        const Outcome outcome = saved(TracedRun::killAt(call, number));
        QVERIFY(outcome.isKilled);
        QVERIFY2(outcome.state != Mixed, qPrintable(QString::number(number)));
        QVERIFY(outcome.state >= last); // a save stays complete at every later call
        last = outcome.state;
    }
}

void tst_DeviceStoreSyscalls::saveWithoutSpaceAtAnyCallIsTriedAgainOrLeavesTheOldState()
{
    QFETCH(int, count);
    const QString call = QString::fromUtf8(QTest::currentDataTag());
    for (int number = 1; number <= count; ++number) {
        const Outcome outcome = saved(TracedRun::failWithoutSpaceAt(call, number));
        QVERIFY(!outcome.isKilled);
        QCOMPARE(outcome.state, outcome.exitCode == 0 ? New : Old);
    }
}

tst_DeviceStoreSyscalls::Outcome tst_DeviceStoreSyscalls::saved(const QStringList &options)
{
    QFile::remove(m_file);
    if (!QFile::copy(m_old, m_file))
        return {};
    QStringList filter;
    const QStringList ofTheStore{
        {}, QStringLiteral("-journal"), QStringLiteral("-wal"), QStringLiteral("-shm")};
    for (const QString &ending : ofTheStore)
        filter << QStringLiteral("-P") << m_file + ending;
    filter << QStringLiteral("-P") << m_folder.path();
    const TracedRun::Result result =
        TracedRun::run(filter + options, {QStringLiteral("--save"), m_file});
    return {result, storedState()};
}

State tst_DeviceStoreSyscalls::storedState() const
{
    const StoreSignals caught;
    const StoredModel model(m_file);
    QCoreApplication::processEvents();
    const auto device = model.onlyDevice();
    return model.isOpen && caught.quarantined.isEmpty() && device ? stateOf(*device) : Mixed;
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() == 3 && arguments[1] == QLatin1String("--save"))
        return saveAsChild(arguments[2]);
    tst_DeviceStoreSyscalls test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_devicestoresyscalls.moc"
