#include "reportqueue_p.h"

#include <algorithm>

namespace Tavoro::SSProxy::Internal {

/// A report that was delivered and counts as pending until it is destroyed.
class ReportQueue::PendingReport {
public:
    PendingReport(Report &&report, std::shared_ptr<Pending> pending)
        : m_size(report.size()), m_pending(std::move(pending))
    {
        command.head() = report.head;
        command.body() = std::move(report.body);
        m_pending->bytes += m_size;
        ++m_pending->count;
    }
    ~PendingReport()
    {
        m_pending->bytes -= m_size;
        --m_pending->count;
        if (m_pending->isAwaited.exchange(false))
            m_pending->wake();
    }
    PendingReport(const PendingReport &) = delete;
    PendingReport &operator=(const PendingReport &) = delete;

    DeviceResponseCommand command;

private:
    const qint64 m_size;
    const std::shared_ptr<Pending> m_pending;
};

ReportQueue::ReportQueue(const Limits &limits, Receiver receiver, std::function<void()> wake)
    : m_limits(limits), m_receiver(std::move(receiver)), m_pending(std::make_shared<Pending>())
{
    m_pending->wake = std::move(wake);
}

int ReportQueue::take(const PacketHead &head, std::string body)
{
    Report report{head, std::move(body)};
    if (m_waiting.empty() && hasRoom()) {
        deliver(std::move(report));
        return 0;
    }
    ++m_waitingOfCode[report.code()];
    m_waitingBytes += report.size();
    m_waiting.push_back(std::move(report));
    const int dropped = dropExcess();
    deliverWaiting();
    return dropped;
}

void ReportQueue::deliverWaiting()
{
    while (!m_waiting.empty()) {
        // Set before the check: a thread that releases a report in between sees it.
        m_pending->isAwaited = true;
        if (!hasRoom())
            return;
        Report report = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_waitingBytes -= report.size();
        --m_waitingOfCode[report.code()];
        deliver(std::move(report));
    }
    m_pending->isAwaited = false;
}

void ReportQueue::dropWaiting()
{
    m_waiting.clear();
    m_waitingOfCode.clear();
    m_waitingBytes = 0;
}

/// One report may always be pending, regardless of its size.
bool ReportQueue::hasRoom() const
{
    return m_pending->count == 0
        || (m_pending->count < m_limits.count && m_pending->bytes < m_limits.bytes);
}

void ReportQueue::deliver(Report &&report)
{
    const auto pending = std::make_shared<PendingReport>(std::move(report), m_pending);
    m_receiver(std::shared_ptr<IDeviceCommand>(pending, &pending->command));
}

int ReportQueue::dropExcess()
{
    int dropped = 0;
    while (m_waiting.size() > 1
           && (m_waiting.size() > static_cast<std::size_t>(std::max(m_limits.count, 1))
               || m_waitingBytes > m_limits.bytes)) {
        auto victim = std::find_if(m_waiting.begin(), m_waiting.end(), [this](const Report &one) {
            return m_waitingOfCode[one.code()] > 1;
        });
        if (victim == m_waiting.end())
            victim = m_waiting.begin();
        m_waitingBytes -= victim->size();
        --m_waitingOfCode[victim->code()];
        m_waiting.erase(victim);
        ++dropped;
    }
    return dropped;
}

} // namespace Tavoro::SSProxy::Internal
