#pragma once

#include <tavorosession/devicesession.h>
#include <tavorosession/export.h>
#include <tavorosession/groupoutcome.h>
#include <tavorosession/sessionoptions.h>

#include <tavorossproxy/devicediscovery.h>
#include <tavorossproxy/networkchannel.h>

#include <QList>
#include <QObject>
#include <QString>

#include <memory>
#include <vector>

namespace Tavoro {

namespace SessionInternal {
class SessionPrivate;
}

/// The application's work with all its devices. Create one object on the application's thread, and
/// call its members there; its signals are emitted there. No member blocks.
///
/// \code
/// Session session;
/// DeviceSession *wall = session.open(QStringLiteral("192.0.2.7"));
/// connect(wall, &DeviceSession::stateChanged, this, [=] { show(wall->state()); });
/// \endcode
///
/// It applies the reports of the devices to the model (Control::AutoReportManager), reads at most
/// four devices at the same time, and needs a thread for a lane of a device only while that lane
/// has work. Destroying it ends all calls, and takes less than a second.
class TAVOROSESSION_EXPORT Session : public QObject {
    Q_OBJECT

public:
    /// A session whose devices get \a options, unless open() gets others.
    explicit Session(const SessionOptions &options = {}, QObject *parent = nullptr);
    ~Session() override;

    /// Opens the device at \a host and \a port. If that address is open already, returns its
    /// session. The session belongs to this object; delete it to close the device.
    ///
    /// A device has one open session. If the device that answers, known by its serial number and
    /// MAC address, has an open session with another address, the new session is closed: its state
    /// is Disconnected, and the reason names the other address. If the other session has no
    /// connection, it moves to the new address.
    DeviceSession *open(const QString &host, quint16 port = SSProxy::defaultTcpPort);
    /// Does the same with other options.
    DeviceSession *open(const QString &host, quint16 port, const SessionOptions &options);
    /// Opens the devices of the model's list that have an address and no session, such as those of
    /// the last run after BizModel::DeviceList::openDeviceStore(). Each has its last known model at
    /// once, and becomes ready later. Returns the new sessions.
    QList<DeviceSession *> openListed();

    /// Searches the network for devices and opens each that answers; deviceAdded() reports it. A
    /// device that has a session gets no second one. Finds also devices whose session was deleted
    /// before. See
    /// SSProxy::startDeviceDiscovery(), which stays in effect until stopDiscovery().
    void startDiscovery(const SSProxy::DiscoveryOptions &options = {});
    /// Stops the search. The devices that were found stay open.
    void stopDiscovery();

    /// The sessions of all devices, in the order in which they were opened.
    QList<DeviceSession *> devices() const;
    /// The session that works with a device of the model; null if there is none.
    DeviceSession *find(const std::shared_ptr<BizModel::Device> &device) const;

    /// Calls an operation on several devices, see DeviceSession::call(). The calls are sent
    /// together: each waits until the others can be sent as well, but at most half a second. The
    /// result holds all outcomes and the time between the first and the last sending. Each device
    /// occurs once in \a devices. If a slot of one of their signals deletes another session of the
    /// group, the outcome of that session is NotSent.
    template <class Control, class Parameter>
    PendingCall<GroupOutcome> callAll(const QList<DeviceSession *> &devices,
                                      bool (Control::*operation)(Parameter, QString &),
                                      const SessionInternal::Value<Parameter> &argument)
    {
        return startAll(devices, [&] { return SessionInternal::makeCall(operation, argument); });
    }
    /// Does the same for operations with any number of arguments.
    template <class Method, class... Arguments,
              class = std::enable_if_t<!SessionInternal::isSingleArgument<Method, Arguments...>>>
    PendingCall<GroupOutcome> callAll(const QList<DeviceSession *> &devices, Method operation,
                                      const Arguments &...arguments)
    {
        return startAll(devices,
                        [&] { return SessionInternal::makeCall(operation, arguments...); });
    }

Q_SIGNALS:
    /// A device was opened.
    void deviceAdded(Tavoro::DeviceSession *device);
    /// The session of a device is about to be deleted. Its members must not be called any more.
    void deviceRemoved(Tavoro::DeviceSession *device);

private:
    using Calls = std::vector<std::shared_ptr<SessionInternal::PendingOperation>>;

    template <class MakeCall>
    PendingCall<GroupOutcome> startAll(const QList<DeviceSession *> &devices, MakeCall makeCall)
    {
        Calls calls;
        for (int i = 0; i < devices.size(); ++i)
            calls.push_back(makeCall());
        return startGroup(devices, calls);
    }
    PendingCall<GroupOutcome> startGroup(const QList<DeviceSession *> &devices, const Calls &calls);
    DeviceSession *add(std::unique_ptr<SessionInternal::DeviceSessionPrivate> data);
    void adopt(std::shared_ptr<SSProxy::NetworkChannel> channel);

    const std::unique_ptr<SessionInternal::SessionPrivate> d;
};

} // namespace Tavoro
