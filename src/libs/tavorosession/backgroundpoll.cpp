#include "backgroundpoll_p.h"

#include <utility>

namespace Tavoro::SessionInternal {

using Operations::Scope;

BackgroundPoll::BackgroundPoll(const PollIntervals &intervals, Read read)
    : m_read(std::move(read)), m_self(std::make_shared<BackgroundPoll *>(this))
{
    add(Scope::device(), intervals.device);
    add(Scope::interfaces(), intervals.interfaces);
    add(Scope::screens(), intervals.screens);
    add(Scope::layers(), intervals.layers);
    add(Scope::files(), intervals.files);
}

void BackgroundPoll::add(const Scope &scope, std::chrono::milliseconds interval)
{
    if (interval <= std::chrono::milliseconds::zero())
        return;
    m_kinds.push_back(std::make_unique<Kind>());
    Kind &kind = *m_kinds.back();
    kind.scope = scope;
    kind.timer = std::make_unique<QTimer>();
    kind.timer->setInterval(interval);
    QObject::connect(kind.timer.get(), &QTimer::timeout, kind.timer.get(),
                     [this, &kind] { this->read(kind); });
}

void BackgroundPoll::setActive(bool isActive)
{
    for (const auto &kind : m_kinds) {
        kind->isRead = false; // a read that waits is dropped when the connection is lost
        if (isActive)
            kind->timer->start();
        else
            kind->timer->stop();
    }
}

/// A device that is slower than the interval is read less often.
void BackgroundPoll::read(Kind &kind)
{
    if (std::exchange(kind.isRead, true))
        return;
    m_read(kind.scope, [weak = std::weak_ptr<BackgroundPoll *>(m_self), &kind] {
        if (weak.lock())
            kind.isRead = false;
    });
}

} // namespace Tavoro::SessionInternal
