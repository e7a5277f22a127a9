#pragma once

#include <QObject>
#include <QThread>

#include <condition_variable>
#include <functional>
#include <mutex>

namespace Tavoro::Sim {

/// A thread with an event loop that carries out calls of another thread. The object itself lives on
/// this thread, too.
///
/// | member         | thread                          |
/// |----------------|---------------------------------|
/// | run            | the one that created the object |
/// | m_call, m_done | both, guarded by m_mutex        |
class SimThread : public QObject {
    Q_OBJECT

public:
    SimThread();
    /// Ends the thread.
    ~SimThread() override;

    /// Makes \a call on the thread and waits until it has returned.
    void run(std::function<void()> call);

private:
    Q_INVOKABLE void makeCall();

    QThread m_thread;
    std::mutex m_mutex;
    std::condition_variable m_wakeUp;
    std::function<void()> m_call; // guarded by m_mutex
    bool m_isDone = false; // guarded by m_mutex
};

} // namespace Tavoro::Sim
