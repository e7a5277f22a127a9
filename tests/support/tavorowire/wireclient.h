#pragma once

#include <tavorossproxy/packethead.h>
#include <tavorowire/frameparser.h>

#include <QByteArray>
#include <QTcpSocket>

#include <deque>
#include <optional>
#include <string>

/// A frame as it came from the device.
struct WireFrame {
    Tavoro::SSProxy::Wire::WireHead head;
    std::string body;
};

/// A client that speaks the wire as a test writes it down: one frame at a time, with any head.
/// Nothing is split, joined, checked or sent again. Each wait ends after five seconds.
class WireClient {
public:
    bool connectTo(quint16 port);
    /// The body of the identity answer.
    std::string identity();

    /// A request with \a code, \a type and \a body on stream 1; the test changes what it likes.
    static WireFrame request(quint16 code, Tavoro::SSProxy::CommandType type,
                             const std::string &body = {});

    /// \a frame with the next number, if it is a request without one.
    WireFrame numbered(WireFrame frame);
    /// Numbers \a frame and sends it.
    void send(const WireFrame &frame);
    void sendBytes(const QByteArray &bytes);
    /// Sends \a frame and waits for its response; reports that come before are kept.
    WireFrame exchange(const WireFrame &frame);
    /// The next frame that is no report; reports that come before are kept.
    WireFrame receiveResponse();
    int keptReports() const { return static_cast<int>(m_reports.size()); }
    WireFrame read(quint16 code, const std::array<quint8, 4> &arg2 = {});
    WireFrame write(quint16 code, const std::string &body);

    /// Takes control of the device (1), gives it up (2) or forces it (3). The status of the answer.
    int control(quint8 action);

    /// The next frame that is a report.
    WireFrame waitForReport();
    /// True once the device has closed the connection.
    bool waitForEnd();

private:
    std::optional<WireFrame> receive();

    QTcpSocket m_socket;
    quint32 m_lastNumber = 0;
    Tavoro::SSProxy::Wire::FrameParser m_parser;
    std::deque<WireFrame> m_frames;
    std::deque<WireFrame> m_reports;
};
