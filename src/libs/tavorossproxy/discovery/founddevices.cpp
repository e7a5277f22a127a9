#include "founddevices_p.h"

#include <algorithm>

namespace Tavoro::SSProxy::Internal {

namespace {

/// Limits the memory of a search: a peer may answer under any number of identities.
constexpr std::size_t maxDevices = 1024;

} // namespace

void FoundDevices::add(const ProtoModel::DeviceBaseInfo &device)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto isSame = [&](const auto &known) {
        return known.sn == device.sn && known.mac == device.mac;
    };
    if (m_devices.size() < maxDevices && std::none_of(m_devices.begin(), m_devices.end(), isSame))
        m_devices.push_back(device);
    m_changed.notify_all();
}

void FoundDevices::fail(const QString &error)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_error = error;
    m_changed.notify_all();
}

std::vector<ProtoModel::DeviceBaseInfo> FoundDevices::await(std::chrono::milliseconds time,
                                                            int enough, QString &error)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.wait_for(lock, time, [this, enough] {
        return !m_error.isEmpty()
            || (enough > 0 && m_devices.size() >= static_cast<std::size_t>(enough));
    });
    if (!m_error.isEmpty())
        error = m_error;
    return m_devices;
}

} // namespace Tavoro::SSProxy::Internal
