#include "mvrlayouts_p.h"

#include <tavorobizmodel/mvrscreen.h>

#include <utility>

namespace Tavoro::BizModel {

MVRScreen::MVRScreen(const ProtoModel::Screen::s_ScreenFullDetail &detail,
                     std::weak_ptr<Device> device, std::shared_ptr<MVRLayouts> layouts)
    : Screen(detail, std::move(device)), m_layouts(std::move(layouts))
{ }

MVRScreen::~MVRScreen() = default;

QSize MVRScreen::rowColSpan() const
{
    return m_layouts->find(screenId());
}

void MVRScreen::setRowColSpan(QSize span)
{
    m_layouts->set(screenId(), span);
    tellChange();
}

} // namespace Tavoro::BizModel
