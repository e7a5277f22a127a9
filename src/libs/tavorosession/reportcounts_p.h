#pragma once

#include <tavorooperations/scope.h>

#include <QObject>

#include <array>
#include <atomic>
#include <memory>

namespace Tavoro::SSProxy {
class NetworkChannel;
}

namespace Tavoro::SessionInternal {

/// Counts the reports that a device sends, by the kind of objects that they change. What was read
/// before a report must not overwrite what the report has changed: a reader compares the counts
/// before the read with those when the result is applied.
///
/// All members may be called from any thread, except constructor and destructor.
class ReportCounts {
public:
    static constexpr std::size_t kindCount = 5;
    using Counts = std::array<std::atomic<quint64>, kindCount>;

    /// Counts the reports that arrive over \a channel.
    explicit ReportCounts(const std::shared_ptr<SSProxy::NetworkChannel> &channel);
    ~ReportCounts();

    /// Number of the reports that have arrived.
    quint64 of(Operations::ScopeKind kind) const
    {
        return (*m_counts)[static_cast<std::size_t>(kind)];
    }

private:
    const std::shared_ptr<Counts> m_counts = std::make_shared<Counts>();
    QMetaObject::Connection m_connection;
};

} // namespace Tavoro::SessionInternal
