#include "scriptedsaver.h"

#include <support/tavorocontrol/requestpath.h>
#include <support/tavorocontrol/synchronised.h>
#include <tavorossproxy/devicemanager.h>

#include <QtTest>

#include <stdexcept>

using namespace Tavoro;

Q_DECLARE_METATYPE(ScriptedAnswer)

/// The model's saver is paused while a device is read, and resumes however the read ends.
class tst_SyncSavePause : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void saverPausesForTheWholeRun();
    void saverResumesAfterEveryEarlyEnd_data();
    void saverResumesAfterEveryEarlyEnd();
    void saverResumesAfterAnException();
    void unknownDeviceIsPassedOnAsEmpty();
    void saverIsNotCalledWithoutAWorkingDevice();
    void runWithoutSaverCompletes();
};

namespace {

QStringList pausedAround(const QStringList &between, const char *saved)
{
    return textLines({"saver: stop", "saver: wait"}) + between
        + textLines({"saver: resume", saved});
}

/// The journal's lines of the saver, and one line for everything between two of them.
QStringList saverLines(const Synchronised &it)
{
    QStringList lines;
    const QString work = QStringLiteral("work");
    for (const QString &line : it.journal.lines()) {
        if (line.startsWith(QLatin1String("saver: ")))
            lines << line;
        else if (lines.isEmpty() || lines.last() != work)
            lines << work;
    }
    return lines;
}

const QStringList work = textLines({"work"});

} // namespace

void tst_SyncSavePause::saverPausesForTheWholeRun()
{
    Synchronised it;
    const ScriptedSaver saver(it.journal);
    it.run();
    QCOMPARE(saverLines(it), pausedAround(work, "saver: save 192.0.2.7"));
}

void tst_SyncSavePause::saverResumesAfterEveryEarlyEnd_data()
{
    QTest::addColumn<quint16>("code");
    QTest::addColumn<ScriptedAnswer>("answer");

    QTest::newRow("device not read") << quint16(0x1100) << ScriptedAnswer::refusal(5);
    QTest::newRow("device not ready") << quint16(0x1100) << ScriptedAnswer::packet("{}");
    QTest::newRow("interfaces not read") << quint16(0x1200) << ScriptedAnswer::refusal(5);
}

void tst_SyncSavePause::saverResumesAfterEveryEarlyEnd()
{
    QFETCH(const quint16, code);
    QFETCH(const ScriptedAnswer, answer);
    Synchronised it;
    it.channel->reply(code, answer);
    const ScriptedSaver saver(it.journal);
    it.run();
    QCOMPARE(saverLines(it), pausedAround(work, "saver: save 192.0.2.7"));
}

void tst_SyncSavePause::saverResumesAfterAnException()
{
    Synchronised it;
    it.makeKnown();
    ScriptedAnswer answer;
    answer.before = [] {
        throw std::runtime_error("out of memory");
    };
    it.channel->reply(0x1300, answer);
    const ScriptedSaver saver(it.journal);
    QVERIFY(it.runThrows());
    QCOMPARE(saverLines(it), pausedAround(work, "saver: save 192.0.2.7"));
}

void tst_SyncSavePause::unknownDeviceIsPassedOnAsEmpty()
{
    Synchronised it;
    it.device.removeChannel();
    it.channel->info.ip.clear();
    SSProxy::DeviceManager::instance()->addDeviceChannel(it.channel);
    const ScriptedSaver saver(it.journal);
    QVERIFY(it.task.setDevice(QString(), it.mac(), it.sn()));
    it.task.run();
    QCOMPARE(saverLines(it), pausedAround(work, "saver: save nothing"));
}

void tst_SyncSavePause::saverIsNotCalledWithoutAWorkingDevice()
{
    Synchronised it;
    const ScriptedSaver saver(it.journal);
    it.task.run();
    QVERIFY(it.journal.lines().isEmpty());
}

void tst_SyncSavePause::runWithoutSaverCompletes()
{
    Synchronised it;
    it.run();
    QCOMPARE(saverLines(it), work);
    QVERIFY(it.listed());
}

QTEST_GUILESS_MAIN(tst_SyncSavePause)
#include "tst_syncsavepause.moc"
