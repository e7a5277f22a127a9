#include "scripteddevice.h"

#include <tavorossproxy/devicemanager.h>

#include <algorithm>
#include <string>
#include <utility>

using namespace Tavoro;
using SSProxy::DeviceManager;

ScriptedDevice::ScriptedDevice(quint8 number, std::shared_ptr<ScriptedChannel> itsChannel)
    : channel(std::move(itsChannel)),
      model(std::make_shared<BizModel::Device>(static_cast<unsigned short>(number), nullptr))
{
    channel->info.ip = "192.0.2." + std::to_string(number);
    channel->info.sn.back() = number;
    channel->info.mac.back() = number;
    model->setIPAddress(QString::fromStdString(channel->info.ip));
    model->updateDeviceBaseInfo(channel->info);
    model->setName(QStringLiteral("stage left"));
    DeviceManager::instance()->addDeviceChannel(channel);
}

ScriptedDevice::~ScriptedDevice()
{
    removeChannel();
}

void ScriptedDevice::removeChannel()
{
    DeviceManager::instance()->removeDeviceChannel(channel);
}

bool ScriptedDevice::isChannelKnown() const
{
    const auto known = DeviceManager::instance()->tavoroDeviceChannels();
    return std::any_of(known.begin(), known.end(),
                       [&](const auto &candidate) { return candidate.lock() == channel; });
}

QString ScriptedDevice::quotedName() const
{
    return QStringLiteral("\"%1\" \"%2\"").arg(model->name(), model->ipMacSn());
}
