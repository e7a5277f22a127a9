#pragma once

#include <tavorobizmodel/screen.h>

#include <QSize>

namespace Tavoro::BizModel {

class UserSettings;

/// A screen that shows many sources at once, for the operator's eyes. The only screens of the type
/// \c MultiviewerScreen.
class TAVOROBIZMODEL_EXPORT MVRScreen : public Screen {
    Q_OBJECT

public:
    MVRScreen(const ProtoModel::Screen::s_ScreenFullDetail &detail, std::weak_ptr<Device> device,
              std::shared_ptr<UserSettings> settings);
    ~MVRScreen() override;

    /// Columns, as width, and rows, as height, in which the user arranged the sources; 4 by 4 until
    /// told otherwise. The device does not know it: it stays with the screen's number.
    QSize rowColSpan() const;
    void setRowColSpan(QSize span);

private:
    const std::shared_ptr<UserSettings> m_settings;
};

} // namespace Tavoro::BizModel
