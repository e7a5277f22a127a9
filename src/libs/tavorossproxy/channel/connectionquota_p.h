#pragma once

#include <tavorossproxy/io/eventloop_p.h>

namespace Tavoro::SSProxy::Internal {

/// The share that a channel has of the connections of its process. On the loop's thread.
class ConnectionQuota {
public:
    ConnectionQuota(EventLoop &loop, int maxConnections)
        : m_loop(loop), m_maxConnections(maxConnections)
    { }

    /// Returns false if the process has too many connections.
    bool acquire()
    {
        if (!m_isHeld && m_loop.connections < m_maxConnections) {
            ++m_loop.connections;
            m_isHeld = true;
        }
        return m_isHeld;
    }
    void release()
    {
        m_loop.connections -= m_isHeld;
        m_isHeld = false;
    }

private:
    EventLoop &m_loop;
    const int m_maxConnections;
    bool m_isHeld = false; ///< This channel is counted in EventLoop::connections.
};

} // namespace Tavoro::SSProxy::Internal
