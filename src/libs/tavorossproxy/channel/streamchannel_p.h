#pragma once

#include "expecteddevice_p.h"
#include <tavorossproxy/io/bytestream_p.h>
#include <tavorossproxy/io/channelloop_p.h>

#include <tavorossproxy/channeloptions.h>
#include <tavorossproxy/networkchannel.h>

#include <functional>

namespace Tavoro::SSProxy {
class IDeviceCommand;
}

namespace Tavoro::SSProxy::Internal {

class ChannelCore;

/// A channel over any stream of bytes. Stops when it is destroyed.
class StreamChannel final : public NetworkChannel, public ExpectedDevice {
public:
    using ReportHandler =
        std::function<void(std::weak_ptr<DeviceChannel>, std::shared_ptr<IDeviceCommand>)>;

    using ControlHandler = std::function<void(std::weak_ptr<DeviceChannel>, bool isMaster)>;

    /// Begins to connect and returns at once. Reports go to \a handler, and what isMasterControl()
    /// has changed to goes to \a controlHandler, on the thread of \a loop.
    static std::shared_ptr<StreamChannel> open(const QString &peerName,
                                               std::unique_ptr<ByteStream> stream,
                                               std::shared_ptr<ChannelLoop> loop,
                                               const ChannelOptions &options, ReportHandler handler,
                                               ControlHandler controlHandler = {});
    explicit StreamChannel(std::shared_ptr<ChannelCore> core);
    ~StreamChannel() override;

    std::shared_ptr<DeviceResponseCommand>
    sendSyncRequest(std::shared_ptr<DeviceRequestCommand> request) override;
    ProtoModel::DeviceBaseInfo deviceBaseInfo() const override;
    bool isHardwareReadFinished() override;
    bool isMasterControl() override;
    void stopChannel() override;
    bool waitUntilReady(int milliseconds, QString &error) override;
    void reconnectNow() override;
    void moveTo(const QString &host, quint16 port) override;
    bool requestControl(ControlAction action, QString &error) override;
    RequestOutcome requestOutcome(quint8 lables) override;
    ChannelStatistics statistics() const override;
    std::string expectedIdentity() const override;
    bool isBoundFor(const QString &host, quint16 port) const override;

private:
    const std::shared_ptr<ChannelCore> m_core;
};

} // namespace Tavoro::SSProxy::Internal
