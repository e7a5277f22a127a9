#pragma once

#include <tavorocontrol/proto/rgb.h>

#include <QSize>

#include <map>
#include <mutex>
#include <optional>

namespace Tavoro::BizModel {

/// What belongs to a device but is not among the data that are read from it: the layouts of its
/// multiviewer screens and the cutout colour.
///
/// Settings outlive the objects of the device, which are re-created whenever it is read, and pass
/// to the device object that replaces this one. All members may be called from any thread.
class UserSettings {
public:
    /// Columns and rows of a multiviewer screen; 4 by 4 as long as none are set.
    QSize layout(int screenId) const;
    void setLayout(int screenId, const QSize &span);
    /// The layouts that are set, by screen ID.
    std::map<int, QSize> layouts() const;

    /// The default colour as long as none is set.
    ProtoModel::s_RGB cutout() const;
    void setCutout(const ProtoModel::s_RGB &color);

    /// Takes over what \a former has and this one has not.
    void adopt(const UserSettings &former);
    void clear();

private:
    struct Values {
        std::map<int, QSize> layouts;
        std::optional<ProtoModel::s_RGB> cutout;
    };

    Values values() const;

    mutable std::mutex m_mutex;
    Values m_values; // guarded by m_mutex
};

} // namespace Tavoro::BizModel
