#include "usersettings_p.h"

#include <tavorobizmodel/mvrscreen.h>

#include <utility>

namespace Tavoro::BizModel {

MVRScreen::MVRScreen(const ProtoModel::Screen::s_ScreenFullDetail &detail,
                     std::weak_ptr<Device> device, std::shared_ptr<UserSettings> settings)
    : Screen(detail, std::move(device)), m_settings(std::move(settings))
{ }

MVRScreen::~MVRScreen() = default;

QSize MVRScreen::rowColSpan() const
{
    return m_settings->layout(screenId());
}

void MVRScreen::setRowColSpan(QSize span)
{
    m_settings->setLayout(screenId(), span);
    notifyChange();
}

} // namespace Tavoro::BizModel
