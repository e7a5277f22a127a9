// Prints the state of a device, and the signals of its interfaces whenever they change:
// followdevice HOST PORT

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/interface.h>
#include <tavorosession/session.h>

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTextStream>

using namespace Tavoro;

namespace {

void print(const QString &text)
{
    QTextStream(stdout) << text << Qt::endl;
}

void printSignal(const BizModel::Interface &interface)
{
    const auto detail = interface.detail();
    print(QStringLiteral("%1: %2x%3 at %4 Hz")
              .arg(QString::fromStdString(detail.general.name))
              .arg(detail.actualTiming.horizontal.addTime)
              .arg(detail.actualTiming.vertical.addTime)
              .arg(detail.actualTiming.refresh));
}

/// Prints the changes of the interfaces that the device has now, until \a connections is destroyed.
void follow(const BizModel::Device &device, QObject *connections)
{
    for (const auto &each : device.interfaces()) {
        const auto interface = each.lock();
        QObject::connect(interface.get(), &BizModel::Interface::interfaceChanged, connections,
                         [changed = interface.get()] { printSignal(*changed); });
    }
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false")); // no line per request
    const QStringList arguments = application.arguments();

    Session session;
    DeviceSession *const device = session.open(arguments.value(1), arguments.value(2).toUShort());
    std::unique_ptr<QObject> connections;
    QObject::connect(device, &DeviceSession::stateChanged, device, [device, &connections] {
        print(device->stateText());
        if (device->isReady()) { // after each reading, which may have found other interfaces
            connections = std::make_unique<QObject>();
            follow(*device->device(), connections.get());
        }
    });
    return application.exec();
}
