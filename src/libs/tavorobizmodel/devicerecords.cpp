#include "devicerecords_p.h"

#include "recordequality_p.h"

#include <tavorobizmodel/device.h>

#include <utility>

namespace Tavoro::BizModel {

using ProtoModel::Device::s_DeviceDetail;

namespace {

QString keyText(int key)
{
    return QString::number(key);
}

QString keyText(const std::string &key)
{
    return QString::fromStdString(key);
}

/// Moves \a records into a list that finds them by the member \a key. If two records have the same
/// key, the first one is used. \a name is the text for the name of a record, with its key as %1.
template <class Key, class Record>
KeyedList<Key, Record> takeRecords(std::vector<Record> &records, Key Record::*key,
                                   const QString &name, DataFaults &faults)
{
    KeyedList<Key, Record> list;
    for (Record &record : records) {
        const Key value = record.*key;
        if (list.contains(value))
            faults.addDuplicate(name.arg(keyText(value)));
        else
            list.assign(value, std::move(record));
    }
    records.clear();
    return list;
}

template <auto List>
bool hasEqualList(const IndexedDetail &a, const IndexedDetail &b)
{
    return isEqual((a.*List).values(), (b.*List).values());
}

template <auto Field>
bool hasEqualField(const IndexedDetail &a, const IndexedDetail &b)
{
    return isEqual(a.detail.*Field, b.detail.*Field);
}

/// Compares the fields that no other part contains.
bool hasEqualRest(const IndexedDetail &a, const IndexedDetail &b)
{
    s_DeviceDetail rest = b.detail;
    rest.genlockSignal = a.detail.genlockSignal;
    rest.interfaceRelation = a.detail.interfaceRelation;
    return isEqual(a.detail, rest);
}

/// The parts of which the detail record consists.
constexpr struct {
    Enum::Device::DataPart part;
    bool (*isEqual)(const IndexedDetail &, const IndexedDetail &);
} partsOfDetail[] = {
    // clang-format off
    {Enum::Device::Detail,             hasEqualRest},
    {Enum::Device::Subcards,           hasEqualList<&IndexedDetail::subcards>},
    {Enum::Device::Powers,             hasEqualList<&IndexedDetail::powers>},
    {Enum::Device::GenlockSignal,      hasEqualField<&s_DeviceDetail::genlockSignal>},
    {Enum::Device::Groups,             hasEqualList<&IndexedDetail::groups>},
    {Enum::Device::InterfaceRelations, hasEqualField<&s_DeviceDetail::interfaceRelation>},
    // clang-format on
};

} // namespace

IndexedDetail indexed(s_DeviceDetail detail, DataFaults &faults)
{
    using namespace ProtoModel::Device;
    IndexedDetail result;
    result.subcards =
        takeRecords(detail.subcards, &s_subcardBody::slotId, Device::tr("Subcard %1"), faults);
    result.powers =
        takeRecords(detail.powers, &s_PowerBody::powerId, Device::tr("Power supply %1"), faults);
    result.groups = takeRecords(detail.groupInfos, &s_DeviceGroupInfoBody::groupId,
                                Device::tr("Device group %1"), faults);
    result.detail = std::move(detail);
    return result;
}

std::vector<Enum::Device::DataPart> DeviceRecords::replace(IndexedDetail read)
{
    const std::lock_guard lock(m_mutex);
    const IndexedDetail before = std::exchange(m_read, std::move(read));
    std::vector<Enum::Device::DataPart> differing;
    for (const auto &part : partsOfDetail) {
        if (!part.isEqual(before, m_read))
            differing.push_back(part.part);
    }
    return differing;
}

s_DeviceDetail DeviceRecords::detail() const
{
    const std::lock_guard lock(m_mutex);
    s_DeviceDetail detail = m_read.detail;
    detail.subcards = m_read.subcards.values();
    detail.powers = m_read.powers.values();
    detail.groupInfos = m_read.groups.values();
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
    m_read.detail.genlockSignal = signal;
}

void DeviceRecords::setRelations(const std::vector<ProtoModel::Device::s_Relation> &relations)
{
    const std::lock_guard lock(m_mutex);
    m_read.detail.interfaceRelation.relation = relations;
}

void DeviceRecords::setGroup(const ProtoModel::Device::s_DeviceGroupInfoBody &group)
{
    const std::lock_guard lock(m_mutex);
    m_read.groups.assign(group.groupId, group);
}

void DeviceRecords::setSubcards(const std::vector<ProtoModel::Device::s_subcardBody> &subcards)
{
    const std::lock_guard lock(m_mutex);
    for (const auto &card : subcards)
        m_read.subcards.assign(card.slotId, card);
}

void DeviceRecords::setPowers(const std::vector<ProtoModel::Device::s_PowerBody> &powers)
{
    const std::lock_guard lock(m_mutex);
    m_read.powers.clear();
    for (const auto &power : powers)
        m_read.powers.assign(power.powerId, power);
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
    return m_read.subcards.find(slotId);
}

std::optional<ProtoModel::Device::s_PowerBody> DeviceRecords::findPower(int powerId) const
{
    const std::lock_guard lock(m_mutex);
    return m_read.powers.find(powerId);
}

std::optional<ProtoModel::Device::s_DeviceGroupInfoBody>
DeviceRecords::findGroup(const std::string &groupId) const
{
    const std::lock_guard lock(m_mutex);
    return m_read.groups.find(groupId);
}

} // namespace Tavoro::BizModel
