#pragma once

#include "datafaults_p.h"
#include "keyedlist_p.h"
#include "objectid_p.h"

#include <tavorobizmodel/enums.h>
#include <tavorocontrol/proto/auxiliary.h>
#include <tavorocontrol/proto/device.h>
#include <tavorocontrol/proto/screen.h>

#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace Tavoro::BizModel {

using Subcards = KeyedList<int, ProtoModel::Device::s_subcardBody>;
using Powers = KeyedList<int, ProtoModel::Device::s_PowerBody>;
using Groups = KeyedList<std::string, ProtoModel::Device::s_DeviceGroupInfoBody>;
using ScreenGenlocks = KeyedList<ObjectId, ProtoModel::Screen::s_ScreenGenlockBody, ObjectIdHash>;

/// The detail record of a device, with its lists stored by key.
struct IndexedDetail {
    ProtoModel::Device::s_DeviceDetail detail; ///< Without the lists below.
    Subcards subcards;
    Powers powers;
    Groups groups;
};

/// Moves the lists of \a detail. If a key occurs twice, its first record is used.
IndexedDetail indexed(ProtoModel::Device::s_DeviceDetail detail, DataFaults &faults);

/// The records of the device as a whole: as read, and updated by reports. All members may be called
/// from any thread.
class DeviceRecords {
public:
    /// Replaces the records by those of a read. Returns the parts that differ.
    std::vector<Enum::Device::DataPart> replace(IndexedDetail read);
    /// Returns the details of the device, including all lists.
    ProtoModel::Device::s_DeviceDetail detail() const;

    void setProcess(const ProtoModel::Auxiliary::s_DeviceProcess &process);
    void setGenlockSignal(const ProtoModel::Device::s_GenlockSignalBody &signal);
    void setRelations(const std::vector<ProtoModel::Device::s_Relation> &relations);
    /// Replaces the group of the same ID, or adds it.
    void setGroup(const ProtoModel::Device::s_DeviceGroupInfoBody &group);
    /// Replaces the cards in the same slots, or adds them.
    void setSubcards(const std::vector<ProtoModel::Device::s_subcardBody> &subcards);
    /// Replaces all power supplies.
    void setPowers(const std::vector<ProtoModel::Device::s_PowerBody> &powers);
    /// Replaces the genlock states of all screens. Returns the previous ones.
    ScreenGenlocks setScreenGenlocks(ScreenGenlocks genlocks);

    ProtoModel::Auxiliary::s_DeviceProcess process() const;
    std::vector<ProtoModel::Screen::s_ScreenGenlockBody> screenGenlocks() const;
    std::optional<ProtoModel::Screen::s_ScreenGenlockBody>
    findScreenGenlock(const ObjectId &screen) const;
    std::optional<ProtoModel::Device::s_subcardBody> findSubcard(int slotId) const;
    std::optional<ProtoModel::Device::s_PowerBody> findPower(int powerId) const;
    std::optional<ProtoModel::Device::s_DeviceGroupInfoBody>
    findGroup(const std::string &groupId) const;

private:
    mutable std::mutex m_mutex;
    IndexedDetail m_read; // guarded by m_mutex, as all below
    ScreenGenlocks m_screenGenlocks;
    ProtoModel::Auxiliary::s_DeviceProcess m_process;
};

} // namespace Tavoro::BizModel
