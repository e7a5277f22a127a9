#pragma once

#include <tavorossproxy/devicecommand.h>

#include <atomic>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace Tavoro::SSProxy::Internal {

/// Lets reports pass to those who take them, but no more at a time than they can be expected to
/// take: a report is on its way until the last reference to it is gone.
///
/// What does not pass waits, in its order. When too much waits, one has to go: the oldest that has
/// a newer one of the same code behind it, or where there is none, the oldest of all. So the last
/// word on every kind of thing arrives, and a flood of one kind does not displace the others.
///
/// On the thread of the channel's loop. Reports may be let go of on any.
class ReportGate {
public:
    struct Limits {
        int count = 0; ///< Reports on their way, and as many that wait.
        qint64 bytes = 0; ///< Of their bodies, in the same way.
    };
    using Receiver = std::function<void(std::shared_ptr<IDeviceCommand> report)>;

    /// \a wake is called on any thread when deliverWaiting() is due.
    ReportGate(const Limits &limits, Receiver receiver, std::function<void()> wake);

    /// Returns how many reports were dropped for this one.
    int take(const PacketHead &head, std::string body);
    void deliverWaiting();
    void forgetWaiting();

private:
    struct Report {
        PacketHead head;
        std::string body;

        quint16 code() const { return static_cast<quint16>(head.BC << 8 | head.FC); }
        qint64 size() const { return static_cast<qint64>(body.size()); }
    };
    /// What is on its way. Outlives the gate for as long as reports do.
    struct Underway {
        std::atomic<int> count{0};
        std::atomic<qint64> bytes{0};
        std::atomic<bool> isAwaited{false}; ///< Something waits for room.
        std::function<void()> wake;
    };
    class Passed;

    bool hasRoom() const;
    void deliver(Report &&report);
    int dropExcess();

    const Limits m_limits;
    const Receiver m_receiver;
    const std::shared_ptr<Underway> m_underway;
    std::deque<Report> m_waiting;
    std::map<quint16, int> m_waitingOfCode;
    qint64 m_waitingBytes = 0;
};

} // namespace Tavoro::SSProxy::Internal
