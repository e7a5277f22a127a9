// Connects to a device, reads it, and prints its screens with the layers of their programmes:
// readdevice HOST [PORT]

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/layer.h>
#include <tavorobizmodel/screen.h>
#include <tavorosession/session.h>

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTextStream>

using namespace Tavoro;

namespace {

void print(const BizModel::Device &device)
{
    constexpr int allTypes = -1;
    constexpr int programme = 4;
    QTextStream out(stdout);
    out << device.name() << ", " << device.interfaces().size() << " interfaces\n";
    for (const auto &listed : device.screens(allTypes)) {
        const auto screen = listed.lock();
        out << "screen " << screen->screenId() << ": "
            << QString::fromStdString(screen->detail().general.name) << '\n';
        for (const auto &each : screen->layers()) {
            const auto layer = each.lock()->detail();
            if (layer.layerIdenti.sceneType == programme)
                out << "    " << QString::fromStdString(layer.general.name) << ": "
                    << layer.window.width << 'x' << layer.window.height << " at " << layer.window.x
                    << ',' << layer.window.y << '\n';
        }
    }
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false")); // no line per request
    const QStringList arguments = application.arguments();
    const quint16 port = arguments.size() > 2 ? arguments[2].toUShort() : SSProxy::defaultTcpPort;

    Session session;
    DeviceSession *const device = session.open(arguments.value(1), port);
    QObject::connect(device, &DeviceSession::stateChanged, device, [device] {
        if (device->isReady()) {
            print(*device->device());
            QCoreApplication::quit();
        }
    });
    QObject::connect(device, &DeviceSession::stateDetailsChanged, device, [device] {
        QTextStream(stdout) << device->stateText() << '\n';
        QCoreApplication::exit(1); // without this, the session tries again
    });
    return application.exec();
}
