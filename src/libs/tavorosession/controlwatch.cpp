#include "controlwatch_p.h"

#include <tavorossproxy/devicemanager.h>

#include <utility>

namespace Tavoro::SessionInternal {

using SSProxy::DeviceManager;

namespace {

/// A channel does not report that control went from one other client to a third one.
constexpr std::chrono::milliseconds holderInterval(5000);

/// Asks the device which client controls it.
class HolderQuestion : public LaneJob {
public:
    using Handler = std::function<void(const QString &holder)>;

    HolderQuestion(std::shared_ptr<const CallTarget> target, Handler handler)
        : m_target(std::move(target)), m_handler(std::move(handler))
    { }

    void run() override
    {
        if (m_target->isConnected())
            m_target->channel->readControlHolder(m_holder);
    }
    void deliver() override { m_handler(m_holder); }

private:
    const std::shared_ptr<const CallTarget> m_target;
    const Handler m_handler;
    QString m_holder; ///< Belongs to the lane's thread until run() has ended.
};

} // namespace

ControlWatch::ControlWatch(QThreadPool &pool, std::shared_ptr<Courier> courier,
                           std::chrono::milliseconds idleTime, Events &events)
    : m_events(events),
      m_questions(std::make_shared<Lane>(pool, std::move(courier))),
      m_self(std::make_shared<ControlWatch *>(this))
{
    QObject::connect(DeviceManager::instance(), &DeviceManager::masterControlChanged, &m_idle,
                     [this](const std::weak_ptr<SSProxy::DeviceChannel> &changed) {
                         if (m_target && changed.lock() == m_target->channel)
                             look();
                     });
    m_idle.setSingleShot(true);
    m_idle.setInterval(idleTime);
    QObject::connect(&m_idle, &QTimer::timeout, &m_idle, [this] { m_events.controlIsIdle(); });
    m_again.setInterval(holderInterval);
    QObject::connect(&m_again, &QTimer::timeout, &m_again, [this] { askForHolder(); });
}

ControlWatch::~ControlWatch()
{
    m_questions->removeAll();
}

void ControlWatch::setTarget(std::shared_ptr<const CallTarget> target)
{
    m_target = std::move(target);
    m_isAsked = false;
    if (!m_target)
        m_idle.stop();
    look();
}

void ControlWatch::look()
{
    const bool isOthers = m_target && !m_target->channel->isMasterControl();
    const bool hasChanged = std::exchange(m_isOthers, isOthers) != isOthers;
    if (isOthers) {
        m_again.start();
        askForHolder();
    } else {
        m_again.stop();
        setHolder({});
    }
    if (hasChanged)
        m_events.controlChanged();
}

void ControlWatch::noteUse()
{
    if (m_target && m_idle.interval() > 0)
        m_idle.start();
}

void ControlWatch::noteHolder(const QString &holder)
{
    if (m_isOthers && !holder.isEmpty())
        setHolder(holder);
}

void ControlWatch::setHolder(const QString &holder)
{
    if (std::exchange(m_holder, holder) != holder)
        m_events.controlHolderChanged();
}

void ControlWatch::askForHolder()
{
    if (std::exchange(m_isAsked, true))
        return;
    const auto handler = [weak = std::weak_ptr<ControlWatch *>(m_self),
                          target = m_target](const QString &holder) {
        const auto self = weak.lock();
        if (!self || (*self)->m_target != target)
            return;
        (*self)->m_isAsked = false;
        (*self)->noteHolder(holder);
    };
    m_questions->append(std::make_shared<HolderQuestion>(m_target, handler));
}

} // namespace Tavoro::SessionInternal
