#include "modelfollower_p.h"

#include "logging_p.h"
#include "scoperead_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/savedevicedatathread.h>

#include <algorithm>
#include <utility>

namespace Tavoro::SessionInternal {

using Operations::Scope;

/// What was read of a scope.
struct ScopeResult {
    Scope scope;
    quint64 reportsBefore = 0; ///< Those of its kind before it was read.
    ScopeUpdate update; ///< Empty if the read has failed.
};

/// Reads some scopes.
class FollowingRead : public LaneJob {
public:
    using Handler = std::function<void(const FollowingRead &read)>;

    FollowingRead(std::shared_ptr<const CallTarget> readTarget, std::vector<Scope> scopes,
                  Handler finished)
        : target(std::move(readTarget)),
          m_scopes(std::move(scopes)),
          m_finished(std::move(finished))
    { }

    void run() override
    {
        for (const Scope &scope : m_scopes) {
            ScopeResult result{scope, target->reports->of(scope.kind), {}};
            if (target->isConnected())
                result.update = readScope(target->device, scope);
            results.push_back(std::move(result));
        }
    }
    void deliver() override { m_finished(*this); }

    bool hasFailed() const
    {
        return std::any_of(results.begin(), results.end(),
                           [](const ScopeResult &result) { return !result.update; });
    }

    const std::shared_ptr<const CallTarget> target;
    std::vector<ScopeResult> results;

private:
    const std::vector<Scope> m_scopes;
    const Handler m_finished;
};

namespace {

/// How long writes are collected before what they changed is read.
constexpr std::chrono::milliseconds bundleTime(50);
/// How often in a row a read is repeated because of reports.
constexpr int mostPostponed = 3;

void apply(const ScopeResult &result, BizModel::Device &device)
{
    QString error;
    if (result.update && !result.update(device, error))
        qCWarning(sessionLog) << device.name() << error;
}

void save(const std::shared_ptr<BizModel::Device> &device)
{
    if (auto *const saver = BizModel::DeviceList::instance()->saveDeviceDataThread())
        saver->saveDevicesInfor(device);
}

bool isOutdated(const ScopeResult &result, const ReportCounts &reports)
{
    // Reports about files change only the progress of their transfers.
    return result.scope.kind != Operations::ScopeKind::Files
        && reports.of(result.scope.kind) != result.reportsBefore;
}

} // namespace

ModelFollower::ModelFollower(std::shared_ptr<Lane> lane, FinishedHandler finished)
    : m_lane(std::move(lane)),
      m_finished(std::move(finished)),
      m_self(std::make_shared<ModelFollower *>(this))
{
    m_timer.setSingleShot(true);
    m_timer.setInterval(bundleTime);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { read(); });
}

void ModelFollower::setTarget(std::shared_ptr<const CallTarget> target)
{
    m_target = std::move(target);
    m_scopes.clear();
    m_postponed = 0;
    m_timer.stop();
}

void ModelFollower::note(const std::vector<Scope> &scopes)
{
    if (!m_target || scopes.empty())
        return;
    ++m_noted;
    m_scopes.insert(m_scopes.end(), scopes.begin(), scopes.end());
    if (!m_timer.isActive())
        m_timer.start();
}

void ModelFollower::read()
{
    const auto finished = [weak = std::weak_ptr<ModelFollower *>(m_self),
                           noted = m_noted](const FollowingRead &ended) {
        const auto self = weak.lock();
        if (self && (*self)->m_target == ended.target) // else the whole device is read
            (*self)->ended(ended, noted);
    };
    m_lane->append(std::make_shared<FollowingRead>(
        m_target, Operations::readsFor(std::exchange(m_scopes, {})), finished));
}

/// What reports have changed since it was read is read again. During a storm of reports it is
/// applied sometimes all the same, so that other values follow.
void ModelFollower::ended(const FollowingRead &read, quint64 noted)
{
    std::vector<Scope> outdated;
    const bool isPatient = m_postponed < mostPostponed;
    for (const ScopeResult &result : read.results) {
        const bool isLate = isOutdated(result, *read.target->reports);
        if (isLate)
            outdated.push_back(result.scope);
        if (!isLate || !isPatient)
            apply(result, *read.target->device);
    }
    save(read.target->device);
    const bool isPostponed = !outdated.empty() && isPatient;
    m_postponed = isPostponed ? m_postponed + 1 : 0;
    note(outdated);
    if (read.hasFailed())
        m_finished(noted, false);
    else if (!isPostponed)
        m_finished(noted, true);
}

void ModelFollower::poll(const Scope &scope, std::function<void()> done)
{
    if (!m_target)
        return done();
    const auto finished = [weak = std::weak_ptr<ModelFollower *>(m_self),
                           done = std::move(done)](const FollowingRead &ended) {
        const auto self = weak.lock();
        if (self && (*self)->m_target == ended.target) {
            for (const ScopeResult &result : ended.results) {
                if (!isOutdated(result, *ended.target->reports))
                    apply(result, *ended.target->device);
            }
        }
        done();
    };
    m_lane->append(
        std::make_shared<FollowingRead>(m_target, std::vector{scope.readable()}, finished));
}

} // namespace Tavoro::SessionInternal
