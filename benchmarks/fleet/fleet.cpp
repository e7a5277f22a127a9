#include "fleet.h"

#include <support/bench.h>

#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/devicelist.h>
#include <tavorossproxy/devicemanager.h>

#include <QEventLoop>

namespace Bench {

using namespace Tavoro;
using BizModel::Enum::Device::DataPart;

Fleet::Fleet(const std::vector<quint16> &ports)
{
    for (const quint16 port : ports)
        m_members.push_back({SSProxy::openTcpDeviceChannel(QStringLiteral("127.0.0.1"), port),
                             std::make_shared<BizModel::Device>(quint16(1), nullptr)});
    for (const Member &member : m_members) {
        QString error;
        require(member.channel->waitUntilReady(patience, error), error);
        SSProxy::DeviceManager::instance()->addDeviceChannel(member.channel);
        const ProtoModel::DeviceBaseInfo info = member.channel->deviceBaseInfo();
        member.model->updateDeviceBaseInfo(info);
        member.model->setIPAddress(QString::fromStdString(info.ip));
    }
}

Fleet::~Fleet()
{
    auto *const list = BizModel::DeviceList::instance();
    for (const Member &member : m_members) {
        list->remove(
            list->findDevice(member.model->IPAddress(), member.model->MAC(), member.model->sn()));
        member.channel->stopChannel();
        SSProxy::DeviceManager::instance()->removeDeviceChannel(member.channel);
    }
}

void Fleet::synchronise()
{
    for (const Member &member : m_members)
        synchronise(*member.model);
}

void Fleet::synchronise(const BizModel::Device &identity)
{
    Control::DeviceList reader(nullptr);
    QEventLoop untilFinished;
    bool success = false;
    connect(&reader, &Control::DeviceList::signalReadDeviceDetailFinished, &untilFinished,
            [&](bool ok) {
                success = ok;
                untilFinished.quit();
            });
    QString error;
    require(reader.readDeviceDetail(identity.IPAddress(), identity.MAC(), identity.sn(), error),
            error);
    untilFinished.exec();
    require(success, QStringLiteral("not synchronised"));
}

void Fleet::countReports()
{
    const auto devices = BizModel::DeviceList::instance()->devices();
    for (const auto &device : devices) {
        connect(device.lock().get(), &BizModel::Device::deviceDataChanged, this,
                [this](DataPart part) { m_applied += part == DataPart::Powers; });
    }
}

} // namespace Bench
