#pragma once

#include <tavorobizmodel/screen.h>

#include <QSize>

namespace Tavoro::BizModel {

class UserSettings;

/// A multiviewer: a screen that shows the operator many sources at once. The screens of the type
/// \c MultiviewerScreen are objects of this class. All members may be called from any thread.
class TAVOROBIZMODEL_EXPORT MVRScreen : public Screen {
    Q_OBJECT

public:
    /// For Device, which creates its screens.
    MVRScreen(const ProtoModel::Screen::s_ScreenFullDetail &detail, std::weak_ptr<Device> device,
              std::shared_ptr<UserSettings> settings);
    ~MVRScreen() override;

    /// The user's layout of the sources: columns as width, rows as height; 4 by 4 by default. The
    /// device does not know it. The layout belongs to the screen ID: it outlives the screen object,
    /// is stored with the device, and is kept when the device gets another address.
    QSize rowColSpan() const;
    /// Sets the layout. Emits screenChanged(). The next save stores it.
    void setRowColSpan(QSize span);

private:
    const std::shared_ptr<UserSettings> m_settings;
};

} // namespace Tavoro::BizModel
