// Contents of files that a session sends and fetches: progress, cancelling, and what the device
// holds afterwards.

#include <support/tavorosession/transfercalls.h>

#include <tavorobizmodel/file.h>
#include <tavorocontrol/device.h>
#include <tavorossproxy/controlaction.h>

#include <QBuffer>
#include <QElapsedTimer>
#include <QFile>
#include <QSignalSpy>
#include <QThread>
#include <QTimer>

#include <atomic>

using namespace Tavoro;
using namespace std::chrono_literals;

namespace {

/// A content that counts when it is destroyed on another thread than its own.
class WatchedBuffer : public QBuffer {
public:
    explicit WatchedBuffer(std::atomic<int> &elsewhere) : m_elsewhere(elsewhere) { }
    ~WatchedBuffer() override
    {
        if (QThread::currentThread() != thread())
            ++m_elsewhere;
    }

private:
    std::atomic<int> &m_elsewhere;
};

std::string contentAt(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "no file";
}

} // namespace

class tst_Transfers : public QObject, private TransferCalls {
    Q_OBJECT

private Q_SLOTS:
    void init() { openDevice(); }
    void cleanup() { m_bench.reset(); }

    void contentIsTheSameAfterBothWays_data();
    void contentIsTheSameAfterBothWays();
    void emptyContentIsTransferred();
    void sentFileIsInTheModel();
    void progressGrowsToTheTotalBeforeTheResult();
    void takeDoesNotWaitForATransfer();
    void transfersAreCarriedOutOneAfterTheOther();
    void waitingTransferIsCancelledAtOnce();
    void cancelledSendKeepsTheOldFile();
    void cancelledFetchKeepsTheOldTarget();
    void cancellingAnEndedTransferChangesNothing();
    void fetchNeedsNoControl();
    void closedSessionEndsItsTransfers();
    void contentIsDestroyedOnTheSessionsThread();

private:
    void writeFile(const QString &path, const std::string &bytes) const
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes.data(), qint64(bytes.size()));
    }
    /// The device answers the \a former requests of a transfer, and holds its next answer.
    void holdSecondPacket(const char *code, int former)
    {
        const auto rule = QStringLiteral("hold,code=%1,skip=%2,count=1");
        QVERIFY(m_bench->addFault(qPrintable(rule.arg(QLatin1String(code)).arg(former))));
    }
};

void tst_Transfers::contentIsTheSameAfterBothWays_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("memory") << 0;
    QTest::newRow("device of Qt") << 1;
    QTest::newRow("path") << 2;
}

void tst_Transfers::contentIsTheSameAfterBothWays()
{
    QFETCH(int, way);
    const auto buffer = std::make_shared<QBuffer>();
    buffer->setData(QByteArray::fromStdString(content()));
    writeFile(path("source"), content());
    const auto sent = way == 0 ? files().send(fileInfo(), content())
        : way == 1             ? files().send(fileInfo(), buffer)
                               : files().sendFrom(fileInfo(), path("source"));
    QVERIFY2(resultOf(sent), qPrintable(resultOf(sent).text()));

    std::string fetched;
    if (way == 0) {
        fetched = onDevice();
    } else if (way == 1) {
        const auto target = std::make_shared<QBuffer>();
        QVERIFY(resultOf(files().fetch(fileInfo(), target)));
        fetched = target->data().toStdString();
    } else {
        QVERIFY(resultOf(files().fetchTo(fileInfo(), path("target"))));
        fetched = contentAt(path("target"));
    }
    QVERIFY(fetched == content());
}

void tst_Transfers::emptyContentIsTransferred()
{
    QVERIFY(resultOf(files().send(fileInfo(), std::string())));
    const auto answer = resultOf(files().fetch(fileInfo()));
    QVERIFY2(answer, qPrintable(answer.text()));
    QCOMPARE(answer.record(), std::string());
}

void tst_Transfers::sentFileIsInTheModel()
{
    QVERIFY(resultOf(files().send(fileInfo(), content())));
    QVERIFY(resultOf(wall().modelUpdate()));
    const auto file = wall().device()->findFile(BizModel::Enum::File::Logo, 7).lock();
    QVERIFY(file);
    QCOMPARE(file->listEntry().general.name, std::string("picture"));
    QCOMPARE(file->listEntry().size.length, qint32(content().size()));
}

/// The device answers a packet at most every 20 ms, and only while this thread runs: so the
/// progress is reported several times, however busy the machine is.
void tst_Transfers::progressGrowsToTheTotalBeforeTheResult()
{
    QVERIFY(m_bench->addFault("hold,code=0xFA03"));
    QVERIFY(m_bench->addFault("hold,code=0xFA04"));
    QTimer answers;
    connect(&answers, &QTimer::timeout, &answers, [this] { m_bench->releaseAnswers(); });
    answers.start(20);
    const auto total = qint64(content().size());
    const auto follow = [&](const auto &transfer) {
        QElapsedTimer time;
        time.start();
        QList<TransferProgress> seen;
        bool hasEnded = false;
        transfer.onProgress(this, [&](const TransferProgress &now) {
            QVERIFY(!hasEnded);
            seen << now;
        });
        transfer.then(this, [&](const Outcome &outcome) {
            QVERIFY(outcome);
            hasEnded = true;
        });
        QTRY_VERIFY(hasEnded);
        const qint64 most = time.elapsed() / 95 + 2; // ten per second, and the last one
        QVERIFY2(seen.size() >= 3 && seen.size() <= most, qPrintable(QString::number(seen.size())));
        qint64 done = 0;
        for (const TransferProgress &each : qAsConst(seen)) {
            QVERIFY(each.done >= done);
            QVERIFY(each.rate >= 0);
            done = each.done;
        }
        QCOMPARE(seen.last().done, total);
        QCOMPARE(seen.last().total, total);
        QCOMPARE(seen.last().share(), 1.0);
        QVERIFY(seen.last().rate > 0);
        QCOMPARE(transfer.progress().done, total);
    };
    follow(files().send(fileInfo(), content()));
    follow(files().fetch(fileInfo()));
}

void tst_Transfers::takeDoesNotWaitForATransfer()
{
    holdSecondPacket("0xFA03", 2);
    const auto transfer = files().send(fileInfo(), content());
    QTRY_VERIFY(!m_bench->hasFaults());
    QVERIFY(resultOf(wall().call(&Control::Device::writeSwap, {1})));
    QVERIFY(!transfer.future().isFinished());
    transfer.cancel();
    QVERIFY(m_bench->releaseAnswers());
    QVERIFY(resultOf(transfer).isCanceled());
}

void tst_Transfers::transfersAreCarriedOutOneAfterTheOther()
{
    QStringList ended;
    for (qint32 id = 1; id <= 3; ++id)
        files().send(fileInfo(id), content(char(id))).then(this, [&ended, id](const Outcome &o) {
            ended << QStringLiteral("%1 %2").arg(id).arg(int(o.kind()));
        });
    QTRY_COMPARE(ended.join(QLatin1Char(',')), QStringLiteral("1 0,2 0,3 0"));
    for (qint32 id = 1; id <= 3; ++id)
        QVERIFY(onDevice(id) == content(char(id)));
}

void tst_Transfers::waitingTransferIsCancelledAtOnce()
{
    QVERIFY(m_bench->addFault("hold,code=0xFA03,count=1"));
    const auto first = files().send(fileInfo(1), content());
    const auto waiting = files().send(fileInfo(2), content());
    QSignalSpy finished(&wall(), &DeviceSession::callFinished);
    waiting.cancel();
    QVERIFY(waiting.future().isFinished());
    const Outcome outcome = waiting.future().result();
    QCOMPARE(int(outcome.kind()), int(Outcome::NotSent));
    QVERIFY(outcome.isCanceled());
    QCOMPARE(outcome.text(), QStringLiteral("wall 1: file import information was cancelled."));
    QCOMPARE(finished.size(), 1);
    QTRY_VERIFY(!m_bench->hasFaults()); // the first one does not wait any more
    first.cancel();
    QVERIFY(m_bench->releaseAnswers());
    QVERIFY(resultOf(first).isCanceled());
}

void tst_Transfers::cancelledSendKeepsTheOldFile()
{
    QVERIFY(resultOf(files().send(fileInfo(), content('a'))));
    holdSecondPacket("0xFA03", 2);
    const auto transfer = files().send(fileInfo(), content('b'));
    QTRY_VERIFY(!m_bench->hasFaults());
    QVERIFY(transfer.progress().done > 0);
    transfer.cancel();
    QVERIFY(m_bench->releaseAnswers());
    const Outcome outcome = resultOf(transfer);
    QCOMPARE(int(outcome.kind()), int(Outcome::NotSent));
    QVERIFY(outcome.isCanceled());
    QVERIFY(transfer.progress().done < qint64(content().size()));
    QVERIFY(onDevice() == content('a'));
    QVERIFY(resultOf(files().send(fileInfo(), content('c'))));
    QVERIFY(onDevice() == content('c'));
}

void tst_Transfers::cancelledFetchKeepsTheOldTarget()
{
    QVERIFY(resultOf(files().send(fileInfo(), content())));
    writeFile(path("target"), "old");
    holdSecondPacket("0xFA04", 1);
    const auto transfer = files().fetchTo(fileInfo(), path("target"));
    QTRY_VERIFY(!m_bench->hasFaults());
    QVERIFY(transfer.progress().done > 0);
    transfer.cancel();
    QVERIFY(m_bench->releaseAnswers());
    QVERIFY(resultOf(transfer).isCanceled());
    QCOMPARE(contentAt(path("target")), std::string("old"));
}

void tst_Transfers::cancellingAnEndedTransferChangesNothing()
{
    const auto transfer = files().send(fileInfo(), content());
    QVERIFY(resultOf(transfer));
    transfer.cancel();
    QVERIFY(resultOf(transfer));
    QVERIFY(!resultOf(transfer).isCanceled());
}

void tst_Transfers::fetchNeedsNoControl()
{
    QVERIFY(resultOf(files().send(fileInfo(), content())));
    QVERIFY(resultOf(wall().releaseControl()));
    TcpConnection other(m_bench->running->simulator->port());
    QString error;
    QVERIFY(other.channel->requestControl(SSProxy::ControlAction::Take, error));
    QTRY_VERIFY(wall().isControlledByOthers());
    QVERIFY(onDevice() == content());
}

void tst_Transfers::closedSessionEndsItsTransfers()
{
    holdSecondPacket("0xFA03", 2);
    const auto underWay = files().send(fileInfo(1), content());
    const auto waiting = files().send(fileInfo(2), content());
    QTRY_VERIFY(!m_bench->hasFaults());
    QVERIFY(underWay.progress().done > 0);
    m_bench->session.reset();
    QVERIFY(underWay.future().isFinished());
    QVERIFY(waiting.future().isFinished());
    QCOMPARE(int(waiting.future().result().kind()), int(Outcome::NotSent));
    underWay.cancel(); // without effect
    QVERIFY(!underWay.future().result());
}

/// Many transfers, since the threads race for the last reference: none of them sends anything.
void tst_Transfers::contentIsDestroyedOnTheSessionsThread()
{
    constexpr int transfers = 3000;
    std::atomic<int> elsewhere{0};
    for (int i = 0; i < transfers; ++i) {
        const auto content =
            files().send(fileInfo(255), std::make_shared<WatchedBuffer>(elsewhere));
        while (!content.future().isFinished())
            QCoreApplication::processEvents();
    }
    QCOMPARE(elsewhere.load(), 0);
}

QTEST_GUILESS_MAIN(tst_Transfers)
#include "tst_transfers.moc"
