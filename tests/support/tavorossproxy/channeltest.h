#pragma once

#include "manualloop.h"
#include "manualstream.h"

#include <tavorossproxy/channel/streamchannel_p.h>
#include <tavorossproxy/devicecommand.h>

#include <QObject>

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <utility>
#include <vector>

/// Base of the tests of the channel. Each test function gets a new channel over a stream and a
/// clock that the test controls. The channel has begun its first attempt to connect.
class ChannelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

protected:
    using Response = std::shared_ptr<Tavoro::SSProxy::DeviceResponseCommand>;
    using Request = std::shared_ptr<Tavoro::SSProxy::DeviceRequestCommand>;

    /// A caller on a thread of its own.
    class Call {
    public:
        Call(ManualLoop &loop, std::shared_ptr<Tavoro::SSProxy::DeviceChannel> channel,
             Request request);
        ~Call();

        bool isDone() const { return m_isDone; }
        /// Runs the loop until the caller has its response. Null if that takes too long.
        Response response();

    private:
        ManualLoop &m_loop;
        std::atomic<bool> m_isDone{false};
        Response m_response; // read when m_isDone
        std::thread m_thread;
    };

    static std::string identity(unsigned maxPacketSize = 64);
    static Request request(quint16 code = 0x1100, quint8 type = 1, const std::string &body = {},
                           int timeout = 20000);

    /// Opens m_channel with m_options. The channel before must have been destroyed.
    void openChannel();
    void connectChannel(unsigned maxPacketSize = 64);
    Call call(Request command) { return Call(*m_loop, m_channel, std::move(command)); }
    /// Runs the loop until a request reaches the device; its head.
    Tavoro::SSProxy::Wire::WireHead nextRequest();
    void answer(const Tavoro::SSProxy::Wire::WireHead &request, const std::string &body = {});

    std::shared_ptr<ManualLoop> m_loop;
    std::unique_ptr<ManualPeer> m_peer;
    Tavoro::SSProxy::ChannelOptions m_options;
    std::shared_ptr<Tavoro::SSProxy::Internal::StreamChannel> m_channel;
    std::vector<std::pair<std::weak_ptr<Tavoro::SSProxy::DeviceChannel>,
                          std::shared_ptr<Tavoro::SSProxy::IDeviceCommand>>>
        m_reports;
};
