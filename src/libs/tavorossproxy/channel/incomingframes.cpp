#include "incomingframes_p.h"

#include <tavorowire/linkcommands.h>

#include <utility>

namespace Tavoro::SSProxy::Internal {

IncomingFrames::IncomingFrames(quint32 maxBodySize, AnswerHandler complete)
    : m_complete(std::move(complete)), m_parser(maxBodySize)
{ }

IncomingFrames::Batch IncomingFrames::receive(std::string_view bytes)
{
    Batch batch;
    batch.isSameFrame = m_parser.isWithinFrame();
    const std::lock_guard<std::mutex> lock(m_mutex);
    while (auto event = m_parser.next(bytes)) {
        batch.isSameFrame = false;
        if (mayComplete(*event))
            m_complete(std::move(*event));
        else
            m_waiting.push_back(std::move(*event));
    }
    batch.hasWaiting = !m_waiting.empty();
    batch.unfinished = m_parser.unfinishedHead();
    batch.isWithinFrame = m_parser.isWithinFrame();
    return batch;
}

/// An answer about control also changes what the loop's thread knows about control.
bool IncomingFrames::mayComplete(const Wire::FrameEvent &event) const
{
    return m_completesAnswers && !m_isHandling && m_waiting.empty() && event.status == 0
        && event.head.kind == quint8(Wire::FrameKind::Response)
        && !hasCode(event.head, Wire::LinkCommand::Control);
}

void IncomingFrames::setCompletesAnswers(bool completes)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_completesAnswers = completes;
}

std::optional<Wire::FrameEvent> IncomingFrames::next()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_waiting.empty())
        return std::nullopt;
    std::optional<Wire::FrameEvent> event(std::move(m_waiting.front()));
    m_waiting.pop_front();
    m_isHandling = true;
    return event;
}

void IncomingFrames::handled()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_isHandling = false;
}

void IncomingFrames::clear()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_parser.reset();
    m_waiting.clear();
    m_completesAnswers = false;
}

} // namespace Tavoro::SSProxy::Internal
