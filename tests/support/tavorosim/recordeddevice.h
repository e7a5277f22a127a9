#pragma once

#include <tavorosim/server/simthread.h>
#include <tavorowire/capture.h>

#include <QString>

#include <array>
#include <atomic>
#include <memory>
#include <vector>

class QTcpServer;
class QTcpSocket;

/// A device that answers as the one of a capture did, on a loopback socket and a thread of its own.
///
/// A request is answered with what the first recorded request of the same type, code, filters,
/// packet and body that was not played yet got, under its own tag and stream; a clock may be set to
/// any time. Its unsolicited frames come before or after the answers that it
/// stood between, and what came wrong comes wrong again. What stands nowhere in the capture is left
/// without an answer and counted. A client that connects more often than the recorded one gets the
/// identity again.
///
/// A connection that was lost over requests ends when these were made, any other one that was lost
/// when the last request before that was made; received bytes of the next frame are sent first.
/// Pings are not answered, and the times of the capture are not looked at. One client at a time.
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
    using Item = Tavoro::SSProxy::Wire::CapturedItem;
    using FrameEvent = Tavoro::SSProxy::Wire::FrameEvent;

    struct Exchange {
        FrameEvent request;
        std::vector<std::string> answers; ///< Frames as they travelled.
        bool isPlayed = false;
        int end = -1; ///< Place in m_ends of the end that waits for this exchange.
    };

    /// How a connection ends: when the exchanges that it waits for were played.
    struct End {
        int due = 0; ///< Exchanges that were not played yet.
        std::vector<std::string> rest; ///< What is sent then.
        bool isLoss = false; ///< The connection ends after that.
    };

    /// The tag that a recorded one stands for this time.
    struct Tag {
        quint16 recordedStream = 0;
        quint16 stream = 0;
        quint8 lables = 0; ///< 0: it was not played.
        quint32 recordedNumber = 0;
        quint32 number = 0;
    };

    /// Takes the items of a capture in their order.
    class Recorder;

    void serve();
    void answer(QTcpSocket &socket, const FrameEvent &request);
    void play(QTcpSocket &socket, Exchange &exchange,
              const Tavoro::SSProxy::Wire::WireHead &request);
    void send(QTcpSocket &socket, const std::vector<std::string> &frames) const;
    /// With the tag and the stream of this time.
    std::string retagged(std::string frame) const;

    std::vector<Exchange> m_exchanges;
    std::vector<End> m_ends;
    std::array<Tag, 256> m_tags; ///< By the recorded one.
    std::string m_identity; ///< The last one of the capture, as it travelled.
    Tavoro::Sim::SimThread m_thread;
    std::unique_ptr<QTcpServer> m_server; ///< Lives and dies on m_thread.
    quint16 m_port = 0;
    std::atomic<int> m_surprises{0};
    std::atomic<int> m_unplayed{0};
};
