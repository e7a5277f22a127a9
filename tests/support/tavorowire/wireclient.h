#pragma once

#include <tavorossproxy/packethead.h>
#include <tavorowire/frameparser.h>

#include <QByteArray>
#include <QTcpSocket>

#include <deque>
#include <optional>
#include <string>

/// A frame from the device.
struct WireFrame {
    Tavoro::SSProxy::Wire::WireHead head;
    std::string body;
};

/// A client that sends and receives single frames with any head. It does not split, join, check or
/// repeat anything. Each wait ends after five seconds.
class WireClient {
public:
    bool connectTo(quint16 port);
    /// Asks for the identity and returns the body of the answer.
    std::string identity();

    /// Returns a request on stream 1, which the test may change.
    static WireFrame request(quint16 code, Tavoro::SSProxy::CommandType type,
                             const std::string &body = {});

    /// Returns the request of a read without filters, on stream 1.
    static WireFrame readRequest(quint16 code);

    /// \a frame with the next number, if it is a request without one.
    WireFrame numbered(WireFrame frame);
    /// Numbers \a frame and sends it.
    void send(const WireFrame &frame);
    void sendBytes(const QByteArray &bytes);
    /// Sends \a frame and waits for its response. Reports that arrive before it are kept.
    WireFrame exchange(const WireFrame &frame);
    /// Waits for the next frame that is not a report. Reports that arrive before it are kept.
    WireFrame receiveResponse();
    int keptReports() const { return static_cast<int>(m_reports.size()); }
    WireFrame read(quint16 code, const std::array<quint8, 4> &arg2 = {});
    WireFrame write(quint16 code, const std::string &body);

    /// Takes control of the device (1), gives it up (2) or forces it (3). Returns the status.
    int control(quint8 action);

    /// Returns the next report, which may have been kept.
    WireFrame waitForReport();
    /// Returns true once the device has closed the connection.
    bool waitForEnd();

private:
    std::optional<WireFrame> receive();

    QTcpSocket m_socket;
    quint32 m_lastNumber = 0;
    Tavoro::SSProxy::Wire::FrameParser m_parser;
    std::deque<WireFrame> m_frames;
    std::deque<WireFrame> m_reports;
};
