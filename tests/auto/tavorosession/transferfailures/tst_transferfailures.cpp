// Transfers that a session cannot carry out, that the device refuses, or whose connection is lost.

#include <support/tavorosession/devicelog.h>
#include <support/tavorosession/transfercalls.h>

#include <tavorossproxy/controlaction.h>

#include <QFile>
#include <QProcess>

using namespace Tavoro;

class tst_TransferFailures : public QObject, private TransferCalls {
    Q_OBJECT

private Q_SLOTS:
    void init() { openDevice(); }
    void cleanup() { m_bench.reset(); }

    void contentThatCannotBeReadIsNotSent_data();
    void contentThatCannotBeReadIsNotSent();
    void targetThatCannotBeWrittenGetsNothing();
    void fullDiskEndsAFetch();
    void refusalOfASendNamesTheHolder();
    void missingFileIsRefused();
    void connectionLostWithinASendLeavesTheOldFile();
    void lostAnswerToTheAnnouncementIsNotSent();
    void lostLastAnswerIsResolvedByTheDevice();
};

void tst_TransferFailures::contentThatCannotBeReadIsNotSent_data()
{
    QTest::addColumn<int>("fault");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no such file")
        << 0 << QStringLiteral("the content could not be read (No such file or directory)");
    QTest::newRow("length is not known")
        << 1 << QStringLiteral("the length of the content is not known");
    QTest::newRow("ID") << 2 << QStringLiteral("type and ID of a file are 0 to 254");
}

void tst_TransferFailures::contentThatCannotBeReadIsNotSent()
{
    QFETCH(int, fault);
    QFETCH(QString, reason);
    DeviceLog log;
    const auto process = std::make_shared<QProcess>();
    process->start(QStringLiteral("true"), QStringList());
    QVERIFY(process->waitForStarted());
    const auto transfer = fault == 0 ? files().sendFrom(fileInfo(), path("missing"))
        : fault == 1                 ? files().send(fileInfo(), process)
                                     : files().send(fileInfo(255), content());
    const Outcome outcome = resultOf(transfer);
    QCOMPARE(int(outcome.kind()), int(Outcome::NotSent));
    QCOMPARE(outcome.reason(), reason);
    QVERIFY(!outcome.isCanceled());
    QVERIFY(!log.codes().contains(QStringLiteral("FA03")));
}

void tst_TransferFailures::targetThatCannotBeWrittenGetsNothing()
{
    DeviceLog log;
    const Outcome outcome = resultOf(files().fetchTo(fileInfo(), path("missing/target")));
    QCOMPARE(int(outcome.kind()), int(Outcome::NotSent));
    QVERIFY2(outcome.reason().startsWith(QLatin1String("the content could not be written (")),
             qPrintable(outcome.reason()));
    QVERIFY(!log.codes().contains(QStringLiteral("FA04")));
}

void tst_TransferFailures::fullDiskEndsAFetch()
{
    if (!QFile::exists(QStringLiteral("/dev/full")))
        QSKIP("the system has no device that is always full");
    QVERIFY(resultOf(files().send(fileInfo(), content())));
    const auto full = std::make_shared<QFile>(QStringLiteral("/dev/full"));
    const Outcome outcome = resultOf(files().fetch(fileInfo(), full));
    QCOMPARE(int(outcome.kind()), int(Outcome::NotSent));
    QCOMPARE(outcome.reason(),
             QStringLiteral("the content could not be written (No space left on device)"));
}

void tst_TransferFailures::refusalOfASendNamesTheHolder()
{
    TcpConnection other(m_bench->running->simulator->port());
    QString error;
    QVERIFY(other.channel->requestControl(SSProxy::ControlAction::Take, error));
    const Outcome outcome = resultOf(files().send(fileInfo(), content()));
    QCOMPARE(int(outcome.kind()), int(Outcome::Refused));
    QVERIFY2(outcome.reason().startsWith(QLatin1String("the device is controlled by 127.0.0.1:")),
             qPrintable(outcome.reason()));
}

void tst_TransferFailures::missingFileIsRefused()
{
    const auto answer = resultOf(files().fetch({200, 2}));
    QCOMPARE(int(answer.kind()), int(Outcome::Refused));
    QCOMPARE(answer.text(),
             QStringLiteral("wall 1: file export information was refused: the device does not have "
                            "this object."));
}

void tst_TransferFailures::connectionLostWithinASendLeavesTheOldFile()
{
    QVERIFY(resultOf(files().send(fileInfo(), content('a'))));
    QVERIFY(m_bench->addFault("drop-before,code=0xFA03,skip=5,count=1"));
    const Outcome outcome = resultOf(files().send(fileInfo(), content('b')));
    QCOMPARE(int(outcome.kind()), int(Outcome::NotSent));
    QCOMPARE(outcome.reason(),
             QStringLiteral("the connection was lost before the last packet was sent"));
    QTRY_VERIFY(wall().isReady());
    QVERIFY(onDevice() == content('a'));
}

void tst_TransferFailures::lostAnswerToTheAnnouncementIsNotSent()
{
    QVERIFY(m_bench->addFault("drop-before,code=0xFA03,count=1"));
    const Outcome outcome = resultOf(files().send(fileInfo(), content()));
    QCOMPARE(int(outcome.kind()), int(Outcome::NotSent));
    QVERIFY(!outcome.reason().isEmpty());
}

void tst_TransferFailures::lostLastAnswerIsResolvedByTheDevice()
{
    const auto fault = QStringLiteral("drop-before,code=0xFA03,skip=%1,count=1").arg(packets);
    QVERIFY(m_bench->addFault(qPrintable(fault)));
    const Outcome outcome = resultOf(files().send(fileInfo(), content()));
    QVERIFY2(outcome, qPrintable(outcome.text()));
    QTRY_VERIFY(wall().isReady());
    QVERIFY(onDevice() == content());
}

QTEST_GUILESS_MAIN(tst_TransferFailures)
#include "tst_transferfailures.moc"
