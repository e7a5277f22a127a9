#pragma once

#include <QByteArray>

#include <mutex>
#include <utility>

namespace Tavoro::SSProxy::Internal {

/// Storage for the next frame to send. Reusing that of the frame before is faster: the system would
/// otherwise unmap the storage of a long frame, and clear new pages for the next one. Any thread.
class FrameStorage {
public:
    /// Returns storage for a frame, with arbitrary content.
    QByteArray take()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return std::exchange(m_storage, {});
    }
    /// Keeps the storage of a sent frame for the next one.
    void recycle(QByteArray frame)
    {
        if (frame.capacity() > longestKept)
            return;
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_storage = std::move(frame);
    }

private:
    static constexpr int longestKept = 4 << 20; ///< In bytes.

    std::mutex m_mutex;
    QByteArray m_storage; ///< Guarded by m_mutex.
};

} // namespace Tavoro::SSProxy::Internal
