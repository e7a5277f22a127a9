#include "simulatedconnection.h"

#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>

using namespace Tavoro;

SimulatedConnection::SimulatedConnection(Sim::SimOptions options,
                                         const SSProxy::ChannelOptions &channelOptions)
    : simulator(std::make_unique<Sim::SimulatedDevice>(std::move(options))),
      model(std::make_shared<BizModel::Device>(65535, nullptr))
{
    QString error;
    if (!simulator->start(error))
        qFatal("%s", qUtf8Printable(error));
    channel = SSProxy::openTcpDeviceChannel(QStringLiteral("127.0.0.1"), simulator->port(),
                                            channelOptions);
    if (!channel->waitUntilReady(10000, error))
        qFatal("%s", qUtf8Printable(error));
    SSProxy::DeviceManager::instance()->addDeviceChannel(channel);
    const ProtoModel::DeviceBaseInfo info = channel->deviceBaseInfo();
    model->setIPAddress(QString::fromStdString(info.ip));
    model->updateDeviceBaseInfo(info);
}

SimulatedConnection::~SimulatedConnection()
{
    channel->stopChannel();
    SSProxy::DeviceManager::instance()->removeDeviceChannel(channel);
}
