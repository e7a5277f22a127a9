// Shows a device as it was in the last run, then as it is now. The first run needs its address,
// later runs find it in the file: workoffline FILE [HOST PORT]

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/screen.h>
#include <tavorosession/session.h>

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTextStream>

using namespace Tavoro;

namespace {

void show(const DeviceSession &device)
{
    QTextStream out(stdout);
    out << device.stateText() << '\n';
    if (!device.device())
        return; // it has never been connected
    for (const auto &screen : device.device()->screens(-1)) // of all types
        out << "    " << QString::fromStdString(screen.lock()->detail().general.name) << '\n';
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false")); // no line per request
    const QStringList arguments = application.arguments();
    BizModel::s_DeviceStoreOptions store;
    store.fileName = arguments.value(1);
    QString error;
    if (!BizModel::DeviceList::instance()->openDeviceStore(store, error)) {
        QTextStream(stdout) << error << '\n';
        return 1;
    }

    Session session;
    session.openListed();
    if (arguments.size() > 3)
        session.open(arguments[2], arguments[3].toUShort());

    for (DeviceSession *const device : session.devices()) {
        show(*device);
        const auto showAndQuit = [device] {
            show(*device);
            QCoreApplication::quit(); // without this, the session keeps trying
        };
        QObject::connect(device, &DeviceSession::stateDetailsChanged, device, showAndQuit);
        QObject::connect(device, &DeviceSession::stateChanged, device, [device, showAndQuit] {
            if (device->isReady())
                showAndQuit();
        });
    }
    return application.exec();
}
