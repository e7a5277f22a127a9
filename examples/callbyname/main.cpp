// Calls an operation of a device by its name, and prints which reads return something else
// afterwards: callbyname HOST PORT OPERATION [ARGUMENT ...]

#include <tavorobizmodel/device.h>
#include <tavorooperations/operation.h>
#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/tcpdevicechannel.h>

#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTextStream>

using namespace Tavoro;

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    QLoggingCategory::setFilterRules(QStringLiteral("tavoro.*=false"));
    QTextStream out(stdout);
    const QStringList words = QCoreApplication::arguments();

    // Arguments are checked before the connection is made.
    const auto operation = Operations::find(words.value(3));
    if (!operation) {
        out << "There is no operation \"" << words.value(3) << "\".\n";
        return 2;
    }
    const Operations::PreparedCall call = operation->prepare(words.mid(4));
    if (!call.fault.isEmpty()) {
        out << call.fault << '\n';
        return 2;
    }

    const auto channel = SSProxy::openTcpDeviceChannel(words.at(1), words.at(2).toUShort());
    QString error;
    if (!channel->waitUntilReady(5000, error)) {
        out << error << '\n';
        return 1;
    }
    SSProxy::DeviceManager::instance()->addDeviceChannel(channel);
    const auto device = std::make_shared<BizModel::Device>(65535, nullptr);
    device->setIPAddress(QString::fromStdString(channel->deviceBaseInfo().ip));
    device->updateDeviceBaseInfo(channel->deviceBaseInfo());

    const Operations::CallResult result = call.run(device);
    if (!result.ok) {
        out << result.error << '\n';
        return 1;
    }
    out << (result.answer.empty() ? QStringLiteral("done") : QString::fromStdString(result.answer))
        << '\n';
    for (const Operations::Scope &read : Operations::readsFor(call.changes))
        out << "read again: " << read.readOperation() << ' '
            << read.readArguments().join(QLatin1Char(' ')) << '\n';
    return 0;
}
