// Reads a device and prints its name: readdevice HOST

#include <tavorobizmodel/device.h>
#include <tavorocontrol/device.h>
#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <QCoreApplication>
#include <QDebug>

namespace {

int fail(const QString &error)
{
    qCritical("%s", qUtf8Printable(error));
    return 1;
}

} // namespace

int main(int argc, char *argv[])
{
    using namespace Tavoro;
    QCoreApplication application(argc, argv);
    const auto channel = SSProxy::openTcpDeviceChannel(QCoreApplication::arguments().value(1));
    QString error;
    if (!channel->waitUntilReady(5000, error))
        return fail(error);
    SSProxy::DeviceManager::instance()->addDeviceChannel(channel);

    const auto model = std::make_shared<BizModel::Device>(65535, nullptr);
    model->setIPAddress(QString::fromStdString(channel->deviceBaseInfo().ip));
    model->updateDeviceBaseInfo(channel->deviceBaseInfo());

    ProtoModel::Device::s_DeviceDetail detail;
    if (!Control::Device(model).readDetails(detail, error))
        return fail(error);
    qInfo("%s has %zu cards", detail.general.name.c_str(), detail.subcards.size());
    return 0;
}
