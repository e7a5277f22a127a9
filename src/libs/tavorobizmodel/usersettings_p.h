#pragma once

#include "objectid_p.h"

#include <tavorocontrol/proto/rgb.h>
#include <tavorocontrol/proto/signalbodies.h>

#include <QSize>

#include <cstddef>
#include <map>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

namespace Tavoro::BizModel {

/// Settings of a device that are not read from it: the layouts of its multiviewer screens, the
/// cutout colour, and the pixels of crops, which the model computes from the last video signal.
///
/// Settings outlive the objects of the device, which are re-created whenever it is read. A device
/// object that replaces another one takes over its settings. All members may be called from any
/// thread.
class UserSettings {
public:
    enum class CropOwner {
        Interface,
        Layer,
    };

    /// Columns and rows of a multiviewer screen; 4 by 4 if they are not set.
    QSize layout(int screenId) const;
    void setLayout(int screenId, const QSize &span);
    /// The layouts that are set, by screen ID.
    std::map<int, QSize> layouts() const;

    /// The cutout colour; the default one if it is not set.
    ProtoModel::s_RGB cutout() const;
    void setCutout(const ProtoModel::s_RGB &color);

    /// Keeps the crops of an interface or a layer.
    void keepCrops(CropOwner owner, const ObjectId &id,
                   const std::vector<ProtoModel::s_CropBody> &crops);
    /// Restores the kept pixels of \a crop, which has the index \a index at its owner, if it is
    /// still the same share of the picture.
    void restorePixels(CropOwner owner, const ObjectId &id, std::size_t index,
                       ProtoModel::s_CropBody &crop) const;

    /// Takes over the settings of \a former that are not set here.
    void adopt(const UserSettings &former);
    void clear();

private:
    struct Values {
        std::map<int, QSize> layouts;
        std::optional<ProtoModel::s_RGB> cutout;
        std::map<std::pair<CropOwner, ObjectId>, std::vector<ProtoModel::s_CropBody>> crops;
    };

    Values values() const;

    mutable std::mutex m_mutex;
    Values m_values; // guarded by m_mutex
};

} // namespace Tavoro::BizModel
