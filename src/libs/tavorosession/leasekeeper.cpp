#include "leasekeeper_p.h"

#include <algorithm>
#include <utility>

namespace Tavoro::SessionInternal {

using SSProxy::DeviceLease;
using std::chrono::milliseconds;
using Time = std::chrono::steady_clock;

namespace {

/// Two renewals may fail before the lease ends.
constexpr int renewalsPerLease = 3;

bool areSame(const DeviceLease &one, const DeviceLease &other)
{
    return one.state == other.state && one.holder == other.holder;
}

} // namespace

LeaseKeeper::LeaseKeeper(Start start, std::function<void()> changed)
    : m_start(std::move(start)),
      m_changed(std::move(changed)),
      m_self(std::make_shared<LeaseKeeper *>(this))
{
    QObject::connect(&m_renewal, &QTimer::timeout, &m_renewal, [this] { renew(); });
    m_end.setSingleShot(true);
    m_end.setTimerType(Qt::PreciseTimer);
    QObject::connect(&m_end, &QTimer::timeout, &m_end, [this] { note({}); });
}

bool LeaseKeeper::isHeld() const
{
    return m_lease.state == DeviceLease::Own && Time::now() < m_lease.end;
}

std::shared_ptr<LeaseJob> LeaseKeeper::take(const QString &holder, std::chrono::seconds time)
{
    m_renewal.stop(); // its interval may be another one
    m_holder = holder;
    m_time = time;
    return started(std::make_shared<LeaseJob>(holder, time), false);
}

std::shared_ptr<LeaseJob> LeaseKeeper::release()
{
    stop();
    note({});
    return started(std::make_shared<LeaseJob>(), false);
}

void LeaseKeeper::connected()
{
    renew();
}

void LeaseKeeper::lost()
{
    ++m_round;
    m_isRenewing = false;
    note({});
}

void LeaseKeeper::stop()
{
    ++m_round;
    m_isRenewing = false;
    m_holder.clear();
    m_renewal.stop();
}

void LeaseKeeper::renew()
{
    if (!m_holder.isEmpty() && !std::exchange(m_isRenewing, true))
        started(std::make_shared<LeaseJob>(m_holder, m_time), true);
}

std::shared_ptr<LeaseJob> LeaseKeeper::started(const std::shared_ptr<LeaseJob> &job, bool isQuiet)
{
    job->observer = [weak = std::weak_ptr<LeaseKeeper *>(m_self), round = m_round, isQuiet,
                     request = job.get()](const Outcome &outcome, const CallResult &) {
        const auto self = weak.lock();
        if (!self || (*self)->m_round != round)
            return;
        if (isQuiet)
            (*self)->m_isRenewing = false;
        (*self)->answered(outcome, request->lease(), isQuiet);
    };
    m_start(job, isQuiet);
    return job;
}

/// A renewal without an answer changes nothing: the lease lasts until its end, and the next renewal
/// follows. After a refusal another client holds the lease, or the device supports none.
void LeaseKeeper::answered(const Outcome &outcome, const DeviceLease &lease, bool isRenewal)
{
    if (outcome.kind() == Outcome::Refused || (!outcome && !isRenewal && !isHeld()))
        stop();
    if (outcome.kind() == Outcome::Done || outcome.kind() == Outcome::Refused)
        note(lease);
}

void LeaseKeeper::note(const DeviceLease &lease)
{
    const bool hasChanged = !areSame(std::exchange(m_lease, lease), lease);
    if (lease.state == DeviceLease::Own) {
        const auto left = std::chrono::ceil<milliseconds>(lease.end - Time::now());
        m_end.start(std::max(left, milliseconds::zero()));
        if (!m_renewal.isActive())
            m_renewal.start(milliseconds(m_time) / renewalsPerLease);
    } else {
        m_end.stop();
    }
    if (hasChanged)
        m_changed();
}

} // namespace Tavoro::SessionInternal
