#include "gatebench.h"

#include <tavorobizmodel/devicelist.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QSignalSpy>
#include <QTest>

using namespace Tavoro;
using namespace std::chrono_literals;

namespace {

constexpr int patience = 60000; ///< Milliseconds.

QString number(const QJsonObject &record, const char *key)
{
    return QString::number(record.value(QLatin1String(key)).toInt());
}

/// The end of the topic of a record.
QString nameOf(const QString &operation, const QJsonObject &record)
{
    const QChar slash = QLatin1Char('/');
    if (operation == QLatin1String("Interface.readDetails")) {
        const QJsonObject id = record.value(QStringLiteral("interfaceId")).toObject();
        return QStringLiteral("interface/") + number(id, "slotId") + slash
            + number(id, "connectorId") + slash + number(id, "splitId");
    }
    if (operation == QLatin1String("Screen.readDetails"))
        return QStringLiteral("screen/") + number(record, "screenType") + slash
            + number(record, "screenId");
    if (operation == QLatin1String("Layer.readDetails")) {
        const QJsonObject id = record.value(QStringLiteral("layerIdenti")).toObject();
        return QStringLiteral("layer/") + number(id, "screenType") + slash + number(id, "screenId")
            + slash + number(id, "sceneType") + slash + number(id, "layerType") + slash
            + number(id, "layerId");
    }
    return QStringLiteral("file/") + number(record, "fileType") + slash + number(record, "fileId");
}

/// Takes a list out of the device's record: its elements have topics of their own.
void takeList(QJsonObject &record, const char *key, const char *topic, const char *idKey,
              QMap<QString, QJsonValue> &state)
{
    const QJsonArray list = record.take(QLatin1String(key)).toArray();
    for (const QJsonValue element : list)
        state.insert(QLatin1String(topic) + number(element.toObject(), idKey), element);
}

} // namespace

GateBench::GateBench(const Sim::SimOptions &options, const QByteArray &brokerLines)
    : broker(brokerLines),
      deviceOptions(options),
      device(std::make_unique<RunningSimulator>(options))
{ }

GateBench::~GateBench()
{
    gateway.reset();
    const auto devices = BizModel::DeviceList::instance()->devices();
    for (const auto &each : devices)
        BizModel::DeviceList::instance()->remove(each);
}

Sim::SimOptions GateBench::smallDevice()
{
    Sim::SimOptions options;
    options.inputs = 2;
    options.outputs = 2;
    options.screens = 2;
    options.layersPerScreen = 2;
    options.name = QStringLiteral("wall");
    options.sn = {0, 0, 0, 0, 0, 0, 0, 0xA1};
    options.clockSpeed = 2000; // a restart takes 50 ms
    return options;
}

SessionOptions GateBench::fastOptions()
{
    SessionOptions options;
    options.channel.firstReconnectPause = 20ms;
    options.channel.longestReconnectPause = 20ms;
    options.readPause = 50ms;
    return options;
}

Gate::BrokerOptions GateBench::clientOptions(const QString &clientId) const
{
    Gate::BrokerOptions options = access;
    options.port = broker.port();
    options.clientId = clientId;
    options.firstPause = 20ms;
    options.longestPause = 20ms;
    return options;
}

Gate::GateConfig GateBench::config() const
{
    Gate::GateConfig config;
    config.name = QStringLiteral("stage");
    config.broker = clientOptions(QStringLiteral("tavorogate-stage"));
    if (gatewayPort != 0)
        config.broker.port = gatewayPort;
    config.leaseSeconds = leaseSeconds;
    config.devices = {{QStringLiteral("127.0.0.1"), device->simulator->port()}};
    return config;
}

bool GateBench::start()
{
    if (!startBroker())
        return false;
    startGateway();
    return waitForEqualStates();
}

void GateBench::startGateway()
{
    gateway = std::make_unique<Gate::Gateway>(config(), fastOptions());
    gateway->start();
}

bool GateBench::isGatewayOnline()
{
    return observer()
        .object(QStringLiteral("tavoro/gateway/stage/online"))
        .value(QStringLiteral("online"))
        .toBool();
}

bool GateBench::killGateway()
{
    gateway.reset();
    return QTest::qWaitFor([this] { return !isGatewayOnline(); }, patience);
}

bool GateBench::stopGateway()
{
    const QSignalSpy stopped(gateway.get(), &Gate::Gateway::stopped);
    gateway->stop();
    const bool hasStopped = QTest::qWaitFor([&] { return !stopped.isEmpty(); }, patience);
    gateway.reset();
    return hasStopped;
}

void GateBench::switchDeviceOff()
{
    deviceOptions.port = device->simulator->port();
    device.reset();
}

void GateBench::switchDeviceOn(const Sim::SimOptions &options)
{
    device = std::make_unique<RunningSimulator>(options);
}

BrokerObserver &GateBench::observer()
{
    if (!m_observer)
        m_observer = std::make_unique<BrokerObserver>(clientOptions(QStringLiteral("observer")));
    return *m_observer;
}

bool GateBench::execute(const QString &line) const
{
    return device->simulator->execute(line).ok;
}

QMap<QString, QJsonValue> GateBench::publishedState()
{
    QMap<QString, QJsonValue> state;
    const auto topics = observer().retained(QStringLiteral("tavoro/%1/state/").arg(serial));
    for (auto each = topics.constBegin(); each != topics.constEnd(); ++each)
        state.insert(each.key(), QJsonDocument::fromJson(each.value()).object());
    return state;
}

void GateBench::addRead(const QString &operation, const QByteArray &arguments,
                        QMap<QString, QJsonValue> &state)
{
    const QJsonObject answer = observer().call(serial, operation, arguments);
    const QJsonArray records = answer.value(QStringLiteral("answer")).toArray();
    for (const QJsonValue record : records)
        state.insert(nameOf(operation, record.toObject()), record);
}

QMap<QString, QJsonValue> GateBench::deviceState()
{
    QMap<QString, QJsonValue> state;
    QJsonObject detail = observer()
                             .call(serial, QStringLiteral("Device.readDetails"))
                             .value(QStringLiteral("answer"))
                             .toObject();
    takeList(detail, "powers", "power/", "powerId", state);
    takeList(detail, "subcards", "card/", "slotId", state);
    state.insert(QStringLiteral("device"), detail);
    addRead(QStringLiteral("Interface.readDetails"), R"({"first":0,"second":-1})", state);
    addRead(QStringLiteral("Screen.readDetails"), R"({"screenId":-1,"screenType":0,"third":-1})",
            state);
    addRead(QStringLiteral("Layer.readDetails"),
            R"({"screenId":-1,"screenType":-1,"third":-1,"fourth":-1})", state);
    addRead(QStringLiteral("File.readDetails"), R"({"fileType":-1,"fileId":-1})", state);
    return state;
}

bool GateBench::waitForEqualStates()
{
    const auto isReady = [this] {
        return isGatewayOnline() && gateway->counters().readyDevices == 1;
    };
    if (!QTest::qWaitFor(isReady, patience))
        return false;
    const QDeadlineTimer deadline(patience);
    while (!deadline.hasExpired()) {
        const auto wanted = deviceState();
        const auto isEqual = [&] {
            auto published = publishedState();
            // No read returns these.
            for (const char *name : {"control", "loading", "cutout"})
                published.remove(QLatin1String(name));
            return published == wanted;
        };
        if (QTest::qWaitFor(isEqual, 500))
            return true;
    }
    return false;
}
