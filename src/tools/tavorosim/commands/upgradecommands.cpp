#include "upgradecommands.h"

#include "handlers_p.h"

#include <tavorosim/state/units.h>

#include <algorithm>
#include <iterator>
#include <set>

namespace Tavoro::Sim {

using namespace ProtoModel::Auxiliary;

namespace {

/// The program sections of every unit.
struct SectionRow {
    quint16 code;
    const char *brief;
};
constexpr SectionRow sectionRows[] = {
    {0x0101, "program"},
    {0x0102, "logic"},
};

std::string versionText(quint32 revision)
{
    return "1.0." + std::to_string(revision);
}

bool exists(const SimState &state, const s_UpgradePart &part)
{
    const std::vector<Unit> units = unitsOf(state);
    return std::any_of(units.begin(), units.end(), [&](const Unit &unit) {
        return unit.type == part.type && unit.slotId == part.slotId && unit.isOnline;
    });
}

bool exists(quint16 section)
{
    return std::any_of(std::begin(sectionRows), std::end(sectionRows),
                       [=](const SectionRow &row) { return row.code == section; });
}

DeviceStatus checkParts(const SimState &state, const std::vector<s_UpgradePart> &parts)
{
    std::set<Upgrade::Section> named;
    for (const s_UpgradePart &part : parts) {
        if (!exists(state, part))
            return DeviceStatus::NoSuchObject;
        if (part.section.empty())
            return DeviceStatus::ValueOutOfRange;
        for (const s_UpgradeSection &section : part.section) {
            if (!exists(section.code))
                return DeviceStatus::NoSuchObject;
            if (!named.insert({{part.type, part.slotId}, section.code}).second)
                return DeviceStatus::ValueOutOfRange;
        }
    }
    return DeviceStatus::Success;
}

std::vector<s_UpgradePart> allParts(const SimState &state)
{
    std::vector<s_UpgradePart> parts;
    for (const Unit &unit : unitsOf(state)) {
        if (!unit.isOnline)
            continue;
        s_UpgradePart part{unit.type, unit.slotId, 0, {}};
        for (const SectionRow &row : sectionRows)
            part.section.push_back({row.code});
        parts.push_back(part);
    }
    return parts;
}

} // namespace

std::string readVersion(const SimState &state, const Request & /*request*/)
{
    const Upgrade &upgrade = state.maintenance.upgrade;
    s_DeviceVersion version;
    for (const Unit &unit : unitsOf(state)) {
        s_VersionPart part{unit.type, unit.slotId, unit.modelId, {}, "simulated", {}};
        for (const SectionRow &row : sectionRows) {
            const quint32 revision = upgrade.revision({{unit.type, unit.slotId}, row.code});
            part.section.push_back({row.code, versionText(revision), row.brief});
        }
        part.version =
            part.section.front().version; // The version of a unit is that of its program.
        version.parts.push_back(part);
    }
    version.version = version.parts.front().version;
    version.brief = "simulated";
    return encoded(version);
}

DeviceStatus writeUpgrade(SimState &state, const Request &request, Reports & /*reports*/)
{
    s_UpgradeDetail detail;
    if (!decoded(request.body, detail))
        return DeviceStatus::MalformedBody;
    if (state.maintenance.upgrade.isRunning())
        return DeviceStatus::Busy;
    if (detail.filePath.empty() || !isFlag(detail.reboot) || !isFlag(detail.deleteUpgradeFile))
        return DeviceStatus::ValueOutOfRange;
    const DeviceStatus status = checkParts(state, detail.parts);
    if (status != DeviceStatus::Success)
        return status;
    if (detail.parts.empty())
        detail.parts = allParts(state);
    state.maintenance.upgrade.start(detail);
    return DeviceStatus::Success;
}

std::string readUpgrade(const SimState &state, const Request & /*request*/)
{
    return encoded(state.maintenance.upgrade.progress());
}

} // namespace Tavoro::Sim
