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

constexpr int headSize = 40;

/// Reads \a size bytes from the socket; waits until they are there.
void take(QTcpSocket &socket, char *bytes, int size)
{
    for (int done = 0; done < size;) {
        if (socket.bytesAvailable() == 0 && !socket.waitForReadyRead(patience))
            fail(socket.errorString());
        done += static_cast<int>(socket.read(bytes + done, size - done));
    }
}

/// Sends heads, each followed by bytes of the source.
class Sender {
public:
    Sender(QTcpSocket &socket, std::string_view source) : m_socket(socket), m_source(source) { }

    void send(int size)
    {
        m_packet.resize(size);
        const auto length = std::min(m_source.size(), static_cast<std::size_t>(size - headSize));
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

/// Receives heads and the bytes after them; discards or keeps these bytes.
class Receiver {
public:
    /// \a sink may be null; otherwise \a length bytes are reserved in it.
    Receiver(QTcpSocket &socket, std::string *sink, std::size_t length)
        : m_socket(socket), m_sink(sink)
    {
        if (m_sink)
            m_sink->reserve(length);
    }

    void receive(int size)
    {
        if (!m_sink) {
            m_dropped.resize(size);
            return take(m_socket, m_dropped.data(), size);
        }
        char head[headSize];
        take(m_socket, head, headSize);
        const std::size_t before = m_sink->size();
        m_sink->resize(before + static_cast<std::size_t>(size - headSize));
        take(m_socket, m_sink->data() + before, size - headSize);
    }

private:
    QTcpSocket &m_socket;
    std::string *const m_sink;
    QByteArray m_dropped;
};

/// The bytes that follow the heads in one direction.
std::size_t lengthOf(const std::vector<BareExchange> &exchanges, int BareExchange::*direction)
{
    std::size_t sum = 0;
    for (const BareExchange &exchange : exchanges)
        sum += static_cast<std::size_t>(exchange.*direction - headSize);
    return sum;
}

/// The side that answers.
void serve(std::promise<quint16> &port, const std::vector<BareExchange> &exchanges,
           std::string_view source, std::string *store)
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    port.set_value(server.serverPort());
    if (!server.waitForNewConnection(patience))
        fail(server.errorString());
    QTcpSocket &socket = *server.nextPendingConnection();
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    Sender sender(socket, source);
    Receiver receiver(socket, store, lengthOf(exchanges, &BareExchange::request));
    for (const BareExchange &exchange : exchanges) {
        receiver.receive(exchange.request);
        sender.send(exchange.answer);
    }
    socket.disconnectFromHost();
    if (socket.state() != QAbstractSocket::UnconnectedState)
        socket.waitForDisconnected(patience);
}

/// Packets of \a length bytes; \a make returns the exchange that moves a packet of a given size.
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
                 std::string *sink, std::string *store)
{
    std::promise<quint16> port;
    std::thread device([&] { serve(port, exchanges, source, store); });
    QTcpSocket socket;
    socket.connectToHost(QHostAddress::LocalHost, port.get_future().get());
    if (!socket.waitForConnected(patience))
        fail(socket.errorString());
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    Sender sender(socket, source);
    Receiver receiver(socket, sink, lengthOf(exchanges, &BareExchange::answer));
    for (const BareExchange &exchange : exchanges) {
        sender.send(exchange.request);
        receiver.receive(exchange.answer);
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
