// docs/guide.md, followed as a reader would: the files are made step by step, each step is built
// and run with a simulated device, and the window of the last step is operated.

#include "guidesteps.h"

#include <support/common/filecontent.h>
#include <support/examples/examplebench.h>
#include <support/tavorosession/devicelog.h>

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace {

constexpr int patience = 1800000; ///< Milliseconds; a machine under load compiles slowly.

/// What the page calls /opt/tavoro is the build folder, with the compiler and flags of this build.
QProcessEnvironment buildEnvironment(const QString &home)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("CMAKE_GENERATOR"), QStringLiteral("Ninja"));
    environment.insert(QStringLiteral("CXX"), QStringLiteral(COMPILER));
    environment.insert(QStringLiteral("CMAKE_CXX_COMPILER_LAUNCHER"), QStringLiteral(LAUNCHER));
    environment.insert(QStringLiteral("CXXFLAGS"),
                       QStringLiteral("-Wall -Wextra -Werror " COMPILER_FLAGS));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    environment.insert(QStringLiteral("HOME"), home);
    environment.insert(QStringLiteral("XDG_RUNTIME_DIR"), home);
    environment.remove(QStringLiteral("XDG_DATA_HOME"));
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("fast_unwind_on_malloc=0"));
    environment.insert(QStringLiteral("LSAN_OPTIONS"),
                       QStringLiteral("suppressions=" TESTS_FOLDER "/lsan.supp"));
    return environment;
}

} // namespace

class tst_Guide : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void eachStepBuildsAndReadsTheDevice_data();
    void eachStepBuildsAndReadsTheDevice();
    void windowOfTheLastStepIsOperated();

private:
    QByteArray failureOf(const QString &command) const;
    void readTheDevice(const QString &command) const;

    const QDir m_folder{QStringLiteral(WORK_FOLDER)}; ///< The same in each run, for ccache.
    const QTemporaryDir m_home;
    GuidePage m_page;
};

/// The page for the version of Qt of this build.
void tst_Guide::initTestCase()
{
    QString page = QString::fromUtf8(contentOf(QStringLiteral(PAGE)));
    QVERIFY(page.contains(QStringLiteral("write `TavoroControlQt6` instead of `TavoroControl`, "
                                         "and `Qt6` instead of `Qt5`")));
    page.replace(QStringLiteral("/opt/tavoro"), QStringLiteral(BUILD_FOLDER));
#if QT_VERSION_MAJOR == 6
    page.replace(QStringLiteral("(TavoroControl "), QStringLiteral("(TavoroControlQt6 "));
    page.replace(QStringLiteral("Qt5"), QStringLiteral("Qt6"));
#endif
    QVERIFY(QDir(m_folder).removeRecursively());
    QVERIFY(m_folder.mkpath(QStringLiteral(".")));
    m_page = GuidePage::parse(page);
    QCOMPARE(m_page.faults, QStringList());
    QCOMPARE(m_page.commands.size(), 4);
}

/// Runs a command in the folder of the reader. Returns what it printed if it fails.
QByteArray tst_Guide::failureOf(const QString &command) const
{
    QProcess shell;
    shell.setProcessEnvironment(buildEnvironment(m_home.path()));
    shell.setProcessChannelMode(QProcess::MergedChannels);
    shell.setWorkingDirectory(m_folder.path());
    shell.start(QStringLiteral("sh"), {QStringLiteral("-c"), command});
    const bool hasEnded = shell.waitForFinished(patience);
    constexpr int shownByQtTest = 800; // it cuts longer messages
    return hasEnded && shell.exitCode() == 0 ? QByteArray()
                                             : "Failed: " + shell.readAll().right(shownByQtTest);
}

/// Runs the program until it has read the list of files, which comes last.
void tst_Guide::readTheDevice(const QString &command) const
{
    const DeviceLog log;
    const ExampleBench bench;
    QProcess program;
    program.setProcessEnvironment(buildEnvironment(m_home.path()));
    program.setWorkingDirectory(m_folder.path());
    program.start(QStringLiteral("sh"),
                  {QStringLiteral("-c"),
                   QStringLiteral("QT_LOGGING_RULES=\"tavoro.*=false\" exec ")
                       + command.section(QLatin1Char(' '), 1) + QLatin1Char(' ') + bench.port()});
    QTRY_VERIFY_WITH_TIMEOUT(log.codes().contains(QStringLiteral("FA00")), 120000);
    QCOMPARE(program.state(), QProcess::Running);
    QByteArray errors = program.readAllStandardError();
    errors.replace("This plugin does not support propagateSizeHints()\n", ""); // Qt's off screen
    QCOMPARE(errors, QByteArray());
    program.kill();
    QVERIFY(program.waitForFinished());
}

void tst_Guide::eachStepBuildsAndReadsTheDevice_data()
{
    QTest::addColumn<int>("step");
    for (const int step : m_page.steps())
        QTest::newRow(qPrintable(QString::number(step))) << step;
    QCOMPARE(m_page.steps(), (QVector<int>{1, 2, 3, 4, 5, 6}));
}

void tst_Guide::eachStepBuildsAndReadsTheDevice()
{
    QFETCH(int, step);
    QCOMPARE(m_page.type(step, m_folder), QString());
    const QStringList &commands = m_page.commands; // device, configure, build, run
    for (const QString &command : {commands[1], commands[2]}) {
        const QByteArray failure = failureOf(command);
        QVERIFY2(failure.isEmpty(), failure);
    }
    readTheDevice(commands[3]);
}

void tst_Guide::windowOfTheLastStepIsOperated()
{
    const QStringList commands{
        QStringLiteral("cmake -S " SOURCE_FOLDER "/windowtest -B windowtest -DHALL=" WORK_FOLDER
                       " -DQT=" QT " -DTESTS=" TESTS_FOLDER " -DCMAKE_PREFIX_PATH=" BUILD_FOLDER),
        QStringLiteral("cmake --build windowtest"),
        QStringLiteral("QT_LOGGING_RULES=\"tavoro.*=false\" windowtest/windowtest " TAVOROSIM)};
    for (const QString &command : commands) {
        const QByteArray failure = failureOf(command);
        QVERIFY2(failure.isEmpty(), failure);
    }
}

QTEST_GUILESS_MAIN(tst_Guide)
#include "tst_guide.moc"
