#pragma once

#include "datafaults_p.h"
#include "devicecontents_p.h"
#include "objectid_p.h"

#include <memory>
#include <utility>
#include <vector>

namespace Tavoro::BizModel {

// clang-format off
inline const ProtoModel::s_InterfaceID          &identityOf(const ProtoModel::Interface::s_InterfaceDetail &detail) { return detail.interfaceId; }
inline const ProtoModel::s_ScreenId             &identityOf(const ProtoModel::Screen::s_ScreenFullDetail &detail)   { return detail; }
inline const ProtoModel::Layer::s_LayerIdentity &identityOf(const ProtoModel::Layer::s_LayerFullDetail &detail)     { return detail.layerIdenti; }
inline const ProtoModel::s_FileIdentity         &identityOf(const ProtoModel::File::s_FileDetail &detail)           { return detail; }
// clang-format on

/// Calls \a make for each record, and returns the objects that it returns; a record for which it
/// returns null is left out. If two records have the same identity, the first one is used.
template <class Object, class Detail, class Make>
ObjectTable<Object> makeObjects(const std::vector<Detail> &details, DataFaults &faults,
                                const Make &make)
{
    ObjectTable<Object> objects;
    for (const Detail &detail : details) {
        const auto &identity = identityOf(detail);
        if (objects.contains(objectId(identity)))
            faults.addDuplicate(quoted(identity));
        else if (std::shared_ptr<Object> object = make(detail))
            objects.assign(objectId(identity), std::move(object));
    }
    return objects;
}

/// Makes a screen, which is an MVRScreen for a multiviewer.
inline std::shared_ptr<Screen> makeScreen(const ProtoModel::Screen::s_ScreenFullDetail &detail,
                                          std::weak_ptr<Device> device,
                                          const std::shared_ptr<UserSettings> &settings)
{
    if (detail.screenType == Enum::Screen::MultiviewerScreen)
        return std::make_shared<MVRScreen>(detail, std::move(device), settings);
    return std::make_shared<Screen>(detail, std::move(device));
}

} // namespace Tavoro::BizModel
