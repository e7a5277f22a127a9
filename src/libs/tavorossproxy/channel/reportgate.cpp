#include "reportgate_p.h"

#include <algorithm>

namespace Tavoro::SSProxy::Internal {

/// A report that is on its way, and counts as such until it is destroyed.
class ReportGate::Passed {
public:
    Passed(Report &&report, std::shared_ptr<Underway> underway)
        : m_size(report.size()), m_underway(std::move(underway))
    {
        command.head() = report.head;
        command.body() = std::move(report.body);
        m_underway->bytes += m_size;
        ++m_underway->count;
    }
    ~Passed()
    {
        m_underway->bytes -= m_size;
        --m_underway->count;
        if (m_underway->isAwaited.exchange(false))
            m_underway->wake();
    }
    Passed(const Passed &) = delete;
    Passed &operator=(const Passed &) = delete;

    DeviceResponseCommand command;

private:
    const qint64 m_size;
    const std::shared_ptr<Underway> m_underway;
};

ReportGate::ReportGate(const Limits &limits, Receiver receiver, std::function<void()> wake)
    : m_limits(limits), m_receiver(std::move(receiver)), m_underway(std::make_shared<Underway>())
{
    m_underway->wake = std::move(wake);
}

int ReportGate::take(const PacketHead &head, std::string body)
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

void ReportGate::deliverWaiting()
{
    while (!m_waiting.empty()) {
        // First this, then the look for room: whoever makes room in between sees it.
        m_underway->isAwaited = true;
        if (!hasRoom())
            return;
        Report report = std::move(m_waiting.front());
        m_waiting.pop_front();
        m_waitingBytes -= report.size();
        --m_waitingOfCode[report.code()];
        deliver(std::move(report));
    }
    m_underway->isAwaited = false;
}

void ReportGate::forgetWaiting()
{
    m_waiting.clear();
    m_waitingOfCode.clear();
    m_waitingBytes = 0;
}

/// One report may always be on its way, however long it is.
bool ReportGate::hasRoom() const
{
    return m_underway->count == 0
        || (m_underway->count < m_limits.count && m_underway->bytes < m_limits.bytes);
}

void ReportGate::deliver(Report &&report)
{
    const auto passed = std::make_shared<Passed>(std::move(report), m_underway);
    m_receiver(std::shared_ptr<IDeviceCommand>(passed, &passed->command));
}

int ReportGate::dropExcess()
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
