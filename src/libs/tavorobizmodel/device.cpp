#include "device_p.h"
#include "objectprivate_p.h"

#include <tavorobizmodel/mvrscreen.h>
#include <tavorossproxy/commandcodes.h>

#include <utility>

namespace Tavoro::BizModel {

namespace {

/// Commands that keep a real device busy for longer than the default allows.
QList<std::shared_ptr<s_CommandTimeout>> slowCommands()
{
    using SSProxy::Command;
    constexpr struct {
        Command command;
        quint32 milliseconds;
    } rows[] = {
        {Command::DeviceCardMode, 20000},
        {Command::InterfaceDetail, 100000},
        {Command::ScreenTake, 15000},
        {Command::AuxiliarySave, 200000},
    };
    QList<std::shared_ptr<s_CommandTimeout>> timeouts;
    for (const auto &row : rows) {
        const s_CommandTimeout timeout{baseCode(row.command), functionCode(row.command),
                                       row.milliseconds};
        timeouts.append(std::make_shared<s_CommandTimeout>(timeout));
    }
    return timeouts;
}

} // namespace

Device::Device(unsigned short id, QObject *parent)
    : QObject(parent), d(std::make_unique<DevicePrivate>(*this, id))
{
    if (!parent)
        liveOnApplicationThread(*this);
    d->config.timeouts = slowCommands();
}

Device::~Device() = default;

// clang-format off
QString Device::sn() const        { return d->get(&DeviceState::sn); }
QString Device::MAC() const       { return d->get(&DeviceState::mac); }
QString Device::IPAddress() const { return d->get(&DeviceState::ip); }
QString Device::name() const      { return d->get(&DeviceState::name); }

unsigned short Device::modelId() const                                  { return d->get(&DeviceState::modelId); }
bool Device::isOnline() const                                           { return d->get(&DeviceState::online); }
bool Device::isSyncDataSuccess() const                                  { return d->get(&DeviceState::syncSuccess); }
ProtoModel::DeviceBaseInfo Device::deviceBaseInfo() const               { return d->get(&DeviceState::info); }
ProtoModel::Auxiliary::s_DeviceProcess Device::deviceProcess() const    { return d->get(&DeviceState::process); }
ProtoModel::s_RGB Device::cutoutRGB() const                             { return d->settings->cutout(); }

void Device::setIPAddress(QString ip)                 { d->set(DevicePrivate::Part::Identity,    &DeviceState::ip,          ip); }
void Device::setName(const QString &name)             { d->set(DevicePrivate::Part::Identity,    &DeviceState::name,        name); }
void Device::setModelId(unsigned short modelId)       { d->set(DevicePrivate::Part::Identity,    &DeviceState::modelId,     modelId); }
void Device::setDeviceOnlineFlag(const bool &online)  { d->set(DevicePrivate::Part::OnlineFlag,  &DeviceState::online,      online); }
void Device::setSyncDataSuccess(bool success)         { d->set(DevicePrivate::Part::SyncSuccess, &DeviceState::syncSuccess, success); }
// clang-format on

QString Device::ipMacSn() const
{
    return d->read([](const DeviceState &state) {
        return state.ip + QLatin1Char(' ') + state.mac + QLatin1Char(' ') + state.sn;
    });
}

void Device::updateDeviceBaseInfo(ProtoModel::DeviceBaseInfo info)
{
    d->setIdentity(std::move(info));
}

unsigned short Device::tcpProtocolVersion() const
{
    return d->read([](const DeviceState &state) { return state.info.protocolVersion; });
}

s_DeviceConfig &Device::deviceConfig()
{
    return d->config;
}

std::weak_ptr<Screen> Device::findScreen(int screenType, unsigned char screenId) const
{
    return d->contents.findScreen(objectId(ProtoModel::s_ScreenId{screenId, screenType}));
}

std::weak_ptr<Interface> Device::findInterface(const ProtoModel::s_InterfaceID &id) const
{
    return d->contents.findInterface(objectId(id));
}

std::weak_ptr<File> Device::findFile(Enum::File::FileType fileType, int fileId) const
{
    return d->contents.findFile(objectId(ProtoModel::s_FileIdentity{fileId, fileType}));
}

std::weak_ptr<Layer> Device::findLayer(const ProtoModel::Layer::s_LayerIdentity &identity) const
{
    return d->contents.findLayer(objectId(identity));
}

QList<std::weak_ptr<Screen>> Device::screens(int mask) const
{
    QList<std::weak_ptr<Screen>> list;
    const auto all = d->contents.screens();
    for (const auto &screen : all) {
        const int type = screen->screenType();
        if (type >= 0 && type < 31 && (mask & 1 << type) != 0)
            list.append(screen);
    }
    return list;
}

QList<std::weak_ptr<Interface>> Device::interfaces() const
{
    return weakList(d->contents.interfaces());
}

QList<std::weak_ptr<Layer>> Device::layers() const
{
    return weakList(d->contents.layers());
}

QList<std::weak_ptr<File>> Device::files() const
{
    return weakList(d->contents.files());
}

std::weak_ptr<Screen> Device::activedScreen() const
{
    return d->contents.activeScreen();
}

std::weak_ptr<MVRScreen> Device::activedMVRScreen() const
{
    return d->contents.activeMultiviewer();
}

void Device::setActivedScreen(std::weak_ptr<Screen> screen)
{
    if (d->contents.setActive(screen.lock()))
        d->tell(DevicePrivate::Part::ActiveScreens);
}

} // namespace Tavoro::BizModel
