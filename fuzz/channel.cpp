// Every request ends, with an answer or a status, whatever the other end of the connection does.
//
// Input: requests of the application (type, code, counts, body, timeout) and, while each waits,
// actions of the device.

#include "demand.h"
#include "input.h"
#include "scriptedloop.h"

#include <support/tavorossproxy/manualstream.h>

#include <tavorossproxy/channel/streamchannel_p.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorowire/frame.h>

#include <cstring>
#include <iterator>
#include <string>

using namespace Tavoro::SSProxy;

namespace {

constexpr int maxRequests = 16;

/// The device's end of the connection.
class Device {
public:
    explicit Device(Input &input) : m_input(input) { }

    bool act()
    {
        if (m_input.isEmpty())
            return false;
        using Action = void (Device::*)();
        constexpr Action actions[] = {
            &Device::becomeReady, &Device::answer,    &Device::answerWithOtherHead,
            &Device::sendHead,    &Device::sendBytes, &Device::loseConnection,
            &Device::stopReading, &Device::readAll,   &Device::letTimePass,
        };
        (this->*actions[m_input.byte() % std::size(actions)])();
        return true;
    }

    ManualPeer peer;
    ScriptedLoop *loop = nullptr;

private:
    bool isConnected() const { return peer.isOpen && peer.opened == m_accepted; }

    void becomeReady()
    {
        if (!peer.isOpen || isConnected())
            return;
        m_accepted = peer.opened;
        peer.accept();
        Wire::WireHead head;
        head.kind = static_cast<quint8>(Wire::FrameKind::IdentityAnswer);
        peer.send(head,
                  R"({"protocolVersion":1,"modelId":30465,"sn":"0123456789ABCDEF",)"
                  R"("mac":"02005E100001","maxPacketSize":64,"name":"wall","ip":"192.0.2.7"})");
    }
    Wire::WireHead nextResponse()
    {
        while (peer.frames.size() > 1)
            peer.frames.pop_front(); // the device answers the latest request
        return peer.frames.empty() ? Wire::WireHead()
                                   : Wire::responseHead(peer.frames.front().head);
    }
    void answer() { send(nextResponse(), m_input.text()); }
    void answerWithOtherHead()
    {
        Wire::WireHead head = nextResponse();
        head.status = m_input.byte();
        head.totalCount = m_input.number();
        head.sendCount = m_input.number();
        head.type = m_input.byte();
        send(head, m_input.text());
    }
    void sendHead()
    {
        Wire::WireHead head = nextResponse();
        const std::string_view bytes = m_input.text();
        std::memcpy(&head, bytes.data(), std::min(bytes.size(), sizeof head));
        send(head, m_input.text());
    }
    void send(const Wire::WireHead &head, std::string_view body)
    {
        if (isConnected())
            peer.send(head, body);
    }
    void sendBytes()
    {
        const std::string_view bytes = m_input.text();
        if (isConnected())
            peer.send(bytes);
    }
    void loseConnection()
    {
        if (peer.isOpen)
            peer.fail(QStringLiteral("connection refused"));
    }
    void stopReading() { peer.setReading(false); }
    void readAll()
    {
        if (isConnected())
            peer.setReading(true);
    }
    void letTimePass()
    {
        loop->advanceTo(loop->now() + std::chrono::milliseconds(m_input.number()));
    }

    Input &m_input;
    int m_accepted = 0;
};

std::shared_ptr<DeviceRequestCommand> nextRequest(Input &input)
{
    auto request = std::make_shared<DeviceRequestCommand>();
    request->head().type = input.byte() % 5;
    request->head().BC = input.byte();
    request->head().FC = input.byte();
    request->head().totalCount = input.byte();
    request->head().sendCount = input.byte();
    request->body() = std::string(input.text());
    request->setTimeout(input.number());
    return request;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Input input(data, size);
    Device device(input);
    const auto loop = std::make_shared<ScriptedLoop>([&device] { return device.act(); });
    device.loop = loop.get();
    auto channel = Internal::StreamChannel::open(QStringLiteral("wall:6630"),
                                                 std::make_unique<ManualStream>(device.peer), loop,
                                                 {}, [](auto, auto) {});
    loop->run();
    for (int i = 0; i < maxRequests && !input.isEmpty(); ++i) {
        const auto begin = loop->now();
        const auto request = nextRequest(input);
        const auto response = channel->sendSyncRequest(request);
        demand(response != nullptr, "every request has a response");
        demand(loop->now() - begin <= std::chrono::minutes(3), "a request ends within its timeout");
    }
    channel.reset();
    loop->run();
    demand(!device.peer.isOpen, "a destroyed channel has no connection");
    return 0;
}
