#include <tavorosession/session.h>

#include "devicesession_p.h"
#include "groupcall_p.h"
#include "groupgate_p.h"
#include "outcome_p.h"
#include "texts_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/autoreportmanager.h>
#include <tavorocontrol/proto/deviceidentity.h>
#include <tavorossproxy/devicemanager.h>

#include <QPointer>
#include <QThreadPool>

#include <algorithm>
#include <limits>

namespace Tavoro {

using namespace SessionInternal;
using SSProxy::DeviceManager;

namespace {

constexpr std::size_t readsAtTheSameTime = 4;
/// How long a thread without work is kept for the next lane that has some.
constexpr int idleThreadMilliseconds = 5000;
/// How long the calls of a group wait for each other.
constexpr std::chrono::milliseconds groupPatience(500);

quint16 portOf(const BizModel::Device &device)
{
    const quint16 port = device.deviceBaseInfo().tcpPort;
    return port != 0 ? port : SSProxy::defaultTcpPort;
}

/// A device of a group.
struct GroupTarget {
    QPointer<DeviceSession> device;
    QString name;
};

/// Ends a call of a group whose session was deleted before the call was started.
void endUnsent(CallJob &job, const QString &deviceName)
{
    const CallResult result = notSent(SessionTexts::tr("the session is closed"));
    OutcomeData data;
    data.reason = result.reason;
    data.operation = job.label();
    data.deviceName = deviceName;
    const Outcome outcome = makeOutcome(data);
    job.gate->leave();
    job.observer(outcome, result);
    job.operation->finish(outcome, false);
}

} // namespace

class SessionInternal::SessionPrivate {
public:
    explicit SessionPrivate(const SessionOptions &wanted) : options(wanted)
    {
        pool.setMaxThreadCount(std::numeric_limits<int>::max()); // the lanes limit it
        pool.setExpiryTimeout(idleThreadMilliseconds);
    }

    const SessionOptions options;
    QThreadPool pool;
    const std::shared_ptr<Courier> courier = std::make_shared<Courier>();
    ReadQueue readQueue{readsAtTheSameTime};
    DeviceOwners owners;
    QList<DeviceSession *> devices;
    QMetaObject::Connection discovery;

    Shared shared() { return {pool, courier, readQueue, owners}; }
};

Session::Session(const SessionOptions &options, QObject *parent)
    : QObject(parent), d(std::make_unique<SessionPrivate>(options))
{
    Control::AutoReportManager::instance();
}

Session::~Session()
{
    stopDiscovery();
    while (!d->devices.isEmpty())
        delete d->devices.last();
    d->pool.waitForDone(); // all channels were stopped, so no lane blocks
    d->courier->close();
}

DeviceSession *Session::open(const QString &host, quint16 port)
{
    return open(host, port, d->options);
}

DeviceSession *Session::open(const QString &host, quint16 port, const SessionOptions &options)
{
    for (DeviceSession *const known : qAsConst(d->devices)) {
        if (known->d->host == host && known->d->port == port)
            return known;
    }
    DeviceSession *const device =
        add(std::make_unique<DeviceSessionPrivate>(d->shared(), host, port, options));
    device->open();
    return device;
}

QList<DeviceSession *> Session::openListed()
{
    QList<DeviceSession *> opened;
    for (const auto &listed : BizModel::DeviceList::instance()->devices()) {
        const auto device = listed.lock();
        if (!device || device->IPAddress().isEmpty() || find(device))
            continue;
        SessionOptions options = d->options;
        options.channel.identity = ProtoModel::identityKey(device->deviceBaseInfo());
        opened << add(std::make_unique<DeviceSessionPrivate>(d->shared(), device->IPAddress(),
                                                             portOf(*device), options, device));
        opened.last()->open();
    }
    return opened;
}

void Session::startDiscovery(const SSProxy::DiscoveryOptions &options)
{
    if (!d->discovery)
        d->discovery =
            connect(DeviceManager::instance(), &DeviceManager::deviceChannelFound, this,
                    [this](const std::weak_ptr<SSProxy::DeviceChannel> &found) {
                        const auto channel =
                            std::dynamic_pointer_cast<SSProxy::NetworkChannel>(found.lock());
                        if (channel)
                            adopt(channel);
                    });
    SSProxy::startDeviceDiscovery(options);
    DeviceManager::instance()->refreshDeviceChannel(); // also finds devices that were closed
}

void Session::stopDiscovery()
{
    if (!d->discovery)
        return;
    SSProxy::stopDeviceDiscovery();
    disconnect(d->discovery);
    d->discovery = {};
}

void Session::adopt(std::shared_ptr<SSProxy::NetworkChannel> channel)
{
    DeviceSession *const device =
        add(std::make_unique<DeviceSessionPrivate>(d->shared(), QString(), 0, d->options));
    device->d->adopt(std::move(channel));
}

DeviceSession *Session::add(std::unique_ptr<DeviceSessionPrivate> data)
{
    auto *const device = new DeviceSession(std::move(data), this);
    device->d->deleted = [this, device] {
        d->devices.removeOne(device);
        Q_EMIT deviceRemoved(device);
    };
    d->devices << device;
    Q_EMIT deviceAdded(device);
    return device;
}

QList<DeviceSession *> Session::devices() const
{
    return d->devices;
}

DeviceSession *Session::find(const std::shared_ptr<BizModel::Device> &device) const
{
    const DeviceSessionPrivate *const owner = d->owners.of(device.get());
    return owner ? owner->q : nullptr;
}

PendingCall<GroupOutcome> Session::startGroup(const QList<DeviceSession *> &devices,
                                              const Calls &calls)
{
    const auto group = std::make_shared<GroupCall>(calls.size());
    const auto gate = std::make_shared<GroupGate>(static_cast<int>(calls.size()), groupPatience);
    // A slot may change the list of the caller, and delete sessions.
    std::vector<GroupTarget> targets;
    for (DeviceSession *const device : devices)
        targets.push_back({device, device->name()});
    for (std::size_t i = 0; i < calls.size(); ++i) {
        const auto job = std::make_shared<CallJob>(calls[i]);
        job->gate = gate;
        job->observer = [group, i](const Outcome &outcome, const CallResult &result) {
            group->add(i, outcome, result);
        };
        if (targets[i].device)
            targets[i].device->d->calls().start(job);
        else
            endUnsent(*job, targets[i].name);
    }
    return PendingCall<GroupOutcome>(group->future());
}

} // namespace Tavoro
