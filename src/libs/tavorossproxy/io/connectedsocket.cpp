#include "connectedsocket_p.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace Tavoro::SSProxy::Internal {

namespace {

/// Longer than the packets of common devices, so that one call returns a packet with its head.
constexpr std::size_t receivedAtOnce = 128u << 10;

/// One buffer per thread: a connection keeps no bytes between two calls.
std::vector<char> &bufferOfThisThread()
{
    thread_local std::vector<char> buffer(receivedAtOnce);
    return buffer;
}

bool isTemporary(int error)
{
    return error == EAGAIN || error == EWOULDBLOCK || error == EINTR;
}

timespec timeUntil(Clock::TimePoint deadline)
{
    using std::chrono::nanoseconds;
    const auto left =
        std::max<nanoseconds>(deadline - Clock::TimePoint::clock::now(), nanoseconds(0));
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(left);
    timespec time{};
    time.tv_sec = seconds.count();
    time.tv_nsec = (left - seconds).count();
    return time;
}

} // namespace

ConnectedSocket::ConnectedSocket(int descriptor, SocketPoll::Watcher &watcher,
                                 ByteStream::Events &events)
    : m_descriptor(descriptor), m_events(&events), m_poll(SocketPoll::ofThisThread())
{
    m_poll->add(m_descriptor, watcher);
    m_poll->watchFor(m_descriptor, true, false);
}

ConnectedSocket::~ConnectedSocket()
{
    ::close(m_descriptor);
}

/// The descriptor stays open until no thread uses the object, so that its number cannot become that
/// of another file meanwhile.
void ConnectedSocket::end()
{
    {
        const std::lock_guard<std::mutex> lock(m_watchMutex);
        m_poll->remove(m_descriptor);
        m_poll.reset(); // on the loop's thread, to which it belongs
    }
    ::shutdown(m_descriptor, SHUT_RDWR);
    const std::lock_guard<std::mutex> lock(m_receiveMutex);
    m_events = nullptr;
}

void ConnectedSocket::send(const QByteArray &bytes)
{
    const std::lock_guard<std::mutex> lock(m_sendMutex);
    const qint64 sent = m_unsent == 0 ? sendNow(bytes.constData(), bytes.size()) : 0;
    if (sent == bytes.size())
        return;
    if (m_waiting.empty()) {
        m_sentOfFirst = sent;
        watchFor(m_awaitsRoom, true);
    }
    m_waiting.push_back(bytes);
    m_unsent += bytes.size() - sent;
}

bool ConnectedSocket::sendWaiting()
{
    const std::lock_guard<std::mutex> lock(m_sendMutex);
    if (m_waiting.empty())
        return false;
    while (!m_waiting.empty()) {
        const QByteArray &first = m_waiting.front();
        const qint64 sent =
            sendNow(first.constData() + m_sentOfFirst, first.size() - m_sentOfFirst);
        if (sent == 0)
            return false;
        m_unsent -= sent;
        m_sentOfFirst += sent;
        if (m_sentOfFirst < first.size())
            continue;
        m_waiting.pop_front();
        m_sentOfFirst = 0;
    }
    watchFor(m_awaitsRoom, false);
    return true;
}

/// Returns how many bytes the system has taken. If the connection has failed, ends it, so that the
/// thread that receives next finds the end.
qint64 ConnectedSocket::sendNow(const char *bytes, qint64 count)
{
    const ssize_t sent =
        ::send(m_descriptor, bytes, static_cast<std::size_t>(count), MSG_DONTWAIT | MSG_NOSIGNAL);
    if (sent >= 0)
        return sent;
    if (!isTemporary(errno)) {
        m_error = errno;
        ::shutdown(m_descriptor, SHUT_RDWR);
    }
    return 0;
}

ConnectedSocket::Received ConnectedSocket::receive()
{
    std::vector<char> &buffer = bufferOfThisThread();
    const std::lock_guard<std::mutex> lock(m_receiveMutex);
    const ssize_t count = ::recv(m_descriptor, buffer.data(), buffer.size(), MSG_DONTWAIT);
    if (count < 0 && isTemporary(errno))
        return Received::Nothing;
    if (count < 0)
        m_error = errno;
    if (count <= 0 || !m_events)
        return Received::End;
    m_events->streamReceived({buffer.data(), static_cast<std::size_t>(count)});
    return Received::Bytes;
}

void ConnectedSocket::awaitBytes(const WakeUp &wakeUp, Clock::TimePoint deadline) const
{
    pollfd descriptors[] = {{m_descriptor, POLLIN, 0}, {wakeUp.descriptor(), POLLIN, 0}};
    const timespec time = timeUntil(deadline);
    if (::ppoll(descriptors, 2, &time, nullptr) > 0 && descriptors[1].revents != 0)
        wakeUp.reset();
}

void ConnectedSocket::watchFor(bool &what, bool isWanted)
{
    const std::lock_guard<std::mutex> lock(m_watchMutex);
    what = isWanted;
    if (m_poll)
        m_poll->watchFor(m_descriptor, m_isReadByLoop, m_awaitsRoom);
}

} // namespace Tavoro::SSProxy::Internal
