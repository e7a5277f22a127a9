#include "modelfollower_p.h"

#include "logging_p.h"
#include "scoperead_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorobizmodel/savedevicedatathread.h>

#include <utility>

namespace Tavoro::SessionInternal {

using Operations::Scope;

namespace {

/// How long writes are collected before what they changed is read.
constexpr std::chrono::milliseconds bundleTime(50);

/// Reads what some writes have changed.
class FollowingRead : public LaneJob, public std::enable_shared_from_this<FollowingRead> {
public:
    using Handler = std::function<void(const FollowingRead &read)>;

    FollowingRead(std::shared_ptr<const CallTarget> readTarget, std::vector<Scope> scopes,
                  std::shared_ptr<Courier> courier, Handler finished)
        : target(std::move(readTarget)),
          m_scopes(std::move(scopes)),
          m_courier(std::move(courier)),
          m_finished(std::move(finished))
    { }

    void run() override
    {
        for (const Scope &scope : m_scopes) {
            ScopeUpdate update =
                target->isConnected() ? readScope(target->device, scope) : ScopeUpdate();
            if (update)
                updates.push_back(std::move(update));
            else
                hasFailed = true;
        }
        m_courier->post([self = shared_from_this()] { self->m_finished(*self); });
    }

    const std::shared_ptr<const CallTarget> target;
    std::vector<ScopeUpdate> updates;
    bool hasFailed = false;

private:
    const std::vector<Scope> m_scopes;
    const std::shared_ptr<Courier> m_courier;
    const Handler m_finished;
};

void apply(const FollowingRead &read)
{
    BizModel::Device &device = *read.target->device;
    for (const ScopeUpdate &update : read.updates) {
        QString error;
        if (!update(device, error))
            qCWarning(sessionLog) << device.name() << error;
    }
    if (auto *const saver = BizModel::DeviceList::instance()->saveDeviceDataThread())
        saver->saveDevicesInfor(read.target->device);
}

} // namespace

ModelFollower::ModelFollower(std::shared_ptr<Lane> lane, std::shared_ptr<Courier> courier,
                             FinishedHandler finished)
    : m_lane(std::move(lane)),
      m_courier(std::move(courier)),
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
        if (!self || (*self)->m_target != ended.target)
            return; // the whole device is read after a loss
        apply(ended);
        (*self)->m_finished(noted, !ended.hasFailed);
    };
    m_lane->append(std::make_shared<FollowingRead>(
        m_target, Operations::readsFor(std::exchange(m_scopes, {})), m_courier, finished));
}

} // namespace Tavoro::SessionInternal
