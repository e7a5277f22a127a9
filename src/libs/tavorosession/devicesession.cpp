#include "announcedjob_p.h"
#include "devicesession_p.h"
#include "namedcall_p.h"
#include "statetext_p.h"

#include <tavorobizmodel/device.h>

namespace Tavoro {

using namespace SessionInternal;

DeviceSession::DeviceSession(std::unique_ptr<DeviceSessionPrivate> data, QObject *parent)
    : QObject(parent), d(std::move(data))
{
    d->q = this;
}

DeviceSession::~DeviceSession()
{
    d->q = nullptr;
    if (d->deleted)
        d->deleted();
}

// clang-format off
DeviceState DeviceSession::state() const                          { return d->state; }
QString     DeviceSession::stateText() const                      { return SessionInternal::stateText(d->state, name()); }
double      DeviceSession::readProgress() const                   { return d->state.kind == DeviceState::Reading ? d->readProgress : 0; }
QString     DeviceSession::name() const                           { return d->name(); }
QString     DeviceSession::address() const                        { return d->address(); }
std::shared_ptr<BizModel::Device> DeviceSession::device() const   { return d->modelDevice(); }
void        DeviceSession::open()                                 { d->open(); }
void        DeviceSession::close()                                { d->close(tr("the session is closed")); }
void        DeviceSession::reconnectNow()                         { d->reconnectNow(); }
void        DeviceSession::readAgain()                            { d->readAgain(); }
// clang-format on

bool DeviceSession::isControlledByOthers() const
{
    return d->control().isOthers();
}

PendingCall<Answer<std::string>> DeviceSession::callByName(const QString &name,
                                                           const QStringList &arguments)
{
    return callByName(name, arguments, Operations::MissingKeys::Refused);
}

PendingCall<Answer<std::string>> DeviceSession::callByName(const QString &name,
                                                           const QStringList &arguments,
                                                           Operations::MissingKeys missing)
{
    return start(std::make_shared<NamedCall>(name, arguments, missing));
}

PendingCall<Answer<std::string>> DeviceSession::callLatestByName(const QString &key,
                                                                 const QString &name,
                                                                 const QStringList &arguments)
{
    return start(std::make_shared<NamedCall>(name, arguments, Operations::MissingKeys::Refused),
                 key);
}

void DeviceSession::setBodiesLogged(bool areLogged)
{
    d->setBodiesLogged(areLogged);
}

DeviceFiles DeviceSession::files()
{
    return DeviceFiles(d->calls());
}

TrackedCall<Answer<ProtoModel::Auxiliary::s_UpgradePercent>>
DeviceSession::upgrade(const ProtoModel::Auxiliary::s_UpgradeDetail &upgrade)
{
    return d->calls().upgrade(upgrade);
}

PendingCall<bool> DeviceSession::modelUpdate()
{
    return d->modelUpdate();
}

QString DeviceSession::controlHolder() const
{
    return d->control().holder();
}

PendingCall<Outcome> DeviceSession::takeControl()
{
    return d->calls().requestControl(SSProxy::ControlAction::Take);
}

PendingCall<Outcome> DeviceSession::forceControl()
{
    return d->calls().requestControl(SSProxy::ControlAction::Force);
}

PendingCall<Outcome> DeviceSession::releaseControl()
{
    return d->calls().requestControl(SSProxy::ControlAction::GiveUp);
}

PendingCall<Answer<QString>> DeviceSession::readControlHolder()
{
    return d->calls().readControlHolder();
}

PendingCall<Answer<SSProxy::DeviceLease>> DeviceSession::takeLease(const QString &holder,
                                                                   std::chrono::seconds time)
{
    return PendingCall<Answer<SSProxy::DeviceLease>>(d->lease().take(holder, time)->future());
}

PendingCall<Answer<SSProxy::DeviceLease>> DeviceSession::releaseLease()
{
    return PendingCall<Answer<SSProxy::DeviceLease>>(d->lease().release()->future());
}

bool DeviceSession::holdsLease() const
{
    return d->lease().isHeld();
}

SSProxy::DeviceLease DeviceSession::lease() const
{
    return d->lease().lease();
}

PendingCall<Answer<std::string>> DeviceSession::callAnnounced(const QString &name,
                                                              const QStringList &arguments,
                                                              SendAnnouncement announce)
{
    const auto call =
        std::make_shared<NamedCall>(name, arguments, Operations::MissingKeys::Refused);
    PendingCall<Answer<std::string>> pending(call->future());
    d->calls().start(std::make_shared<AnnouncedJob>(call, std::move(announce), d->courier()));
    return pending;
}

PendingCall<Outcome> DeviceSession::outcomeOf(const SSProxy::RequestIdentity &request,
                                              const QString &operation)
{
    return d->calls().outcomeOf(request, operation);
}

void DeviceSession::startCall(std::shared_ptr<PendingOperation> call, const QString &key)
{
    d->calls().startLatest(std::make_shared<CallJob>(std::move(call)), key);
}

} // namespace Tavoro
