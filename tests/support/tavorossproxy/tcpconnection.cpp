#include "tcpconnection.h"

#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>

using namespace Tavoro;

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
}
