#include "servicemanager.h"

#include <systemd/sd-daemon.h>

#include <chrono>

namespace Tavoro::Gate {

ServiceManager::ServiceManager()
{
    connect(&m_watchdog, &QTimer::timeout, this, [] { sd_notify(0, "WATCHDOG=1"); });
}

void ServiceManager::reportReady()
{
    sd_notify(0, "READY=1");
    uint64_t microseconds = 0;
    if (sd_watchdog_enabled(0, &microseconds) > 0)
        m_watchdog.start(std::chrono::duration_cast<std::chrono::milliseconds>(
            std::chrono::microseconds(microseconds / 2)));
}

void ServiceManager::reportStopping()
{
    sd_notify(0, "STOPPING=1");
}

void ServiceManager::reportStatus(const QString &status)
{
    if (status == m_status)
        return;
    m_status = status;
    sd_notify(0, qUtf8Printable(QStringLiteral("STATUS=") + status));
}

} // namespace Tavoro::Gate
