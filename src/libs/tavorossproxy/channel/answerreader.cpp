#include "answerreader_p.h"

#include <tavorossproxy/io/connectedsocket_p.h>
#include <tavorossproxy/io/wakeup_p.h>

#include <utility>

namespace Tavoro::SSProxy::Internal {

void AnswerReader::setSocket(std::shared_ptr<ConnectedSocket> socket)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_socket = std::move(socket);
}

bool AnswerReader::begin()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_reading = m_socket;
    }
    if (!m_reading)
        return false;
    m_wakeUp = &WakeUp::ofThisThread();
    m_thread = std::this_thread::get_id();
    m_reading->beginReading();
    return true;
}

bool AnswerReader::receive(Clock::TimePoint deadline)
{
    m_reading->awaitBytes(*m_wakeUp, deadline);
    if (m_reading->receive() != ConnectedSocket::Received::End)
        return true;
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_socket == m_reading)
        m_socket.reset();
    return false;
}

void AnswerReader::end()
{
    std::exchange(m_reading, nullptr)->endReading();
}

void AnswerReader::interrupt() const
{
    if (m_thread != std::this_thread::get_id())
        m_wakeUp->wake();
}

} // namespace Tavoro::SSProxy::Internal
