#include "usersettings_p.h"

namespace Tavoro::BizModel {

namespace {

constexpr QSize defaultLayout(4, 4);

bool isSameShare(const ProtoModel::s_CropBody &a, const ProtoModel::s_CropBody &b)
{
    return a.xRatio == b.xRatio && a.yRatio == b.yRatio && a.widthRatio == b.widthRatio
        && a.heightRatio == b.heightRatio;
}

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

void UserSettings::keepCrops(CropOwner owner, const ObjectId &id,
                             const std::vector<ProtoModel::s_CropBody> &crops)
{
    const std::lock_guard lock(m_mutex);
    m_values.crops[{owner, id}] = crops;
}

void UserSettings::restorePixels(CropOwner owner, const ObjectId &id, std::size_t index,
                                 ProtoModel::s_CropBody &crop) const
{
    const std::lock_guard lock(m_mutex);
    const auto kept = m_values.crops.find({owner, id});
    if (kept != m_values.crops.end() && index < kept->second.size()
        && isSameShare(kept->second[index], crop))
        crop.rect = kept->second[index].rect;
}

void UserSettings::adopt(const UserSettings &former)
{
    Values adopted = former.values();
    const std::lock_guard lock(m_mutex);
    m_values.layouts.merge(adopted.layouts);
    m_values.crops.merge(adopted.crops);
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
