#pragma once

#include "storedmodel.h"

#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>

#include <memory>
#include <string>

/// A device in an old and a new state. The states differ in every kind of row of the store, and are
/// long enough for a save to write many pages.
namespace StoredStates {

enum State {
    Mixed = -1, ///< Neither of the two.
    Old,
    New
};

inline std::string nameIn(State state)
{
    return state == Old ? "old" : "new";
}

inline std::shared_ptr<Tavoro::BizModel::Device> deviceIn(State state)
{
    auto made = ModelRecords::device();
    const std::string name = nameIn(state);
    QString error;
    ModelRecords::s_DeviceDetail detail;
    detail.general.name = name;
    made->initModelData(detail, error);
    std::vector<ModelRecords::s_InterfaceDetail> interfaces;
    for (int slot = 0; slot < 20; ++slot)
        interfaces.push_back(ModelRecords::interface({slot, 0, 0}, name));
    made->initModelData(interfaces, error);
    made->initModelData(std::vector{ModelRecords::file(0, state, std::string(20000, name[0]))},
                        error);
    return made;
}

inline State stateOf(const Tavoro::BizModel::Device &device)
{
    const std::string name = device.deviceDetail().general.name;
    const auto interfaces = device.interfaces();
    for (const auto &interface : interfaces) {
        if (interface.lock()->detail().general.name != name)
            return Mixed;
    }
    const State state = name == nameIn(Old) ? Old : New;
    const bool isWhole = interfaces.size() == 20 && device.files().size() == 1
        && !device.findFile(Tavoro::BizModel::Enum::File::Background, state).expired();
    return isWhole && name == nameIn(state) ? state : Mixed;
}

} // namespace StoredStates
