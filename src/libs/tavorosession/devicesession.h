#pragma once

#include <tavorosession/devicefiles.h>
#include <tavorosession/devicestate.h>
#include <tavorosession/export.h>
#include <tavorosession/operationcall.h>
#include <tavorosession/outcome.h>
#include <tavorosession/pendingcall.h>
#include <tavorosession/sendpermission.h>
#include <tavorosession/trackedcall.h>

#include <tavorocontrol/proto/auxiliary.h>
#include <tavorooperations/operation.h>
#include <tavorossproxy/devicelease.h>
#include <tavorossproxy/exchangewatch.h>

#include <QObject>
#include <QString>
#include <QStringList>

#include <chrono>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

namespace Tavoro {

namespace SessionInternal {
class DeviceSessionPrivate;
} // namespace SessionInternal

/// The application's work with one device: connects, reads the device into the model, reads it
/// again after a loss, and calls operations of the control classes in the background.
///
/// A Session makes and owns these objects. An object belongs to the thread of its Session: call its
/// members there; its signals are emitted there. No member blocks. Deleting an object ends its
/// calls: those that wait as NotSent, the one under way as Unknown. In a slot of its own signals,
/// and in a callback of its calls, delete it with deleteLater().
///
/// docs/session.md describes states, lanes and outcomes.
class TAVOROSESSION_EXPORT DeviceSession : public QObject {
    Q_OBJECT

public:
    ~DeviceSession() override;

    /// \name State
    /// @{

    /// What the session does, why, since when, and when it tries again.
    DeviceState state() const;
    /// The sentence for the user about state(). It names the device. Translated.
    QString stateText() const;
    /// True if the device is connected and has been read.
    bool isReady() const { return state().kind == DeviceState::Ready; }
    /// The share of the reading that is done, from 0 to 1; 0 unless the state is Reading.
    double readProgress() const;
    /// Name of the device, or its address while the name is not known.
    QString name() const;
    /// Address and port of the device, such as 192.0.2.7:6630.
    QString address() const;
    /// The device in the model. Null until the device has been connected for the first time, unless
    /// it was opened from the store. The object stays the same when the device is read again.
    std::shared_ptr<BizModel::Device> device() const;
    /// @}

    /// \name Connection
    /// @{

    /// Connects again after close(). Does nothing if the session is open.
    void open();
    /// Disconnects, and ends all calls as the destructor does. The model keeps the device, which is
    /// offline.
    void close();
    /// Tries to connect at once instead of after the pause.
    void reconnectNow();
    /// Reads the device again. While it is being read, it is read once more afterwards.
    void readAgain();
    /// @}

    /// \name Control
    ///
    /// A device accepts writes from one client at a time: from the one that holds control, or from
    /// the first one that writes. Reading and watching take no control. The outcome of a request is
    /// Refused if another client holds control; its reason names that client.
    /// @{

    /// True if another client holds control of the device. False without a connection.
    bool isControlledByOthers() const;
    /// Name of the other client that controls the device: its address and port. Empty if no other
    /// client does, and until the device has named it, see controlHolderChanged(). If control goes
    /// from one other client to a third one, the name follows within 5 s.
    QString controlHolder() const;
    /// Takes control unless another client holds it.
    PendingCall<Outcome> takeControl();
    /// Takes control even if another client holds it. The device reports the loss to that client.
    PendingCall<Outcome> forceControl();
    /// Gives control up. Without effect if this client does not hold it. See also
    /// SessionOptions::controlIdleTime.
    PendingCall<Outcome> releaseControl();
    /// Asks the device which client holds control, without requesting it. The record is the
    /// client's address and port, such as 192.0.2.9:50000; empty if no client holds control. This
    /// program is the holder if the record is not empty and isControlledByOthers() is false.
    PendingCall<Answer<QString>> readControlHolder();
    /// @}

    /// \name Lease
    ///
    /// Programs that do the same work with a device agree through its lease which of them does the
    /// work now. At most one client holds it. It is independent of control: the device permits and
    /// forbids nothing because of it.
    /// @{

    /// Takes the lease for \a time, unless another client holds it, and renews it three times
    /// within each \a time until releaseLease() or close(), or until another client holds it. It is
    /// renewed as well when a lost connection is back. \a time is 1 to 3600 s. \a holder names this
    /// program for users: 1 to 64 bytes of UTF-8 without control characters.
    ///
    /// The outcome is Done if this session holds the lease now. It is Refused if another client
    /// holds the lease, which the record then names, or if the device does not support leases.
    /// After any other outcome than Done the lease is not renewed; call this member again later. If
    /// this session has held the lease before, it keeps it until its end.
    ///
    /// When a client takes the lease of another client whose time is over, the device ends the
    /// connection of that client: what it still sends is not carried out, and outcomeOf() gives a
    /// final answer about its calls.
    PendingCall<Answer<SSProxy::DeviceLease>> takeLease(const QString &holder,
                                                        std::chrono::seconds time);
    /// Releases the lease, and does not renew it any more. holdsLease() is false at once. If the
    /// device cannot be reached, the lease ends when its time is over.
    PendingCall<Answer<SSProxy::DeviceLease>> releaseLease();
    /// True while this session holds the lease: the device has granted or renewed it on this
    /// connection, and its time is not over. Compares with the clock, so that it is false in time
    /// even if the program was suspended.
    bool holdsLease() const;
    /// The lease as the device has reported it last to this session. Free while the session
    /// is not connected. Other programs take and release it without a report.
    SSProxy::DeviceLease lease() const;
    /// @}

    /// \name Files and upgrades
    /// @{

    /// The files of the device: transfers of their contents, and presets.
    DeviceFiles files();

    /// Starts a firmware upgrade from a package that the device holds (0xFC08), and reads its
    /// progress five times per second until it has ended (0xFC09). It continues when the connection
    /// is lost or the device restarts.
    ///
    /// The outcome is Refused if the device refused to start, or if the upgrade has failed; the
    /// record then says how far it got. It is Unknown if the device has not reported a progress for
    /// SessionOptions::upgradeTime. A device cannot stop an upgrade: cancelling one that has begun
    /// only ends the reading of its progress.
    TrackedCall<Answer<ProtoModel::Auxiliary::s_UpgradePercent>>
    upgrade(const ProtoModel::Auxiliary::s_UpgradeDetail &upgrade);
    /// @}

    /// \name Log
    /// @{

    /// Sets whether the lines that are logged about the device, under tavoro.control, contain the
    /// bodies of requests, answers and reports. The default is SessionOptions::logsBodies. Applies
    /// to all lines about the device while the session exists, also to those of other users of the
    /// control library.
    void setBodiesLogged(bool areLogged);
    /// @}

    /// \name Calls
    ///
    /// Each call is carried out in the background. The calls of a device are carried out in the
    /// order in which they were made, except that contents of files have a lane of their own.
    /// Devices do not wait for each other.
    ///
    /// A call is sent at once and at most once. Without a connection its outcome is NotSent, also
    /// if the connection is lost while the call waits; it is not sent later. If too many calls wait
    /// (SessionOptions::maxWaitingCalls), a further one is NotSent as well.
    /// @{

    /// Calls an operation of a control class: a member that returns \c bool and has the error text
    /// as its last parameter. \a argument is its only other parameter, and may be in braces:
    /// \code
    /// wall->call(&Control::Screen::writeTake, {effect});
    /// \endcode
    /// The argument is copied. The result is an Outcome, or an Answer if the operation delivers a
    /// record by reference.
    template <class Control, class Parameter>
    auto call(bool (Control::*operation)(Parameter, QString &),
              const SessionInternal::Value<Parameter> &argument)
    {
        return start(SessionInternal::makeCall(operation, argument));
    }

    /// Does the same for operations with any number of arguments before the error text.
    ///
    /// A record that the operation delivers is omitted:
    /// \code
    /// wall->call(&Control::Screen::readDetails, -1, 0, -1)
    ///     .then(this, [](const auto &answer) { show(answer.record()); });
    /// \endcode
    /// Select among overloads with \c qOverload. Arguments of other types do not compile.
    template <class Method, class... Arguments,
              class = std::enable_if_t<!SessionInternal::isSingleArgument<Method, Arguments...>>>
    auto call(Method operation, Arguments &&...arguments)
    {
        return start(SessionInternal::makeCall(operation, std::forward<Arguments>(arguments)...));
    }

    /// Calls an operation, and replaces a waiting call with the same \a key: that call ends as
    /// NotSent, and Outcome::isReplaced() is true for it. So at most one call with the key is under
    /// way and one waits, and the last value always arrives. For controls that send values faster
    /// than the device takes them, such as a T-bar:
    /// \code
    /// wall->callLatest(QStringLiteral("tbar"), &Control::Screen::writeTBar, {position});
    /// \endcode
    /// The new call takes the last place among the waiting calls.
    template <class Control, class Parameter>
    auto callLatest(const QString &key, bool (Control::*operation)(Parameter, QString &),
                    const SessionInternal::Value<Parameter> &argument)
    {
        return start(SessionInternal::makeCall(operation, argument), key);
    }

    /// Does the same for operations with any number of arguments.
    template <class Method, class... Arguments,
              class = std::enable_if_t<!SessionInternal::isSingleArgument<Method, Arguments...>>>
    auto callLatest(const QString &key, Method operation, Arguments &&...arguments)
    {
        return start(SessionInternal::makeCall(operation, std::forward<Arguments>(arguments)...),
                     key);
    }

    /// Calls an operation by its name in the table of operations, with JSON, see
    /// Operations::Operation::prepare(). The record of the answer is JSON; it is empty for a write.
    /// If the name or an argument is not valid, the outcome is NotSent, and its reason says what is
    /// wrong.
    PendingCall<Answer<std::string>> callByName(const QString &name,
                                                const QStringList &arguments = {});
    /// Does the same with \a missing for keys that records of \a arguments lack.
    PendingCall<Answer<std::string>> callByName(const QString &name, const QStringList &arguments,
                                                Operations::MissingKeys missing);
    /// Does the same, and replaces a waiting call with the same \a key as callLatest() does.
    PendingCall<Answer<std::string>> callLatestByName(const QString &key, const QString &name,
                                                      const QStringList &arguments = {});

    /// Calls an operation by its name, and asks \a announce before it sends the write: it gets the
    /// identity that the request will have, and the permission to send it. So a program can publish
    /// what it is about to do, and another program can ask for the outcome if this one fails, see
    /// outcomeOf(). \a announce is called on the session's thread, at most once for a call; it may
    /// decide later. The call is not sent without a permission, nor if the timeout of the call is
    /// over before it is given. Later calls wait.
    ///
    /// A read is not announced: it changes nothing, and can be repeated.
    PendingCall<Answer<std::string>>
    callAnnounced(const QString &name, const QStringList &arguments, SendAnnouncement announce);

    /// Asks the device what became of a request, which another program may have sent. The outcome
    /// is Done or Refused if the device has answered the request, and NotSent if the device has not
    /// received it; that is final if the connection of the request has ended. It is Unknown if the
    /// device does not know the request any more, or has said nothing within
    /// SessionOptions::outcomeTime. \a operation is the name of the operation for Outcome::text().
    /// Does not wait for other calls.
    PendingCall<Outcome> outcomeOf(const SSProxy::RequestIdentity &request,
                                   const QString &operation = {});

    /// Ends when the model contains what the calls that have ended until now have changed. It does
    /// so at once if nothing has to be read. While the connection is lost, it waits for the next
    /// reading.
    /// \code
    /// wall->call(&Control::Layer::writeWindow, {window}).then(this, [=](const Outcome &outcome) {
    ///     if (outcome)
    ///         wall->modelUpdate().then(this, [=](bool isComplete) { show(wall->device()); });
    /// });
    /// \endcode
    /// The result is false if the device could not be read completely, or if the session was
    /// closed before.
    PendingCall<bool> modelUpdate();
    /// @}

Q_SIGNALS:
    /// The kind of state() has changed. Emitted once for each change.
    void stateChanged();
    /// The reason or the next attempt of state() has changed, but not its kind.
    void stateDetailsChanged();
    /// readProgress() has changed.
    void readProgressChanged(double share);
    /// isControlledByOthers() has changed.
    void controlChanged();
    /// controlHolder() has changed.
    void controlHolderChanged();
    /// holdsLease() has changed, or the holder of lease().
    void leaseChanged();
    /// name() or device() has changed.
    void deviceChanged();
    /// A call has ended. Emitted for each call of the application, before its result is delivered.
    void callFinished(const Tavoro::Outcome &outcome);

private:
    friend class Session;
    friend class SessionInternal::DeviceSessionPrivate;
    DeviceSession(std::unique_ptr<SessionInternal::DeviceSessionPrivate> data, QObject *parent);

    template <class Call>
    auto start(const std::shared_ptr<Call> &call, const QString &key = {})
    {
        PendingCall<typename Call::Result> pending(call->future());
        startCall(call, key);
        return pending;
    }
    void startCall(std::shared_ptr<SessionInternal::PendingOperation> call, const QString &key);

    const std::unique_ptr<SessionInternal::DeviceSessionPrivate> d;
};

} // namespace Tavoro
