#pragma once

#include "channelloop_p.h"
#include "postedcalls_p.h"

#include <QObject>
#include <QThread>

#include <mutex>
#include <vector>

namespace Tavoro::SSProxy::Internal {

/// The one thread of all channels over a network, with an event loop of Qt. The object itself lives
/// there too.
///
/// | member              | thread                           |
/// |---------------------|----------------------------------|
/// | instance, stop      | any but the channels' own        |
/// | post                | any                              |
/// | m_calls, m_lookout  | any, guarded by m_mutex          |
/// | m_users             | the channels' own                |
class ChannelThread final : public QObject, public ChannelLoop {
    Q_OBJECT

public:
    /// The running thread; started when there is none. It ends with the application object, at the
    /// latest with the manager.
    static std::shared_ptr<ChannelThread> instance();
    /// Ends the running thread, if there is one, and waits for that.
    static void stop();

    ChannelThread();
    ~ChannelThread() override;

    Clock &clock() override { return m_clock; }
    bool isCurrentThread() const override { return QThread::currentThread() == &m_thread; }
    bool post(std::function<void()> call) override;
    void expectCall() override;
    void postAt(Clock::TimePoint time, std::function<void()> call) override;
    void attach(std::shared_ptr<User> user) override;
    void detach(const User *user) override;

private:
    /// Whether the thread looks out for a call itself before it goes to sleep: to be woken takes as
    /// long as many a caller takes from one request to the next.
    struct Lookout {
        bool isOn = false; ///< Whoever posts need not wake the thread.
        bool isWorthwhile = true; ///< The last expected call came in time.
        Clock::TimePoint since; ///< When a call was expected last.
    };

    Q_INVOKABLE void runCalls() { m_calls.run(); }
    Q_INVOKABLE void lookOut();
    void end();

    SteadyClock m_clock;
    QThread m_thread;
    std::mutex m_mutex; // never held while a call runs
    PostedCalls m_calls{m_mutex};
    Lookout m_lookout; // guarded by m_mutex
    std::vector<std::shared_ptr<User>> m_users;
};

} // namespace Tavoro::SSProxy::Internal
