#pragma once

#include <tavorosim/server/simthread.h>
#include <tavorossproxy/wire/capture.h>

#include <QString>

#include <atomic>
#include <memory>
#include <vector>

class QTcpServer;
class QTcpSocket;

/// A device that answers as the one of a capture did, on a loopback socket and a thread of its own.
///
/// A request is answered with what the first recorded request of the same type, code, filters,
/// packet and body that was not played yet got, under its own tag and stream; reports that stood in
/// front of that answer come before it. What stands nowhere in the capture is left without an
/// answer and counted. One client at a time.
class RecordedDevice {
public:
    /// Of the channel \a channel of the capture in the file \a path.
    explicit RecordedDevice(const QString &path, int channel = 1);
    ~RecordedDevice();
    RecordedDevice(const RecordedDevice &) = delete;
    RecordedDevice &operator=(const RecordedDevice &) = delete;

    quint16 port() const { return m_port; }
    /// Requests that the capture does not hold.
    int surprises() const { return m_surprises; }
    /// Requests of the capture that were not made.
    int unplayed() const { return m_unplayed; }

private:
    using Frame = Tavoro::SSProxy::Wire::CapturedFrame;
    using FrameEvent = Tavoro::SSProxy::Wire::FrameEvent;

    struct Exchange {
        FrameEvent request;
        std::vector<FrameEvent> answers; ///< Reports, then the response.
        bool isPlayed = false;
    };

    void addExchange(const std::vector<Frame> &frames, std::size_t index);
    void serve();
    void answer(QTcpSocket &socket, const FrameEvent &request);

    std::vector<Exchange> m_exchanges;
    std::string m_identity;
    Tavoro::Sim::SimThread m_thread;
    std::unique_ptr<QTcpServer> m_server; ///< Lives and dies on m_thread.
    quint16 m_port = 0;
    std::atomic<int> m_surprises{0};
    std::atomic<int> m_unplayed{0};
};
