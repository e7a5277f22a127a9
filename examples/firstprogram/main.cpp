// Connects to a device, reads it into the model, performs a take on screen 1,
// and prints what changes on the device until Ctrl-C: firstprogram HOST [PORT]

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/autoreportmanager.h>
#include <tavorocontrol/devicelist.h>
#include <tavorocontrol/screen.h>
#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTextStream>

using namespace Tavoro;

namespace {

void print(const QString &text)
{
    QTextStream(stdout) << text << Qt::endl;
}

void takeScreen1(const std::shared_ptr<BizModel::Device> &device)
{
    ProtoModel::Screen::s_SwitchEffect effect;
    effect.screenId = 1;
    effect.screenType = BizModel::Enum::Screen::OrdinaryScreen;
    effect.switchEffect.time = 10;
    QString error;
    if (Control::Screen(device).writeTake({effect}, error))
        print(QStringLiteral("The take is done."));
    else
        print(error); // For example "Set screen take information failed: hardware error:4 ."
}

/// Called when the whole device has been read into the model.
void deviceIsRead(const std::shared_ptr<BizModel::Device> &device)
{
    print(QStringLiteral("%1 has %2 interfaces.")
              .arg(device->name())
              .arg(device->interfaces().size()));
    QObject::connect(device.get(), &BizModel::Device::deviceDataChanged, [](int part) {
        print(QStringLiteral("The device reports a change of part %1.").arg(part));
    });
    takeScreen1(device);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    QLoggingCategory::setFilterRules(
        QStringLiteral("tavoro.*=false")); // Without a line per request.

    // Reports that the device sends change the model from now on.
    Control::AutoReportManager::instance();

    // The channel connects, and reconnects after a loss.
    const quint16 port = arguments.size() > 2 ? arguments[2].toUShort() : SSProxy::defaultTcpPort;
    const auto channel = SSProxy::openTcpDeviceChannel(arguments.value(1), port);
    QString error;
    if (!channel->waitUntilReady(5000, error)) {
        print(error);
        return 1;
    }
    SSProxy::DeviceManager::instance()->addDeviceChannel(channel);

    // The model knows the device by the identity that the channel received.
    const auto device = std::make_shared<BizModel::Device>(65535, nullptr);
    device->setIPAddress(QString::fromStdString(channel->deviceBaseInfo().ip));
    device->updateDeviceBaseInfo(channel->deviceBaseInfo());
    BizModel::DeviceList::instance()->append(device);

    // Another thread reads the whole device; the event loop delivers the signal.
    Control::DeviceList reader(nullptr);
    QObject::connect(&reader, &Control::DeviceList::signalReadDeviceDetailFinished, device.get(),
                     [&device] { deviceIsRead(device); });
    if (!reader.readDeviceDetail(device, error)) {
        print(error);
        return 1;
    }
    return application.exec();
}
