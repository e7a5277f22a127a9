#include "framesender.h"

#include <QTcpSocket>
#include <QTimer>

#include <algorithm>
#include <sys/socket.h>
#include <utility>

namespace Tavoro::Sim {

/// A connection that has ended takes no more: its client is deleted only by the event loop.
void FrameSender::send(const QByteArray &frame)
{
    if (!m_socket.isOpen())
        return;
    const int sent = isDrained() ? sendNow(frame) : 0;
    if (sent < frame.size())
        m_socket.write(sent == 0 ? frame : frame.mid(sent));
}

/// Returns how many bytes the system has taken. Without the socket's buffer, a frame costs only one
/// system call. The socket itself finds out if the connection has failed.
int FrameSender::sendNow(const QByteArray &frame) const
{
    const auto descriptor = static_cast<int>(m_socket.socketDescriptor());
    const auto sent = ::send(descriptor, frame.constData(), static_cast<std::size_t>(frame.size()),
                             MSG_DONTWAIT | MSG_NOSIGNAL);
    return static_cast<int>(std::max<ssize_t>(sent, 0));
}

void FrameSender::sendLater(const QByteArray &frame, int delay)
{
    if (delay == 0)
        return send(frame);
    m_delayedBytes += frame.size();
    ++m_delayedAnswers;
    // Precise timers of one length fire in the order in which they were started.
    QTimer::singleShot(delay, Qt::PreciseTimer, &m_socket, [this, frame] {
        m_delayedBytes -= frame.size();
        --m_delayedAnswers;
        send(frame);
    });
}

void FrameSender::hold(const QByteArray &frame)
{
    m_delayedBytes += frame.size();
    ++m_delayedAnswers;
    m_held.push_back(frame);
}

void FrameSender::sendHeld()
{
    for (const QByteArray &frame : std::exchange(m_held, {})) {
        m_delayedBytes -= frame.size();
        --m_delayedAnswers;
        send(frame);
    }
}

void FrameSender::sendControlReport(const QByteArray &report)
{
    m_controlReport = report;
    sendWaitingReport();
}

void FrameSender::sendWaitingReport()
{
    if (!m_controlReport.isEmpty() && hasRoomForReport())
        send(std::exchange(m_controlReport, {}));
}

bool FrameSender::hasRoomForReport() const
{
    return m_socket.bytesToWrite() <= maxUnreadBytes;
}

bool FrameSender::hasRoomForAnswer() const
{
    return m_socket.bytesToWrite() + m_delayedBytes <= maxUnreadBytes
        && m_delayedAnswers < maxDelayedAnswers;
}

bool FrameSender::isDrained() const
{
    return m_socket.bytesToWrite() == 0;
}

} // namespace Tavoro::Sim
