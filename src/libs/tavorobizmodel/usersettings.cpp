#include "usersettings_p.h"

namespace Tavoro::BizModel {

namespace {

constexpr QSize defaultLayout(4, 4);

} // namespace

QSize UserSettings::layout(int screenId) const
{
    const std::lock_guard lock(m_mutex);
    const auto place = m_values.layouts.find(screenId);
    return place == m_values.layouts.end() ? defaultLayout : place->second;
}

void UserSettings::setLayout(int screenId, const QSize &span)
{
    const std::lock_guard lock(m_mutex);
    m_values.layouts[screenId] = span;
}

std::map<int, QSize> UserSettings::layouts() const
{
    return values().layouts;
}

ProtoModel::s_RGB UserSettings::cutout() const
{
    return values().cutout.value_or(ProtoModel::s_RGB());
}

void UserSettings::setCutout(const ProtoModel::s_RGB &color)
{
    const std::lock_guard lock(m_mutex);
    m_values.cutout = color;
}

void UserSettings::adopt(const UserSettings &former)
{
    Values adopted = former.values();
    const std::lock_guard lock(m_mutex);
    m_values.layouts.merge(adopted.layouts);
    if (!m_values.cutout)
        m_values.cutout = adopted.cutout;
}

void UserSettings::clear()
{
    const std::lock_guard lock(m_mutex);
    m_values = {};
}

UserSettings::Values UserSettings::values() const
{
    const std::lock_guard lock(m_mutex);
    return m_values;
}

} // namespace Tavoro::BizModel
