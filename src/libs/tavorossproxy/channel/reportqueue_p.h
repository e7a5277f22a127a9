#pragma once

#include <tavorossproxy/devicecommand.h>

#include <atomic>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace Tavoro::SSProxy::Internal {

/// Bounded queue between a device that reports and the receivers of its reports. A report is
/// pending until the last reference to it is released; further reports wait in their order.
///
/// When too many wait, one is dropped: the oldest for which a newer one of the same code waits, or
/// the oldest of all if there is none. So many reports of one code do not displace those of other
/// codes, and the latest report of a code is kept as long as possible.
///
/// On the thread of the channel's loop. Reports may be released on any thread.
class ReportQueue {
public:
    struct Limits {
        int count = 0; ///< Most pending reports; as many more may wait.
        qint64 bytes = 0; ///< Most bytes in pending reports; as many more may wait.
    };
    using Receiver = std::function<void(std::shared_ptr<IDeviceCommand> report)>;

    /// \a wake is called on any thread when deliverWaiting() can deliver a report.
    ReportQueue(const Limits &limits, Receiver receiver, std::function<void()> wake);

    /// Delivers the report, or queues it. Returns how many reports were dropped.
    int take(const PacketHead &head, std::string body);
    void deliverWaiting();
    void dropWaiting();

private:
    struct Report {
        PacketHead head;
        std::string body;

        quint16 code() const { return static_cast<quint16>(head.BC << 8 | head.FC); }
        qint64 size() const { return static_cast<qint64>(body.size()); }
    };
    /// Counts pending reports. Reports share it, so it may outlive the queue.
    struct Pending {
        std::atomic<int> count{0};
        std::atomic<qint64> bytes{0};
        std::atomic<bool> isAwaited{false}; ///< A report waits for room.
        std::function<void()> wake;
    };
    class PendingReport;

    bool hasRoom() const;
    void deliver(Report &&report);
    int dropExcess();

    const Limits m_limits;
    const Receiver m_receiver;
    const std::shared_ptr<Pending> m_pending;
    std::deque<Report> m_waiting;
    std::map<quint16, int> m_waitingOfCode;
    qint64 m_waitingBytes = 0;
};

} // namespace Tavoro::SSProxy::Internal
