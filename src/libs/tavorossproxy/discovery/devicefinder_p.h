#pragma once

#include <tavorossproxy/io/channelloop_p.h>
#include <tavorossproxy/io/datagramport_p.h>
#include <tavorossproxy/io/pacer_p.h>

#include <tavorossproxy/devicediscovery.h>

#include <QCoreApplication>

#include <functional>
#include <memory>

namespace Tavoro::SSProxy::Internal {

/// Asks for devices and tells those who answer.
///
/// | member     | thread           |
/// |------------|------------------|
/// | stop, ask  | any              |
/// | the rest   | that of the loop |
class DeviceFinder final : public std::enable_shared_from_this<DeviceFinder>,
                           public ChannelLoop::User {
    Q_DECLARE_TR_FUNCTIONS(Tavoro::SSProxy::Internal::DeviceFinder)

public:
    /// Takes each answer, on the loop's thread. The device's \c ip is where the answer came from.
    using Handler = std::function<void(const ProtoModel::DeviceBaseInfo &device)>;

    DeviceFinder(std::shared_ptr<ChannelLoop> loop, std::unique_ptr<DatagramPort> port,
                 std::vector<DiscoveryTarget> targets, std::chrono::milliseconds interval);

    /// Asks for the first time. False when nothing can be asked, with a sentence in \a error.
    bool start(Handler handler, QString &error);
    void stop();
    /// Asks now.
    void ask();

private:
    void loopEnding() override;
    void sendRequests();
    void scheduleNext();
    void receive(const QString &address, std::string_view datagram);

    const std::shared_ptr<ChannelLoop> m_loop;
    const std::vector<DiscoveryTarget> m_targets;
    const std::chrono::milliseconds m_interval;
    std::unique_ptr<DatagramPort> m_port; ///< Null when it has ended.
    Handler m_handler;
    Pacer m_strangers; ///< Datagrams that are no answer of a device, in the log.
};

} // namespace Tavoro::SSProxy::Internal
