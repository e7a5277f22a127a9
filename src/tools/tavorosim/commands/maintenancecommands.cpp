#include "maintenancecommands.h"

#include "filecommands.h"
#include "handlers_p.h"

#include <tavorosim/state/picture.h>
#include <tavorosim/state/setupstore.h>
#include <tavorosim/state/units.h>

#include <QDateTime>

#include <algorithm>

namespace Tavoro::Sim {

using namespace ProtoModel;
using namespace ProtoModel::Auxiliary;

namespace {

/// The meanings of \c s_AuxiliaryOpt::type.
/// @{
enum PowerOption : qint32 {
    Restart = 0,
    ShutDown = 1,
};
enum FactoryOption : qint32 {
    SetupOnly = 0,
    SetupAndFiles = 1,
};
enum LossOption : qint32 {
    StopCounting = 0,
    StartCounting = 1,
    ClearCounts = 2,
};
/// @}

constexpr qint64 restartTime = 1000; ///< Milliseconds.
constexpr qint64 loadTimePerFile = 100;

/// Reads an option that is at most \a most.
DeviceStatus readOption(const Request &request, qint32 most, qint32 &type)
{
    s_AuxiliaryOpt option;
    if (!decoded(request.body, option))
        return DeviceStatus::MalformedBody;
    type = option.type;
    return type >= 0 && type <= most ? DeviceStatus::Success : DeviceStatus::ValueOutOfRange;
}

s_DeviceProcess loadOf(const SimState &state)
{
    const Maintenance &now = state.maintenance;
    s_DeviceProcess process;
    process.status = now.isLoading ? 1 : 0;
    process.totalProcess = 100;
    if (!now.isLoading)
        return process;
    const FileIndex &index = state.files.index();
    const auto all = static_cast<qint64>(index.size()) * loadTimePerFile;
    process.totalProcess = static_cast<quint8>(now.loaded < all ? now.loaded * 100 / all : 100);
    qint64 left = now.loaded;
    for (const auto &[key, file] : index) {
        const qint64 done = std::clamp<qint64>(left, 0, loadTimePerFile);
        process.processDetails.push_back({static_cast<quint32>(key.first),
                                          static_cast<quint32>(key.second),
                                          static_cast<quint8>(done * 100 / loadTimePerFile)});
        left -= loadTimePerFile;
    }
    return process;
}

void advanceLoading(SimState &state, qint64 milliseconds, Reports &reports)
{
    Maintenance &now = state.maintenance;
    if (!now.isLoading)
        return;
    const quint8 before = loadOf(state).totalProcess;
    now.loaded += milliseconds;
    now.isLoading = now.loaded < static_cast<qint64>(state.files.index().size()) * loadTimePerFile;
    const s_DeviceProcess process = loadOf(state);
    if (process.totalProcess != before)
        reports.push_back({Command::AuxiliaryLoadProgress, encoded(process)});
}

s_SelfCheckItem item(quint8 sequence, const char *name, const char *value, const char *max,
                     const char *min, bool isGood)
{
    return {sequence, name, value, max, min, static_cast<quint8>(isGood ? 0 : 1), 1};
}

} // namespace

DeviceStatus writePower(SimState &state, const Request &request, Reports & /*reports*/)
{
    qint32 type = 0;
    const DeviceStatus status = readOption(request, ShutDown, type);
    if (status != DeviceStatus::Success)
        return status;
    switchOff(state, type == Restart ? Power::Restarting : Power::Off);
    return DeviceStatus::Success;
}

DeviceStatus writeFactoryReset(SimState &state, const Request &request, Reports & /*reports*/)
{
    qint32 type = 0;
    const DeviceStatus status = readOption(request, SetupAndFiles, type);
    if (status != DeviceStatus::Success)
        return status;
    FileChanges changes = state.files.change();
    if (type == SetupAndFiles)
        changes.removeAll();
    if (!saveSetup(state.files, changes, state.factory))
        return DeviceStatus::StorageFailed;
    state.saved = state.factory;
    static_cast<Setup &>(state) = state.factory;
    return DeviceStatus::Success;
}

DeviceStatus writeSave(SimState &state, const Request & /*request*/, Reports & /*reports*/)
{
    if (!saveSetup(state.files, state.files.change(), state))
        return DeviceStatus::StorageFailed;
    state.saved = state;
    return DeviceStatus::Success;
}

DeviceStatus writeLossCount(SimState &state, const Request &request, Reports & /*reports*/)
{
    qint32 type = 0;
    const DeviceStatus status = readOption(request, ClearCounts, type);
    if (status != DeviceStatus::Success)
        return status;
    if (type == ClearCounts)
        state.maintenance.losses.clear();
    else
        state.maintenance.countsLosses = type == StartCounting;
    return DeviceStatus::Success;
}

std::string readLosses(const SimState &state, const Request & /*request*/)
{
    const auto &losses = state.maintenance.losses;
    std::vector<s_SourceLossStat> list;
    for (const auto &[key, interface] : state.interfaces) {
        if (interface.general.type != InputInterface)
            continue;
        const auto slot = static_cast<quint8>(interface.interfaceId.slotId);
        const auto connector = static_cast<quint8>(interface.interfaceId.connectorId);
        if (list.empty() || list.back().slotId != slot)
            list.push_back({slot, {}});
        const quint32 *const times = findValue(losses, {slot, connector});
        list.back().connectors.push_back({connector, times ? *times : 0});
    }
    return encoded(list);
}

void countLoss(SimState &state, const s_InterfaceID &input)
{
    if (state.maintenance.countsLosses)
        ++state.maintenance
              .losses[{static_cast<quint8>(input.slotId), static_cast<quint8>(input.connectorId)}];
}

DeviceStatus writeCutoutPosition(SimState &state, const Request &request, Reports &reports)
{
    s_CutoutPos point;
    if (!decoded(request.body, point))
        return DeviceStatus::MalformedBody;
    if (!isFlag(point.enable))
        return DeviceStatus::ValueOutOfRange;
    if (point.enable == 0)
        return DeviceStatus::Success;
    const auto picture = findPicture(state, point.type, point.id);
    if (!picture)
        return DeviceStatus::NoSuchObject;
    const auto [x, y] = point.pos;
    if (x < 0 || x >= picture->width || y < 0 || y >= picture->height)
        return DeviceStatus::ValueOutOfRange;
    reports.push_back({Command::AuxiliaryCutoutRGB, encoded(picture->colorAt(x, y))});
    return DeviceStatus::Success;
}

std::string readSelfCheck(const SimState &state, const Request & /*request*/)
{
    const auto &powers = state.device.powers;
    const bool allPowered = std::all_of(powers.begin(), powers.end(),
                                        [](const auto &power) { return power.status != 0; });
    s_DeviceSelfCheckDetail detail;
    for (const Unit &unit : unitsOf(state)) {
        s_SelfCheckPart part{unit.type, unit.slotId, unit.modelId, {}};
        part.section.push_back(
            item(0, "Temperature", unit.isOnline ? "41 C" : "-", "85 C", "-10 C", unit.isOnline));
        if (unit.type == MainUnit)
            part.section.push_back(
                item(1, "Power", allPowered ? "12.1 V" : "0.0 V", "12.6 V", "11.4 V", allPowered));
        detail.parts.push_back(part);
    }
    return encoded(detail);
}

DeviceStatus writeDeviceTime(SimState &state, const Request &request, Reports & /*reports*/)
{
    s_DeviceTime time;
    if (!decoded(request.body, time))
        return DeviceStatus::MalformedBody;
    const QDate date(time.year, time.month, time.day);
    const QTime clock(time.hour, time.minute, time.second, time.millisecond);
    if (!date.isValid() || !clock.isValid())
        return DeviceStatus::ValueOutOfRange;
    Maintenance &now = state.maintenance;
    now.clockAtStart = QDateTime(date, clock, Qt::UTC).toMSecsSinceEpoch() - now.uptime;
    return DeviceStatus::Success;
}

std::string readLoad(const SimState &state, const Request & /*request*/)
{
    return encoded(loadOf(state));
}

qint64 timeOfDay(const Maintenance &maintenance)
{
    return maintenance.clockAtStart + maintenance.uptime;
}

void switchOff(SimState &state, Power power)
{
    Maintenance &now = state.maintenance;
    now.power = power;
    now.restartLeft = restartTime;
    now.isLoading = false;
    now.upgrade.interrupt();
}

void switchOn(SimState &state)
{
    Maintenance &now = state.maintenance;
    static_cast<Setup &>(state) = state.saved;
    state.announced.clear();
    now.power = Power::On;
    now.switchedOn = now.uptime;
    now.countsLosses = false;
    now.losses.clear();
    now.loaded = 0;
    now.isLoading = !state.files.index().empty();
}

bool hasTimedWork(const SimState &state)
{
    const Maintenance &now = state.maintenance;
    return now.isLoading || now.upgrade.isRunning() || now.power == Power::Restarting;
}

void advanceTime(SimState &state, qint64 milliseconds, Reports &reports)
{
    Maintenance &now = state.maintenance;
    now.uptime += milliseconds;
    if (now.power == Power::Restarting) {
        now.restartLeft -= milliseconds;
        if (now.restartLeft <= 0)
            switchOn(state);
    } else if (now.power == Power::On) {
        advanceLoading(state, milliseconds, reports);
        if (now.upgrade.advance(milliseconds))
            switchOff(state, Power::Restarting);
    }
}

} // namespace Tavoro::Sim
