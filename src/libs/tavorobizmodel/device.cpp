#include "devicebuilder_p.h"
#include "deviceprivate_p.h"
#include "objectprivate_p.h"

#include <tavorobizmodel/mvrscreen.h>
#include <tavorossproxy/commandcodes.h>

#include <utility>

namespace Tavoro::BizModel {

using Part = DevicePrivate::Part;

namespace {

/// Commands for which a device may need longer than the default timeout.
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

using ProtoModel::Screen::s_ScreenGenlockBody;

/// A screen without a record has the default status.
bool hasOtherStatus(const std::optional<s_ScreenGenlockBody> &before,
                    const std::optional<s_ScreenGenlockBody> &now)
{
    const auto status = [](const std::optional<s_ScreenGenlockBody> &genlock) {
        return genlock.value_or(s_ScreenGenlockBody()).genlockSignal.status;
    };
    return status(before) != status(now);
}

/// Builds the objects of \a details. Returns false with the first few faults in \a error.
template <class Details>
bool build(Device &device, const Details &details, QString &error)
{
    DeviceBuilder builder(device);
    builder.build(details);
    return builder.report(error);
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
QString Device::sn() const        { return d->value(&DeviceState::sn); }
QString Device::MAC() const       { return d->value(&DeviceState::mac); }
QString Device::IPAddress() const { return d->value(&DeviceState::ip); }
QString Device::name() const      { return d->value(&DeviceState::name); }

unsigned short Device::modelId() const                                  { return d->value(&DeviceState::modelId); }
bool Device::isOnline() const                                           { return d->value(&DeviceState::online); }
bool Device::isSyncDataSuccess() const                                  { return d->value(&DeviceState::syncSuccess); }
ProtoModel::DeviceBaseInfo Device::deviceBaseInfo() const               { return d->value(&DeviceState::info); }
ProtoModel::Auxiliary::s_DeviceProcess Device::deviceProcess() const    { return d->records.process(); }
ProtoModel::s_RGB Device::cutoutRGB() const                             { return d->settings->cutout(); }

void Device::setIPAddress(QString ip)                 { d->set(Part::Identity,    &DeviceState::ip,          ip); }
void Device::setName(const QString &name)             { d->set(Part::Identity,    &DeviceState::name,        name); }
void Device::setModelId(unsigned short modelId)       { d->set(Part::Identity,    &DeviceState::modelId,     modelId); }
void Device::setDeviceOnlineFlag(const bool &online)  { d->set(Part::OnlineFlag,  &DeviceState::online,      online); }
void Device::setSyncDataSuccess(bool success)         { d->set(Part::SyncSuccess, &DeviceState::syncSuccess, success); }
// clang-format on

QString Device::ipMacSn() const
{
    return d->read([](const DeviceState &state) {
        return state.ip + QLatin1Char(' ') + state.mac + QLatin1Char(' ') + state.sn;
    });
}

void Device::updateDeviceBaseInfo(ProtoModel::DeviceBaseInfo info)
{
    d->setIdentity(info);
}

unsigned short Device::tcpProtocolVersion() const
{
    return d->read([](const DeviceState &state) { return state.info.protocolVersion; });
}

s_DeviceConfig &Device::deviceConfig()
{
    return d->config;
}

ProtoModel::Device::s_DeviceDetail Device::deviceDetail() const
{
    return d->records.detail();
}

std::vector<ProtoModel::Screen::s_ScreenGenlockBody> Device::screenGenlocks() const
{
    return d->records.screenGenlocks();
}

std::optional<ProtoModel::Device::s_subcardBody> Device::findSubcard(int slotId) const
{
    return d->records.findSubcard(slotId);
}

std::optional<ProtoModel::Device::s_PowerBody> Device::findPower(int powerId) const
{
    return d->records.findPower(powerId);
}

std::optional<ProtoModel::Device::s_DeviceGroupInfoBody>
Device::findGroup(const std::string &groupId) const
{
    return d->records.findGroup(groupId);
}

void Device::clearAll(bool keepUserSettings)
{
    d->keepInterfaceCrops();
    d->keepLayerCrops();
    d->contents.take(Interfaces());
    d->contents.take(Layers());
    const bool wasActive = d->contents.take(Screens(), DeviceContents::ActiveScreens::AreCleared);
    d->contents.take(Files());
    if (!keepUserSettings)
        d->settings->clear();
    for (const Part part : {Part::Interfaces, Part::Screens, Part::Layers, Part::Files})
        d->notify(part);
    if (wasActive)
        d->notify(Part::ActiveScreens);
}

bool Device::initModelData(const ProtoModel::Device::s_DeviceDetail &detail, QString &error)
{
    return build(*this, detail, error);
}

bool Device::initModelData(const std::vector<ProtoModel::Interface::s_InterfaceDetail> &details,
                           QString &error)
{
    return build(*this, details, error);
}

bool Device::initModelData(const std::vector<ProtoModel::File::s_FileDetail> &details,
                           QString &error)
{
    return build(*this, details, error);
}

bool Device::initModelData(const std::vector<ProtoModel::Screen::s_ScreenFullDetail> &details,
                           QString &error)
{
    return build(*this, details, error);
}

bool Device::initModelData(const std::vector<ProtoModel::Layer::s_LayerFullDetail> &details,
                           QString &error)
{
    return build(*this, details, error);
}

bool Device::updateSlotModelData(const ProtoModel::Device::s_subcards &reported,
                                 const ProtoModel::Device::s_DeviceDetail &detail, QString &error)
{
    KeyedList<int, ProtoModel::Device::s_subcardBody> read;
    for (const auto &card : detail.subcards)
        read.assign(card.slotId, card);
    std::vector<ProtoModel::Device::s_subcardBody> cards;
    for (const auto &report : reported.subcards) {
        const auto card = read.find(report.slotId);
        if (!card) {
            error = tr("The device has no slot %1").arg(report.slotId);
            return false;
        }
        cards.push_back(*card);
    }
    updateSubCard(cards);
    return true;
}

void Device::setDeviceProcess(ProtoModel::Auxiliary::s_DeviceProcess process)
{
    d->records.setProcess(process);
    d->notify(Part::Process);
}

void Device::setGenlockOnStatus(const ProtoModel::Device::s_GenlockSignalBody &signal)
{
    d->records.setGenlockSignal(signal);
    d->notify(Part::GenlockSignal);
}

void Device::updateInterfaceRelation(const std::vector<ProtoModel::Device::s_Relation> &relations)
{
    d->records.setRelations(relations);
    d->notify(Part::InterfaceRelations);
}

void Device::updateDeviceGroupInfo(const ProtoModel::Device::s_DeviceGroupInfoBody &group)
{
    d->records.setGroup(group);
    d->notify(Part::Groups);
}

void Device::updateSubCard(const std::vector<ProtoModel::Device::s_subcardBody> &subcards)
{
    d->records.setSubcards(subcards);
    d->notify(Part::Subcards);
}

void Device::setPower(const std::vector<ProtoModel::Device::s_PowerBody> &powers)
{
    d->records.setPowers(powers);
    d->notify(Part::Powers);
}

bool Device::updateCutoutRGB(const ProtoModel::s_RGB &color, QString & /*error*/)
{
    d->settings->setCutout(color);
    d->notify(Part::CutoutRGB);
    return true;
}

void Device::setScreenGenlocks(const std::vector<s_ScreenGenlockBody> &genlocks)
{
    ScreenGenlocks now;
    for (const auto &genlock : genlocks)
        now.assign(objectId(genlock), genlock);
    const ScreenGenlocks before = d->records.setScreenGenlocks(now);
    d->notify(Part::ScreenGenlocks);
    if (signalsBlocked())
        return;
    const auto screens = d->contents.screens();
    for (const auto &screen : screens) {
        if (hasOtherStatus(before.find(objectId(*screen)), now.find(objectId(*screen))))
            Q_EMIT screen->screenChanged();
    }
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
        d->notify(Part::ActiveScreens);
}

} // namespace Tavoro::BizModel
