#pragma once

#include <tavorobizmodel/screen.h>

#include <QSize>

namespace Tavoro::BizModel {

class UserSettings;

/// A multiviewer: a screen that shows the operator many sources at once. Every screen of the type
/// \c MultiviewerScreen is one, and no other. All members may be called from any thread.
class TAVOROBIZMODEL_EXPORT MVRScreen : public Screen {
    Q_OBJECT

public:
    /// For Device, which creates its screens.
    MVRScreen(const ProtoModel::Screen::s_ScreenFullDetail &detail, std::weak_ptr<Device> device,
              std::shared_ptr<UserSettings> settings);
    ~MVRScreen() override;

    /// The user's layout of the sources: columns as width, rows as height; 4 by 4 by default. The
    /// device does not know it. It belongs to the screen ID, outlives the screen object, and
    /// follows the device to another address and into the store.
    QSize rowColSpan() const;
    /// Sets that layout. Emits screenChanged(). The store has it with the next save.
    void setRowColSpan(QSize span);

private:
    const std::shared_ptr<UserSettings> m_settings;
};

} // namespace Tavoro::BizModel
