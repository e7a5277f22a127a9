#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <vector>

QT_BEGIN_NAMESPACE
class QTcpSocket;
QT_END_NAMESPACE

namespace Tavoro::Sim {

/// Sends frames to one client, and limits what waits for a client that does not read. Lives on the
/// device's thread.
class FrameSender {
public:
    /// \a socket is that of the client.
    explicit FrameSender(QTcpSocket &socket) : m_socket(socket) { }

    /// Sends \a frame, unless the connection has ended.
    void send(const QByteArray &frame);
    /// Sends \a frame after \a delay in milliseconds.
    void sendLater(const QByteArray &frame, int delay);
    /// Keeps \a frame until sendHeld() is called.
    void hold(const QByteArray &frame);
    /// Sends the frames that hold() has kept, in their order.
    void sendHeld();
    /// Sends \a report, a report of control. A client that does not keep up gets the last one of
    /// them later.
    void sendControlReport(const QByteArray &report);
    /// Sends the report of control that waits, if the client has caught up.
    void sendWaitingReport();

    bool hasRoomForReport() const;
    bool hasRoomForAnswer() const;
    /// Returns true if nothing waits in the socket.
    bool isDrained() const;

private:
    int sendNow(const QByteArray &frame) const;

    /// A client that leaves more than this unread gets no further reports, and its requests are not
    /// read until it reads.
    static constexpr qint64 maxUnreadBytes = 16 << 20;
    static constexpr int maxDelayedAnswers = 1024;

    QTcpSocket &m_socket;
    qint64 m_delayedBytes = 0; ///< Bytes of delayed and held answers.
    int m_delayedAnswers = 0; ///< The held answers included.
    std::vector<QByteArray> m_held;
    QByteArray m_controlReport; ///< Waits until the client reads; empty if none does.
};

} // namespace Tavoro::Sim
