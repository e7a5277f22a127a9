#include "devicerecords_p.h"

#include <utility>

namespace Tavoro::BizModel {

using ProtoModel::Device::s_DeviceDetail;

void DeviceRecords::replace(s_DeviceDetail detail, Subcards subcards, Powers powers, Groups groups)
{
    const std::lock_guard lock(m_mutex);
    m_detail = std::move(detail);
    m_subcards = std::move(subcards);
    m_powers = std::move(powers);
    m_groups = std::move(groups);
}

s_DeviceDetail DeviceRecords::detail() const
{
    const std::lock_guard lock(m_mutex);
    s_DeviceDetail detail = m_detail;
    detail.subcards = m_subcards.values();
    detail.powers = m_powers.values();
    detail.groupInfos = m_groups.values();
    return detail;
}

void DeviceRecords::setProcess(const ProtoModel::Auxiliary::s_DeviceProcess &process)
{
    const std::lock_guard lock(m_mutex);
    m_process = process;
}

void DeviceRecords::setGenlockSignal(const ProtoModel::Device::s_GenlockSignalBody &signal)
{
    const std::lock_guard lock(m_mutex);
    m_detail.genlockSignal = signal;
}

void DeviceRecords::setRelations(const std::vector<ProtoModel::Device::s_Relation> &relations)
{
    const std::lock_guard lock(m_mutex);
    m_detail.interfaceRelation.relation = relations;
}

void DeviceRecords::setGroup(const ProtoModel::Device::s_DeviceGroupInfoBody &group)
{
    const std::lock_guard lock(m_mutex);
    m_groups.assign(group.groupId, group);
}

void DeviceRecords::setSubcards(const std::vector<ProtoModel::Device::s_subcardBody> &subcards)
{
    const std::lock_guard lock(m_mutex);
    for (const auto &card : subcards)
        m_subcards.assign(card.slotId, card);
}

void DeviceRecords::setPowers(const std::vector<ProtoModel::Device::s_PowerBody> &powers)
{
    const std::lock_guard lock(m_mutex);
    m_powers.clear();
    for (const auto &power : powers)
        m_powers.assign(power.powerId, power);
}

ScreenGenlocks DeviceRecords::setScreenGenlocks(ScreenGenlocks genlocks)
{
    const std::lock_guard lock(m_mutex);
    return std::exchange(m_screenGenlocks, std::move(genlocks));
}

ProtoModel::Auxiliary::s_DeviceProcess DeviceRecords::process() const
{
    const std::lock_guard lock(m_mutex);
    return m_process;
}

std::vector<ProtoModel::Screen::s_ScreenGenlockBody> DeviceRecords::screenGenlocks() const
{
    const std::lock_guard lock(m_mutex);
    return m_screenGenlocks.values();
}

std::optional<ProtoModel::Screen::s_ScreenGenlockBody>
DeviceRecords::findScreenGenlock(const ObjectId &screen) const
{
    const std::lock_guard lock(m_mutex);
    return m_screenGenlocks.find(screen);
}

std::optional<ProtoModel::Device::s_subcardBody> DeviceRecords::findSubcard(int slotId) const
{
    const std::lock_guard lock(m_mutex);
    return m_subcards.find(slotId);
}

std::optional<ProtoModel::Device::s_PowerBody> DeviceRecords::findPower(int powerId) const
{
    const std::lock_guard lock(m_mutex);
    return m_powers.find(powerId);
}

std::optional<ProtoModel::Device::s_DeviceGroupInfoBody>
DeviceRecords::findGroup(const std::string &groupId) const
{
    const std::lock_guard lock(m_mutex);
    return m_groups.find(groupId);
}

} // namespace Tavoro::BizModel
