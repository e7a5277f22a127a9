#pragma once

#include <QSize>

#include <map>
#include <mutex>

namespace Tavoro::BizModel {

/// How the user arranged the multiviewer screens of a device, by number of the screen.
///
/// Kept apart from the screens, since the device knows nothing of it and screens are made anew
/// whenever it is read. All members may be called from any thread.
class MVRLayouts {
public:
    QSize find(int screenId) const
    {
        const std::lock_guard lock(m_mutex);
        const auto place = m_spans.find(screenId);
        return place == m_spans.end() ? QSize(4, 4) : place->second;
    }

    void set(int screenId, const QSize &span)
    {
        const std::lock_guard lock(m_mutex);
        m_spans[screenId] = span;
    }

    std::map<int, QSize> all() const
    {
        const std::lock_guard lock(m_mutex);
        return m_spans;
    }

    void clear()
    {
        const std::lock_guard lock(m_mutex);
        m_spans.clear();
    }

private:
    mutable std::mutex m_mutex;
    std::map<int, QSize> m_spans; // guarded by m_mutex
};

} // namespace Tavoro::BizModel
