#include "channeltest.h"

#include <support/common/requestcommand.h>
#include <tavorowire/frame.h>

#include <QTest>

using namespace Tavoro::SSProxy;

ChannelTest::Call::Call(ManualLoop &loop, std::shared_ptr<DeviceChannel> channel, Request request)
    : m_loop(loop), m_thread([this, channel = std::move(channel), request = std::move(request)] {
          m_response = channel->sendSyncRequest(request);
          m_isDone = true;
          m_loop.wake();
      })
{ }

ChannelTest::Call::~Call()
{
    if (!m_isDone)
        m_loop.end(); // the test has failed
    m_thread.join();
}

ChannelTest::Response ChannelTest::Call::response()
{
    return m_loop.runUntil([this] { return isDone(); }) ? m_response : nullptr;
}

std::string ChannelTest::identity(unsigned maxPacketSize)
{
    return R"({"protocolVersion":1,"modelId":30465,"sn":"0123456789ABCDEF",)"
           R"("mac":"02005E100001","maxPacketSize":)"
        + std::to_string(maxPacketSize) + R"(,"name":"wall","ip":"10.9.9.9"})";
}

ChannelTest::Request ChannelTest::request(quint16 code, quint8 type, const std::string &body,
                                          int timeout)
{
    return requestCommand(type, code, body, timeout);
}

void ChannelTest::init()
{
    m_loop = std::make_shared<ManualLoop>();
    m_peer = std::make_unique<ManualPeer>();
    m_options = {};
    m_reports.clear();
    openChannel();
}

void ChannelTest::cleanup()
{
    m_channel.reset();
    m_loop->run();
    QVERIFY(!m_peer->isOpen);
}

void ChannelTest::openChannel()
{
    m_channel = Internal::StreamChannel::open(
        QStringLiteral("wall:6630"), std::make_unique<ManualStream>(*m_peer), m_loop, m_options,
        [this](auto channel, auto report) { m_reports.emplace_back(channel, report); });
    m_loop->run();
}

void ChannelTest::connectChannel(unsigned maxPacketSize)
{
    m_peer->accept();
    m_peer->frames.clear();
    Wire::WireHead head;
    head.kind = 5;
    m_peer->send(head, identity(maxPacketSize));
}

Wire::WireHead ChannelTest::nextRequest()
{
    if (!m_loop->runUntil([this] { return !m_peer->frames.empty(); }))
        return {};
    const Wire::WireHead head = m_peer->frames.front().head;
    m_peer->frames.pop_front();
    return head;
}

void ChannelTest::answer(const Wire::WireHead &request, const std::string &body)
{
    m_peer->send(Wire::responseHead(request), body);
}
