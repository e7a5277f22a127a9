// Ends a change of the folder at each system call that changes a file, and lets each of these calls
// fail for lack of space. strace does both, call by call.

#include <support/common/tracedrun.h>
#include <tavorosim/state/filestore.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using Tavoro::ProtoModel::File::s_FileDetail;
using Tavoro::Sim::FileChanges;
using Tavoro::Sim::FileStore;

namespace {

bool put(FileStore &store, FileChanges &changes, qint32 id, std::string_view content)
{
    s_FileDetail detail;
    detail.fileType = 2;
    detail.fileId = id;
    return store.put(changes, detail, content);
}

/// Stores the files 1 and 2.
bool makeOld(const QString &folder)
{
    FileStore store;
    QString error;
    if (!store.open(folder, error))
        return false;
    FileChanges changes = store.change();
    return put(store, changes, 1, "old") && put(store, changes, 2, "gone")
        && store.commit(changes, QByteArray("old setup"));
}

/// Runs in a child process: replaces file 1, removes file 2, adds file 3, saves another setup.
int changeAsChild(const QString &folder)
{
    FileStore store;
    QString error;
    if (!store.open(folder, error))
        return 2;
    FileChanges changes = store.change();
    changes.remove({2, 2});
    const bool done = put(store, changes, 1, "replaced") && put(store, changes, 3, "added")
        && store.commit(changes, QByteArray("new setup"));
    return done ? 0 : 1;
}

/// The files in \a folder with their contents, and the setup.
QString stateOf(const QString &folder)
{
    FileStore store;
    QString error;
    std::optional<QByteArray> setup;
    if (!store.open(folder, error) || !store.readSetup(setup, error))
        return error;
    QString state;
    for (const auto &[key, file] : store.index())
        state += QStringLiteral("%1=%2 ")
                     .arg(key.second)
                     .arg(QString::fromUtf8(store.content(file)->readAll()));
    return state + QString::fromUtf8(setup.value_or(QByteArray()));
}

const QString oldState = QStringLiteral("1=old 2=gone old setup");
const QString newState = QStringLiteral("1=replaced 3=added new setup");
const QString changingCalls =
    QStringLiteral("pwrite64,write,fsync,fdatasync,ftruncate,unlink,rename,renameat2,link,linkat");

} // namespace

class tst_TavoroSimFolderCalls : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void deviceKilledAtAnyCallHasTheFilesBeforeOrAfterTheCommand_data()
    {
        TracedRun::addRows(m_calls);
    }
    void deviceKilledAtAnyCallHasTheFilesBeforeOrAfterTheCommand();
    void deviceWithoutSpaceAtAnyCallRefusesTheCommandOrCarriesItOut_data()
    {
        TracedRun::addRows(m_calls);
    }
    void deviceWithoutSpaceAtAnyCallRefusesTheCommandOrCarriesItOut();

private:
    struct Outcome : TracedRun::Result {
        QString state;
    };

    /// Changes a copy of the old folder under strace with \a options.
    Outcome changed(const QStringList &options) const;

    const QTemporaryDir m_old;
    TracedRun::Calls m_calls; ///< Those of an undisturbed change.
};

void tst_TavoroSimFolderCalls::initTestCase()
{
    QVERIFY(makeOld(m_old.path()));
    QCOMPARE(stateOf(m_old.path()), oldState);
    QTemporaryDir logs;
    const QString log = logs.filePath(QStringLiteral("calls"));
    const Outcome outcome = changed(TracedRun::logTo(log));
    QCOMPARE(outcome.exitCode, 0);
    QCOMPARE(outcome.state, newState);

    m_calls = TracedRun::callsIn(log);
    QVERIFY(m_calls.value("pwrite64") > 3);
    QVERIFY(m_calls.value("fdatasync") + m_calls.value("fsync") > 3);
}

void tst_TavoroSimFolderCalls::deviceKilledAtAnyCallHasTheFilesBeforeOrAfterTheCommand()
{
    QFETCH(int, count);
    const QString call = QString::fromUtf8(QTest::currentDataTag());
    bool isDone = false; // once complete, the command is complete at every later call
    for (int number = 1; number <= count; ++number) {
        const Outcome outcome = changed(TracedRun::killAt(call, number));
        QVERIFY(outcome.isKilled);
        isDone = isDone || outcome.state == newState;
        QCOMPARE(outcome.state, isDone ? newState : oldState);
    }
}

void tst_TavoroSimFolderCalls::deviceWithoutSpaceAtAnyCallRefusesTheCommandOrCarriesItOut()
{
    QFETCH(int, count);
    const QString call = QString::fromUtf8(QTest::currentDataTag());
    const bool isSync = call.contains(QLatin1String("sync"));
    for (int number = 1; number <= count; ++number) {
        const Outcome outcome = changed(TracedRun::failWithoutSpaceAt(call, number));
        QVERIFY(!outcome.isKilled);
        // After a failed sync the change may be on the disk or not.
        if (outcome.exitCode == 0 || (isSync && outcome.state != oldState))
            QCOMPARE(outcome.state, newState);
        else
            QCOMPARE(outcome.state, oldState);
    }
}

tst_TavoroSimFolderCalls::Outcome
tst_TavoroSimFolderCalls::changed(const QStringList &options) const
{
    const QTemporaryDir folder;
    for (const QString &name : QDir(m_old.path()).entryList(QDir::Files)) {
        if (!QFile::copy(m_old.filePath(name), folder.filePath(name)))
            return {};
    }
    const QStringList filter{QStringLiteral("-e"), QStringLiteral("trace=") + changingCalls};
    const TracedRun::Result result =
        TracedRun::run(filter + options, {QStringLiteral("--change"), folder.path()});
    return {result, stateOf(folder.path())};
}

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() == 3 && arguments[1] == QLatin1String("--change"))
        return changeAsChild(arguments[2]);
    tst_TavoroSimFolderCalls test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_tavorosimfoldercalls.moc"
