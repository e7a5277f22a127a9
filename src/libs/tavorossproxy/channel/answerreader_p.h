#pragma once

#include <tavorossproxy/io/clock_p.h>

#include <memory>
#include <mutex>
#include <thread>

namespace Tavoro::SSProxy::Internal {

class ConnectedSocket;
class WakeUp;

/// Lets a caller that waits for its answer receive on its own thread. An exchange then costs what
/// it costs with a blocking socket: one thread that waits for one descriptor. Handing the answer
/// over from the loop's thread would cost two more changes of threads, and a processor that has
/// other things to do delays each of them.
///
/// | member                  | thread                                                        |
/// |-------------------------|---------------------------------------------------------------|
/// | setSocket, resume       | the loop's                                                    |
/// | begin, receive, end     | that of the caller that receives, one at a time               |
/// | pause                   | any                                                           |
/// | interrupt               | any, between begin and end                                    |
class AnswerReader {
public:
    /// \a socket is that of the connection; null if only the loop's thread can receive.
    void setSocket(std::shared_ptr<ConnectedSocket> socket);

    /// Leaves the receiving to the loop's thread until resume(), because frames wait for that
    /// thread. A caller that received more could collect frames without limit.
    void pause();
    void resume();

    /// From here on, the loop's thread does not wake up for arriving bytes. Returns false if only
    /// that thread can receive; end() need not follow then.
    bool begin();
    /// Waits for bytes until \a deadline or interrupt(), and receives them. Returns false if the
    /// loop's thread must continue after end(): after pause(), or if the connection has ended.
    bool receive(Clock::TimePoint deadline);
    void end();
    /// Ends receive(), unless the calling thread is the one that receives.
    void interrupt() const;

private:
    std::mutex m_mutex;
    std::shared_ptr<ConnectedSocket> m_socket; ///< Guarded by m_mutex; null after the end.
    bool m_isPaused = false; ///< Guarded by m_mutex.

    std::shared_ptr<ConnectedSocket> m_reading; ///< The socket between begin() and end().
    const WakeUp *m_wakeUp = nullptr; ///< That of the thread which receives.
    std::thread::id m_thread;
};

} // namespace Tavoro::SSProxy::Internal
