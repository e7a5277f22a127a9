#include "answerelements_p.h"

#include "requestkinds_p.h"

#include <tavorowire/splitlimits.h>

#include <algorithm>

namespace Tavoro::SSProxy::Internal {

quint64 AnswerElements::add(const Wire::WireHead &request, const DeviceResponseCommand &packet)
{
    if (request.type != quint8(CommandType::Read))
        return 0;
    const Wire::WireHead answer = Wire::wireHead(packet.head());
    Wire::JsonElements elements;
    if (request.sendCount > 0)
        elements = take(request.stream);
    if (packet.status != 0)
        return 0;
    elements.add(packet.body());
    if (!isLastPacket(answer))
        keep(request.stream, elements);
    return elements.count();
}

Wire::JsonElements AnswerElements::take(quint16 stream)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = std::find_if(m_unfinished.begin(), m_unfinished.end(),
                                    [stream](const auto &one) { return one.stream == stream; });
    if (found == m_unfinished.end())
        return {};
    const Wire::JsonElements elements = found->elements;
    m_unfinished.erase(found);
    return elements;
}

/// The callers may have left answers unfinished: the one that was counted longest ago goes first.
void AnswerElements::keep(quint16 stream, const Wire::JsonElements &elements)
{
    take(stream);
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_unfinished.size() == Wire::splitReadLimit)
        m_unfinished.erase(m_unfinished.begin());
    m_unfinished.push_back({stream, elements});
}

} // namespace Tavoro::SSProxy::Internal
