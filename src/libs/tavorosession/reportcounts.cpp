#include "reportcounts_p.h"

#include <tavorooperations/operation.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/devicemanager.h>
#include <tavorossproxy/networkchannel.h>

namespace Tavoro::SessionInternal {

using Operations::Scope;
using Operations::ScopeKind;
using SSProxy::DeviceManager;

namespace {

/// The base code of the commands of each kind, which is also that of its reports.
std::array<quint8, ReportCounts::kindCount> baseCodes()
{
    std::array<quint8, ReportCounts::kindCount> codes{};
    for (std::size_t kind = 0; kind < codes.size(); ++kind) {
        Scope scope;
        scope.kind = static_cast<ScopeKind>(kind);
        codes[kind] = SSProxy::baseCode(Operations::find(scope.readOperation())->command());
    }
    return codes;
}

} // namespace

/// Counts on the channels' thread, before any other thread handles the report.
ReportCounts::ReportCounts(const std::shared_ptr<SSProxy::NetworkChannel> &channel)
{
    static const auto codes = baseCodes();
    const std::weak_ptr<SSProxy::DeviceChannel> counted = channel;
    m_connection = QObject::connect(
        DeviceManager::instance(), &DeviceManager::parseDeviceAutoReportFinished,
        [counts = m_counts, counted](const std::weak_ptr<SSProxy::DeviceChannel> &sender,
                                     const std::shared_ptr<SSProxy::IDeviceCommand> &report) {
            if (sender.owner_before(counted) || counted.owner_before(sender) || !report)
                return;
            const quint8 code = report->head().BC;
            for (std::size_t kind = 0; kind < codes.size(); ++kind) {
                if (codes[kind] == code)
                    ++(*counts)[kind];
            }
        });
}

ReportCounts::~ReportCounts()
{
    QObject::disconnect(m_connection);
}

} // namespace Tavoro::SessionInternal
