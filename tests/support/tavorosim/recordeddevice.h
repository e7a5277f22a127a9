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

/// Plays a capture back as a device, on a loopback socket and a separate thread.
///
/// A request gets the recorded answer of the first matching request that was not played yet, with
/// the tag and the stream of this session. Requests match if they have the same type, code,
/// filters, packet and body; the body is ignored for a write of the clock. Reports and invalid
/// frames are sent in their recorded order, together with the answer that they preceded or
/// followed. A request that is not in the capture is counted and gets no answer. A client that
/// connects more often than the recorded one gets the last identity again.
///
/// A connection that was lost with unanswered requests ends as soon as these requests have been
/// received; without unanswered requests it ends after the answer to the last one. The received
/// part of an incomplete frame is sent before that. Pings are not answered, and the times of the
/// capture are ignored. Serves one client at a time.
class RecordedDevice {
public:
    /// Plays the channel \a channel of the capture in the file \a path.
    explicit RecordedDevice(const QString &path, int channel = 1);
    ~RecordedDevice();
    RecordedDevice(const RecordedDevice &) = delete;
    RecordedDevice &operator=(const RecordedDevice &) = delete;

    quint16 port() const { return m_port; }
    /// The number of received requests that are not in the capture.
    int surprises() const { return m_surprises; }
    /// The number of requests of the capture that have not been received.
    int unplayed() const { return m_unplayed; }

private:
    using Item = Tavoro::SSProxy::Wire::CapturedItem;
    using FrameEvent = Tavoro::SSProxy::Wire::FrameEvent;

    struct Exchange {
        FrameEvent request;
        std::vector<std::string> answers; ///< Frames as recorded.
        bool isPlayed = false;
        int end = -1; ///< Index in m_ends of the end that waits for this exchange; -1 for none.
    };

    /// The end of a connection. It takes place when the exchanges that it waits for have been
    /// played.
    struct End {
        int due = 0; ///< The number of these exchanges that are still missing.
        std::vector<std::string> rest; ///< Frames that are sent first.
        bool isLoss = false; ///< The device ends the connection.
    };

    /// Maps the tag, stream and number of a recorded request to those of this session.
    struct Tag {
        quint16 recordedStream = 0;
        quint16 stream = 0;
        quint8 lables = 0; ///< The tag of this session; 0 if the request was not played.
        quint32 recordedNumber = 0;
        quint32 number = 0;
    };

    /// Builds the exchanges from the items of a capture.
    class Recorder;

    void serve();
    void answer(QTcpSocket &socket, const FrameEvent &request);
    void play(QTcpSocket &socket, Exchange &exchange,
              const Tavoro::SSProxy::Wire::WireHead &request);
    void send(QTcpSocket &socket, const std::vector<std::string> &frames) const;
    /// The frame with the tag, stream and number of this session.
    std::string retagged(std::string frame) const;

    std::vector<Exchange> m_exchanges;
    std::vector<End> m_ends;
    std::array<Tag, 256> m_tags; ///< The index is the recorded tag.
    std::string m_identity; ///< The last identity answer of the capture.
    Tavoro::Sim::SimThread m_thread;
    std::unique_ptr<QTcpServer> m_server; ///< Lives and dies on m_thread.
    quint16 m_port = 0;
    std::atomic<int> m_surprises{0};
    std::atomic<int> m_unplayed{0};
};
