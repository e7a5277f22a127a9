#include "barepair.h"

#include "bench.h"

#include <QTcpServer>
#include <QTcpSocket>

#include <algorithm>
#include <cstring>
#include <future>
#include <thread>

namespace Bench {

namespace {

constexpr int headSize = 36;

/// Takes \a size bytes off the socket as soon as they are there.
void take(QTcpSocket &socket, char *bytes, int size)
{
    for (int done = 0; done < size;) {
        if (socket.bytesAvailable() == 0 && !socket.waitForReadyRead(patience))
            fail(socket.errorString());
        done += static_cast<int>(socket.read(bytes + done, size - done));
    }
}

/// Sends heads with what follows them of the source.
class Sender {
public:
    Sender(QTcpSocket &socket, std::string_view source) : m_socket(socket), m_source(source) { }

    void send(int size)
    {
        m_packet.resize(size);
        const auto length =
            std::min(m_source.size(), static_cast<std::size_t>(size - std::min(headSize, size)));
        if (m_source.size() - m_next < length)
            m_next = 0;
        std::memcpy(m_packet.data() + size - length, m_source.data() + m_next, length);
        m_next += length;
        m_socket.write(m_packet);
        while (m_socket.bytesToWrite() > 0)
            m_socket.waitForBytesWritten(patience);
    }

private:
    QTcpSocket &m_socket;
    const std::string_view m_source;
    std::size_t m_next = 0;
    QByteArray m_packet;
};

/// The one that answers.
void serve(std::promise<quint16> &port, const std::vector<BareExchange> &exchanges,
           std::string_view source)
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    port.set_value(server.serverPort());
    if (!server.waitForNewConnection(patience))
        fail(server.errorString());
    QTcpSocket &socket = *server.nextPendingConnection();
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    Sender sender(socket, source);
    QByteArray request;
    for (const BareExchange &exchange : exchanges) {
        request.resize(exchange.request);
        take(socket, request.data(), exchange.request);
        sender.send(exchange.answer);
    }
    socket.disconnectFromHost();
    if (socket.state() != QAbstractSocket::UnconnectedState)
        socket.waitForDisconnected(patience);
}

/// Takes an answer; the place behind what \a sink has is for what follows the head.
void takeAnswer(QTcpSocket &socket, int size, QByteArray &dropped, std::string *sink)
{
    if (!sink) {
        dropped.resize(size);
        return take(socket, dropped.data(), size);
    }
    char head[headSize];
    take(socket, head, headSize);
    const std::size_t before = sink->size();
    sink->resize(before + static_cast<std::size_t>(size - headSize));
    take(socket, sink->data() + before, size - headSize);
}

std::size_t answeredBytes(const std::vector<BareExchange> &exchanges)
{
    std::size_t sum = 0;
    for (const BareExchange &exchange : exchanges)
        sum += static_cast<std::size_t>(exchange.answer - headSize);
    return sum;
}

/// Packets of \a length bytes; \a make tells the exchange that moves one of a given size.
template <class Make>
std::vector<BareExchange> cut(qint64 length, int packetSize, Make make)
{
    std::vector<BareExchange> exchanges;
    for (qint64 done = 0; done < length; done += packetSize)
        exchanges.push_back(
            make(headSize + static_cast<int>(std::min<qint64>(packetSize, length - done))));
    return exchanges;
}

} // namespace

void runBarePair(const std::vector<BareExchange> &exchanges, std::string_view source,
                 std::string *sink)
{
    std::promise<quint16> port;
    std::thread device([&] { serve(port, exchanges, source); });
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, port.get_future().get());
    if (!socket.waitForConnected(patience))
        fail(socket.errorString());
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    if (sink)
        sink->reserve(answeredBytes(exchanges));
    Sender sender(socket, source);
    QByteArray dropped;
    for (const BareExchange &exchange : exchanges) {
        sender.send(exchange.request);
        takeAnswer(socket, exchange.answer, dropped, sink);
    }
    device.join();
}

std::vector<BareExchange> bareReads(qint64 length, int packetSize)
{
    return cut(length, packetSize, [](int size) { return BareExchange{headSize, size}; });
}

std::vector<BareExchange> bareWrites(qint64 length, int packetSize)
{
    return cut(length, packetSize, [](int size) { return BareExchange{size, headSize}; });
}

} // namespace Bench
