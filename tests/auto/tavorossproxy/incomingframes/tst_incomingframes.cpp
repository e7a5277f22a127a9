#include <tavorossproxy/channel/incomingframes_p.h>

#include <tavorowire/frame.h>
#include <tavorowire/linkcommands.h>

#include <QTest>

#include <memory>
#include <string>
#include <vector>

using namespace Tavoro::SSProxy;
using namespace Tavoro::SSProxy::Internal;

namespace {

std::string frame(Wire::FrameKind kind, const std::string &body, const Wire::WireHead &before = {})
{
    Wire::WireHead head = before;
    head.kind = static_cast<quint8>(kind);
    return Wire::encodeFrame(head, body).toStdString();
}

std::string answer(const std::string &body)
{
    return frame(Wire::FrameKind::Response, body);
}

std::string report(const std::string &body)
{
    return frame(Wire::FrameKind::Report, body);
}

} // namespace

class tst_IncomingFrames : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void answersAreCompletedAtOnce();
    void reportsWait();
    void answersAfterAReportWaitUntilItWasHandled();
    void answersAboutControlWait();
    void invalidFramesWait();
    void answersWaitUntilTheyMayBeCompleted();
    void partOfAFrameIsDescribed();
    void clearedFramesAreGone();

private:
    IncomingFrames::Batch receive(const std::string &bytes) { return m_frames->receive(bytes); }
    /// The body of the next waiting frame; "none" without one.
    std::string next();

    std::vector<std::string> m_completed;
    std::unique_ptr<IncomingFrames> m_frames;
};

void tst_IncomingFrames::init()
{
    m_completed.clear();
    m_frames = std::make_unique<IncomingFrames>(
        1024, [this](Wire::FrameEvent &&event) { m_completed.push_back(event.body); });
    m_frames->setCompletesAnswers(true);
}

std::string tst_IncomingFrames::next()
{
    const auto event = m_frames->next();
    return event ? event->body : "none";
}

void tst_IncomingFrames::answersAreCompletedAtOnce()
{
    const auto batch = receive(answer("one") + answer("two"));
    QVERIFY(!batch.hasWaiting);
    QCOMPARE(m_completed, (std::vector<std::string>{"one", "two"}));
    QCOMPARE(next(), std::string("none"));
}

void tst_IncomingFrames::reportsWait()
{
    QVERIFY(receive(answer("one") + report("two")).hasWaiting);
    QCOMPARE(m_completed, std::vector<std::string>{"one"});
    QCOMPARE(next(), std::string("two"));
}

void tst_IncomingFrames::answersAfterAReportWaitUntilItWasHandled()
{
    receive(report("one"));
    receive(answer("two"));
    QCOMPARE(next(), std::string("one"));
    m_frames->handled();
    QCOMPARE(next(), std::string("two"));
    receive(answer("three"));
    m_frames->handled();
    QVERIFY(m_completed.empty());
    QCOMPARE(next(), std::string("three"));
    m_frames->handled();
    receive(answer("four"));
    QCOMPARE(m_completed, std::vector<std::string>{"four"});
}

void tst_IncomingFrames::answersAboutControlWait()
{
    Wire::WireHead head;
    setCode(head, Wire::LinkCommand::Control);
    receive(frame(Wire::FrameKind::Response, "holder", head));
    QVERIFY(m_completed.empty());
    QCOMPARE(next(), std::string("holder"));
}

void tst_IncomingFrames::invalidFramesWait()
{
    std::string damaged = answer("body");
    damaged.back() = 'X';
    receive(damaged);
    QVERIFY(m_completed.empty());
    QCOMPARE(m_frames->next()->status, quint16(361));
}

void tst_IncomingFrames::answersWaitUntilTheyMayBeCompleted()
{
    m_frames->setCompletesAnswers(false);
    receive(answer("early"));
    QVERIFY(m_completed.empty());
    QCOMPARE(next(), std::string("early"));
}

void tst_IncomingFrames::partOfAFrameIsDescribed()
{
    const std::string bytes = answer("body");
    auto batch = receive(bytes.substr(0, 20));
    QVERIFY(batch.isWithinFrame && !batch.isSameFrame && !batch.unfinished);
    batch = receive(bytes.substr(20, 22));
    QVERIFY(batch.isWithinFrame && batch.isSameFrame && batch.unfinished);
    batch = receive(bytes.substr(42));
    QVERIFY(!batch.isWithinFrame && !batch.isSameFrame && !batch.unfinished);
    QCOMPARE(m_completed, std::vector<std::string>{"body"});
}

void tst_IncomingFrames::clearedFramesAreGone()
{
    receive(report("one") + answer("two").substr(0, 10));
    m_frames->clear();
    QCOMPARE(next(), std::string("none"));
    receive(answer("three"));
    QVERIFY(m_completed.empty()); // not before the next connection is ready
    QCOMPARE(next(), std::string("three"));
}

QTEST_APPLESS_MAIN(tst_IncomingFrames)
#include "tst_incomingframes.moc"
