#include "streamchannel_p.h"

#include "channelcore_p.h"
#include "commands_p.h"

namespace Tavoro::SSProxy::Internal {

std::shared_ptr<StreamChannel>
StreamChannel::open(const QString &peerName, std::unique_ptr<ByteStream> stream,
                    std::shared_ptr<ChannelLoop> loop, const ChannelOptions &options,
                    ReportHandler handler, ControlHandler controlHandler)
{
    // Not in one piece with its counts: timers still point weakly at a core that is gone, and would
    // hold its memory until their time.
    const std::shared_ptr<ChannelCore> core(new ChannelCore(peerName, std::move(loop), options));
    auto channel = std::make_shared<StreamChannel>(core);
    const std::weak_ptr<DeviceChannel> weak = channel;
    ChannelCore::Handlers handlers;
    handlers.report = [weak, handler = std::move(handler)](std::shared_ptr<IDeviceCommand> report) {
        handler(weak, std::move(report));
    };
    if (controlHandler)
        handlers.control = [weak, handler = std::move(controlHandler)](bool isMaster) {
            handler(weak, isMaster);
        };
    core->start(std::move(stream), std::move(handlers));
    return channel;
}

StreamChannel::StreamChannel(std::shared_ptr<ChannelCore> core) : m_core(std::move(core)) { }

StreamChannel::~StreamChannel()
{
    m_core->stop();
}

std::shared_ptr<DeviceResponseCommand>
StreamChannel::sendSyncRequest(std::shared_ptr<DeviceRequestCommand> request)
{
    return request ? m_core->exchange(*request) : makeResponse({}, InvalidRequest);
}

ProtoModel::DeviceBaseInfo StreamChannel::deviceBaseInfo() const
{
    return m_core->info();
}

bool StreamChannel::isHardwareReadFinished()
{
    return m_core->isReady();
}

bool StreamChannel::isMasterControl()
{
    return m_core->isMaster();
}

void StreamChannel::stopChannel()
{
    m_core->stop();
}

bool StreamChannel::waitUntilReady(int milliseconds, QString &error)
{
    return m_core->waitUntilReady(ChannelOptions::Milliseconds(milliseconds), error);
}

void StreamChannel::reconnectNow()
{
    m_core->reconnectNow();
}

void StreamChannel::moveTo(const QString &host, quint16 port)
{
    m_core->moveTo(host, port);
}

bool StreamChannel::requestControl(ControlAction action, QString &error)
{
    return m_core->requestControl(action, error);
}

RequestOutcome StreamChannel::requestOutcome(quint8 lables)
{
    return m_core->requestOutcome(lables);
}

ChannelStatistics StreamChannel::statistics() const
{
    return m_core->statistics();
}

std::string StreamChannel::expectedIdentity() const
{
    return m_core->expectedIdentity();
}

bool StreamChannel::isBoundFor(const QString &host, quint16 port) const
{
    return m_core->peerName() == ChannelCore::peerNameOf(host, port);
}

} // namespace Tavoro::SSProxy::Internal
