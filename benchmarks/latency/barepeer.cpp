#include "barepeer.h"

#include <support/bench.h>

#include <QCoreApplication>

#include <arpa/inet.h>
#include <cstdio>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace Latency {

using Bench::require;

namespace {

sockaddr_in loopbackAddress(quint16 port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
}

void sendWithoutDelay(int socket)
{
    const int on = 1;
    ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

bool receiveAll(int socket, std::string &bytes)
{
    return ::recv(socket, bytes.data(), bytes.size(), MSG_WAITALL)
        == static_cast<ssize_t>(bytes.size());
}

bool sendAll(int socket, const std::string &bytes)
{
    return ::send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL)
        == static_cast<ssize_t>(bytes.size());
}

} // namespace

int serveBare(int requestSize, int answerSize)
{
    const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = loopbackAddress(0);
    socklen_t length = sizeof address;
    if (::bind(listener, reinterpret_cast<sockaddr *>(&address), length) != 0
        || ::listen(listener, 1) != 0
        || ::getsockname(listener, reinterpret_cast<sockaddr *>(&address), &length) != 0)
        return 1;
    std::printf("port %d\n", ntohs(address.sin_port));
    std::fflush(stdout);
    const int socket = ::accept(listener, nullptr, nullptr);
    sendWithoutDelay(socket);
    std::string request(static_cast<std::size_t>(requestSize), '\0');
    const std::string answer(static_cast<std::size_t>(answerSize), 'a');
    while (receiveAll(socket, request) && sendAll(socket, answer)) { }
    return 0;
}

BarePeer::BarePeer(const QStringList &arguments, int requestSize, int answerSize)
    : m_request(static_cast<std::size_t>(requestSize), 'r'),
      m_answer(static_cast<std::size_t>(answerSize), '\0')
{
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QCoreApplication::applicationFilePath(), arguments);
    require(m_process.waitForReadyRead(Bench::patience), QStringLiteral("the bare peer is silent"));
    const sockaddr_in address =
        loopbackAddress(m_process.readLine().trimmed().mid(5).toUShort()); // "port PORT"
    m_socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    require(::connect(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0,
            QStringLiteral("the bare peer refuses the connection"));
    sendWithoutDelay(m_socket);
}

BarePeer::~BarePeer()
{
    ::close(m_socket);
    m_process.waitForFinished();
}

void BarePeer::exchange()
{
    require(sendAll(m_socket, m_request) && receiveAll(m_socket, m_answer),
            QStringLiteral("the bare peer is gone"));
}

} // namespace Latency
