#include <tavorossproxy/tcpdevicechannel.h>

#include <tavorossproxy/channel/streamchannel_p.h>
#include <tavorossproxy/io/capturingstream_p.h>
#include <tavorossproxy/io/eventloopthread_p.h>
#include <tavorossproxy/io/tcpstream_p.h>

#include <tavorossproxy/devicemanager.h>
#include <tavorowire/hostandport.h>

namespace Tavoro::SSProxy {

std::shared_ptr<NetworkChannel> openTcpDeviceChannel(const QString &host, quint16 port,
                                                     const ChannelOptions &options)
{
    // The manager is created here at the latest: its destruction ends the thread.
    const auto emitReport =
        [manager = DeviceManager::instance()](std::weak_ptr<DeviceChannel> channel,
                                              std::shared_ptr<IDeviceCommand> report) {
            Q_EMIT manager->parseDeviceAutoReportFinished(std::move(channel), std::move(report));
        };
    const auto emitControl =
        [manager = DeviceManager::instance()](std::weak_ptr<DeviceChannel> channel, bool isMaster) {
            Q_EMIT manager->masterControlChanged(std::move(channel), isMaster);
        };
    std::unique_ptr<Internal::ByteStream> stream;
    if (!host.isEmpty() && port != 0)
        stream = std::make_unique<Internal::TcpStream>(host, port);
    if (const auto capture = Internal::CaptureFile::running(); capture && stream)
        stream = std::make_unique<Internal::CapturingStream>(std::move(stream), capture);
    return Internal::StreamChannel::open(Wire::hostAndPort(host, port), std::move(stream),
                                         Internal::EventLoopThread::instance(), options, emitReport,
                                         emitControl);
}

} // namespace Tavoro::SSProxy
