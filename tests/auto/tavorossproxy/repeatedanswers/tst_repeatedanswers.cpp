// A device repeats an old answer under a tag that is in use again: no outcome changes.

#include <tavorowire/frame.h>

#include <support/tavorossproxy/channeltest.h>

#include <QTest>

using namespace Tavoro::SSProxy;
using namespace std::chrono_literals;

namespace {

constexpr int tagCount = 255;

using Response = std::shared_ptr<DeviceResponseCommand>;
using Request = std::shared_ptr<DeviceRequestCommand>;
/// Makes the request with this index.
using MakeRequest = Request (*)(quint32 index);

Request requestOn(quint16 stream, CommandType type, const std::string &body = {})
{
    Wire::WireHead head;
    head.stream = stream;
    head.type = static_cast<quint8>(type);
    head.BC = 0x11;
    auto request = std::make_shared<DeviceRequestCommand>();
    request->head() = Wire::packetHead(head);
    request->body() = body;
    request->setTimeout(20000);
    return request;
}

/// The last packet of a split write, whose answer is its outcome. The channel chooses its stream by
/// the calling thread.
Request splitWrite(quint32 /*index*/)
{
    auto request = requestOn(0, CommandType::Write, "rest of the body");
    request->head().totalCount = 2;
    request->head().sendCount = 1;
    return request;
}

/// The packets of one long answer.
Request furtherPacket(quint32 index)
{
    auto request = requestOn(7, CommandType::BinaryRead);
    request->head().totalCount = 1000;
    request->head().sendCount = index + 1;
    return request;
}

Request readOnOneStream(quint32 /*index*/)
{
    return requestOn(7, CommandType::Read);
}

Request writeOnOneStream(quint32 /*index*/)
{
    return requestOn(7, CommandType::Write, "{}");
}

Request read(quint32 /*index*/)
{
    return requestOn(0, CommandType::Read);
}

Request write(quint32 /*index*/)
{
    return requestOn(0, CommandType::Write, "{}");
}

/// Sends requests from a thread of its own, each after the response to the one before.
class Caller {
public:
    Caller(ManualLoop &loop, std::shared_ptr<DeviceChannel> channel, MakeRequest makeRequest,
           quint32 count)
        : m_loop(loop), m_thread([this, channel = std::move(channel), makeRequest, count] {
              for (quint32 i = 0; i < count; ++i)
                  m_responses.push_back(channel->sendSyncRequest(makeRequest(i)));
              m_isDone = true;
              m_loop.wake();
          })
    { }
    ~Caller()
    {
        if (!m_isDone)
            m_loop.end(); // the test has failed
        m_thread.join();
    }

    /// Runs the loop until all responses have arrived.
    const std::vector<Response> &responses()
    {
        if (!m_loop.runUntil([this] { return m_isDone.load(); }))
            qFatal("no response");
        return m_responses;
    }

private:
    ManualLoop &m_loop;
    std::atomic<bool> m_isDone{false};
    std::vector<Response> m_responses; // read when m_isDone
    std::thread m_thread;
};

} // namespace

Q_DECLARE_METATYPE(MakeRequest)

class tst_RepeatedAnswers : public ChannelTest {
    Q_OBJECT

private Q_SLOTS:
    void answerRepeatedAfterOneRoundOfTagsIsSkipped_data();
    void answerRepeatedAfterOneRoundOfTagsIsSkipped();
    void answerRepeatedOnTheNextConnectionIsSkipped();
    void truncatedRepeatedAnswerEndsNoOtherRequest();

private:
    /// The next request has reached the device.
    bool isAsked();
    /// Answers the next request with \a body. Returns the frame that was sent.
    std::string answerNext(const std::string &body);
    /// Answers the next request with status 4.
    void refuseNext();
};

bool tst_RepeatedAnswers::isAsked()
{
    return m_loop->runUntil([this] { return !m_peer->frames.empty(); });
}

std::string tst_RepeatedAnswers::answerNext(const std::string &body)
{
    const Wire::WireHead request = nextRequest();
    Wire::WireHead head = Wire::responseHead(request);
    if (request.type == quint8(CommandType::BinaryRead)) {
        head.totalCount = request.totalCount;
        head.sendCount = request.sendCount;
    }
    const std::string frame = Wire::encodeFrame(head, body).toStdString();
    m_peer->send(frame);
    return frame;
}

void tst_RepeatedAnswers::refuseNext()
{
    Wire::WireHead head = Wire::responseHead(nextRequest());
    head.status = 4;
    m_peer->send(head);
}

void tst_RepeatedAnswers::answerRepeatedAfterOneRoundOfTagsIsSkipped_data()
{
    QTest::addColumn<MakeRequest>("makeRequest");
    QTest::newRow("split write") << &splitWrite;
    QTest::newRow("further packet of a read") << &furtherPacket;
    QTest::newRow("read on the caller's stream") << &readOnOneStream;
    QTest::newRow("write on the caller's stream") << &writeOnOneStream;
    QTest::newRow("read") << &read;
    QTest::newRow("write") << &write;
}

void tst_RepeatedAnswers::answerRepeatedAfterOneRoundOfTagsIsSkipped()
{
    QFETCH(MakeRequest, makeRequest);
    connectChannel();
    Caller caller(*m_loop, m_channel, makeRequest, tagCount + 1);
    const std::string old = answerNext("old");
    for (int i = 1; i < tagCount; ++i)
        answerNext("other");
    QVERIFY(isAsked());
    m_peer->send(old);
    QCOMPARE(m_channel->statistics().strayAnswers, quint64(1));
    refuseNext();

    const auto &responses = caller.responses();
    QCOMPARE(responses.front()->head().lables, responses.back()->head().lables);
    QCOMPARE(responses.front()->body(), std::string("old"));
    QCOMPARE(int(responses.back()->status), 4);
    QCOMPARE(responses.back()->body(), std::string());
}

/// The count of requests continues when the channel reconnects.
void tst_RepeatedAnswers::answerRepeatedOnTheNextConnectionIsSkipped()
{
    connectChannel();
    Caller before(*m_loop, m_channel, &writeOnOneStream, tagCount);
    const std::string old = answerNext("old");
    for (int i = 1; i < tagCount; ++i)
        answerNext("other");
    QCOMPARE(before.responses().size(), std::size_t(tagCount));
    m_peer->fail(QStringLiteral("cable pulled"));
    m_loop->advance(250ms);
    connectChannel();

    Caller caller(*m_loop, m_channel, &writeOnOneStream, 1);
    QVERIFY(isAsked());
    m_peer->send(old);
    QCOMPARE(m_channel->statistics().strayAnswers, quint64(1));
    refuseNext();
    QCOMPARE(int(caller.responses().front()->status), 4);
}

void tst_RepeatedAnswers::truncatedRepeatedAnswerEndsNoOtherRequest()
{
    connectChannel();
    Caller caller(*m_loop, m_channel, &splitWrite, tagCount + 1);
    const std::string old = answerNext("old");
    for (int i = 1; i < tagCount; ++i)
        answerNext("other");
    QVERIFY(isAsked());
    m_peer->send(old.substr(0, old.size() - 1));
    m_peer->fail(QStringLiteral("cable pulled"));
    QCOMPARE(int(caller.responses().back()->status), 259); // not 358: its own answer has not begun
}

QTEST_GUILESS_MAIN(tst_RepeatedAnswers)
#include "tst_repeatedanswers.moc"
