#include "connection.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/devicelist.h>
#include <tavorocontrol/proto/hexdigits.h>
#include <tavorossproxy/devicediscovery.h>
#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

using namespace Tavoro;

namespace {

constexpr int patience = 20000; ///< Milliseconds.

} // namespace

Connection::~Connection()
{
    if (!m_channel)
        return;
    m_channel->stopChannel();
    SSProxy::DeviceManager::instance()->removeDeviceChannel(m_channel);
}

bool Connection::find(const QString &address, quint16 discoveryPort)
{
    const auto found = SSProxy::findDevices(patience, 1, {{address, discoveryPort}});
    return !found.empty()
        && open(QString::fromStdString(found.front().ip),
                static_cast<quint16>(found.front().tcpPort));
}

bool Connection::open(const QString &address, quint16 port)
{
    m_channel = SSProxy::openTcpDeviceChannel(address, port);
    QString error;
    if (!m_channel->waitUntilReady(patience, error))
        return false;
    SSProxy::DeviceManager::instance()->addDeviceChannel(m_channel);
    m_mac = QString::fromStdString(ProtoModel::hexDigits(m_channel->deviceBaseInfo().mac));
    m_sn = QString::fromStdString(ProtoModel::hexDigits(m_channel->deviceBaseInfo().sn));
    return true;
}

bool Connection::synchronise()
{
    Control::DeviceList list(nullptr);
    bool hasEnded = false;
    bool hasLayers = false;
    QObject::connect(&list, &Control::DeviceList::signalReadDeviceDetailFinished, &list,
                     [&](bool success) {
                         hasEnded = true;
                         hasLayers = success;
                     });
    QString error;
    const QString ip = QString::fromStdString(m_channel->deviceBaseInfo().ip);
    return list.readDeviceDetail(ip, m_mac, m_sn, error) && waitUntil([&] { return hasEnded; })
        && hasLayers && device() && device()->isSyncDataSuccess();
}

std::shared_ptr<BizModel::Device> Connection::device() const
{
    const QString ip = QString::fromStdString(m_channel->deviceBaseInfo().ip);
    return BizModel::DeviceList::instance()->findDevice(ip, m_mac, m_sn).lock();
}

bool waitUntil(const std::function<bool()> &isTrue)
{
    const QDeadlineTimer deadline(patience);
    while (!isTrue()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        QThread::msleep(1);
    }
    return true;
}
