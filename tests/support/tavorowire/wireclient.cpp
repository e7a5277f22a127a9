#include "wireclient.h"

#include <tavorowire/frame.h>

#include <QHostAddress>

#include <algorithm>
#include <iterator>

using Tavoro::SSProxy::CommandType;
using Tavoro::SSProxy::Wire::FrameKind;

namespace {

constexpr int patience = 5000; ///< Milliseconds.

} // namespace

bool WireClient::connectTo(quint16 port)
{
    m_socket.connectToHost(QHostAddress::LocalHost, port);
    return m_socket.waitForConnected(patience);
}

std::string WireClient::identity()
{
    sendBytes(Tavoro::SSProxy::Wire::encodeLinkFrame(FrameKind::IdentityRequest));
    const auto frame = receive();
    return frame ? frame->body : std::string();
}

WireFrame WireClient::request(quint16 code, CommandType type, const std::string &body)
{
    WireFrame frame;
    frame.head.kind = static_cast<quint8>(FrameKind::Request);
    frame.head.lables = 1;
    frame.head.stream = 1;
    frame.head.type = static_cast<quint8>(type);
    frame.head.BC = static_cast<quint8>(code >> 8);
    frame.head.FC = static_cast<quint8>(code & 0xFF);
    frame.body = body;
    return frame;
}

WireFrame WireClient::readRequest(quint16 code)
{
    return request(code, Tavoro::SSProxy::CommandType::Read);
}

WireFrame WireClient::numbered(WireFrame frame)
{
    if (frame.head.kind == static_cast<quint8>(FrameKind::Request) && frame.head.number == 0)
        frame.head.number = ++m_lastNumber;
    return frame;
}

void WireClient::send(const WireFrame &frame)
{
    const WireFrame sent = numbered(frame);
    sendBytes(Tavoro::SSProxy::Wire::encodeFrame(sent.head, sent.body));
}

void WireClient::sendBytes(const QByteArray &bytes)
{
    m_socket.write(bytes);
    m_socket.flush();
}

WireFrame WireClient::exchange(const WireFrame &frame)
{
    send(frame);
    return receiveResponse();
}

WireFrame WireClient::receiveResponse()
{
    while (auto received = receive()) {
        if (received->head.kind != static_cast<quint8>(FrameKind::Report))
            return *received;
        m_reports.push_back(std::move(*received));
    }
    return {};
}

WireFrame WireClient::read(quint16 code, const std::array<quint8, 4> &arg2)
{
    WireFrame frame = request(code, CommandType::Read);
    std::copy(arg2.begin(), arg2.end(), std::begin(frame.head.arg2));
    return exchange(frame);
}

WireFrame WireClient::write(quint16 code, const std::string &body)
{
    return exchange(request(code, CommandType::Write, body));
}

int WireClient::control(quint8 action)
{
    WireFrame frame = request(0x0101, CommandType::Write);
    frame.head.arg2[0] = action;
    return exchange(frame).head.status;
}

WireFrame WireClient::waitForReport()
{
    if (!m_reports.empty()) {
        WireFrame report = std::move(m_reports.front());
        m_reports.pop_front();
        return report;
    }
    while (auto frame = receive()) {
        if (frame->head.kind == static_cast<quint8>(FrameKind::Report))
            return *frame;
    }
    return {};
}

bool WireClient::waitForEnd()
{
    return m_socket.state() == QAbstractSocket::UnconnectedState
        || m_socket.waitForDisconnected(patience);
}

std::optional<WireFrame> WireClient::receive()
{
    while (m_frames.empty()) {
        if (m_socket.bytesAvailable() == 0 && !m_socket.waitForReadyRead(patience))
            return std::nullopt;
        const QByteArray bytes = m_socket.readAll();
        std::string_view rest(bytes.constData(), static_cast<std::size_t>(bytes.size()));
        while (auto event = m_parser.next(rest))
            m_frames.push_back({event->head, std::move(event->body)});
    }
    WireFrame frame = std::move(m_frames.front());
    m_frames.pop_front();
    return frame;
}
