#include "socketpoll_p.h"

#include <QSocketNotifier>

#include <array>
#include <cstddef>
#include <sys/epoll.h>
#include <unistd.h>

namespace Tavoro::SSProxy::Internal {

namespace {

/// Sockets that are served before Qt's other events get their turn.
constexpr int mostAtOnce = 64;

} // namespace

std::shared_ptr<SocketPoll> SocketPoll::ofThisThread()
{
    thread_local std::weak_ptr<SocketPoll> current;
    auto poll = current.lock();
    if (!poll)
        current = poll = std::make_shared<SocketPoll>();
    return poll;
}

SocketPoll::SocketPoll()
    : m_epoll(::epoll_create1(EPOLL_CLOEXEC)),
      m_notifier(new QSocketNotifier(m_epoll, QSocketNotifier::Read))
{
    QObject::connect(m_notifier, &QSocketNotifier::activated, m_notifier, [this] { dispatch(); });
}

SocketPoll::~SocketPoll()
{
    m_notifier->setEnabled(false);
    m_notifier->disconnect();
    m_notifier->deleteLater();
    ::close(m_epoll);
}

void SocketPoll::add(int descriptor, Watcher &watcher)
{
    m_watchers[descriptor] = &watcher;
    epoll_event event{};
    event.data.fd = descriptor;
    ::epoll_ctl(m_epoll, EPOLL_CTL_ADD, descriptor, &event);
}

void SocketPoll::remove(int descriptor)
{
    m_watchers.erase(descriptor);
    ::epoll_ctl(m_epoll, EPOLL_CTL_DEL, descriptor, nullptr);
}

void SocketPoll::watchFor(int descriptor, bool arrivingBytes, bool roomForBytes) const
{
    epoll_event event{};
    event.data.fd = descriptor;
    event.events = (arrivingBytes ? EPOLLIN : 0u) | (roomForBytes ? EPOLLOUT : 0u);
    ::epoll_ctl(m_epoll, EPOLL_CTL_MOD, descriptor, &event);
}

/// A watcher may remove itself or others.
void SocketPoll::dispatch()
{
    const auto self = ofThisThread();
    std::array<epoll_event, mostAtOnce> events{};
    const int count = ::epoll_wait(m_epoll, events.data(), mostAtOnce, 0);
    for (int i = 0; i < count; ++i) {
        const auto found = m_watchers.find(events[static_cast<std::size_t>(i)].data.fd);
        if (found != m_watchers.end())
            found->second->socketReady();
    }
}

} // namespace Tavoro::SSProxy::Internal
