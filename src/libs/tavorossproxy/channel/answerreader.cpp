#include "answerreader_p.h"

#include <tavorossproxy/io/connectedsocket_p.h>
#include <tavorossproxy/io/wakeup_p.h>

#include <utility>

namespace Tavoro::SSProxy::Internal {

void AnswerReader::setSocket(std::shared_ptr<ConnectedSocket> socket)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_socket = std::move(socket);
    m_isPaused = false;
}

void AnswerReader::pause()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_isPaused = true;
}

void AnswerReader::resume()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_isPaused = false;
}

bool AnswerReader::begin()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_reading = m_isPaused ? nullptr : m_socket;
    }
    m_wakeUp = &WakeUp::ofThisThread();
    if (!m_reading || !m_wakeUp->isValid())
        return false;
    m_thread = std::this_thread::get_id();
    m_reading->beginReading();
    return true;
}

bool AnswerReader::receive(Clock::TimePoint deadline)
{
    m_reading->awaitBytes(*m_wakeUp, deadline);
    const bool hasEnded = m_reading->receive() == ConnectedSocket::Received::End;
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (hasEnded && m_socket == m_reading)
        m_socket.reset();
    return !hasEnded && !m_isPaused;
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
