#include "tcpconnection.h"

#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <chrono>
#include <future>

using namespace Tavoro;

namespace {

/// Waits until the channel's thread has stopped it. The channel logs its last lines there, and Qt
/// Test must not end before they are written.
void waitUntilStopped(SSProxy::NetworkChannel &channel)
{
    const auto stopped = std::make_shared<std::promise<void>>();
    const std::future<void> isStopped = stopped->get_future();
    channel.setConnectionHandler(
        [stopped](const SSProxy::ConnectionState &) { stopped->set_value(); });
    isStopped.wait_for(std::chrono::seconds(10));
}

} // namespace

TcpConnection::TcpConnection(quint16 port, const SSProxy::ChannelOptions &options)
    : channel(SSProxy::openTcpDeviceChannel(QStringLiteral("127.0.0.1"), port, options)),
      model(std::make_shared<BizModel::Device>(65535, nullptr))
{
    QString error;
    if (!channel->waitUntilReady(10000, error))
        qFatal("%s", qUtf8Printable(error));
    SSProxy::DeviceManager::instance()->addDeviceChannel(channel);
    const ProtoModel::DeviceBaseInfo info = channel->deviceBaseInfo();
    model->setIPAddress(QString::fromStdString(info.ip));
    model->updateDeviceBaseInfo(info);
}

TcpConnection::~TcpConnection()
{
    channel->stopChannel();
    SSProxy::DeviceManager::instance()->removeDeviceChannel(channel);
    waitUntilStopped(*channel);
}
