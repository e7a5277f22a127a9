#include "faultyanswers.h"

#include <tavorosim/state/simlog.h>
#include <tavorowire/frame.h>

#include <algorithm>

namespace Tavoro::Sim {

using SSProxy::Wire::WireHead;

Delivery FaultyAnswers::deliver(const WireHead &request, quint16 code, const MakeAnswer &makeAnswer)
{
    Delivery delivery;
    if (takeHeldBack(request, delivery))
        return delivery;
    if (const auto rule = m_rules.next(code)) {
        qCInfo(simLog, "fault %s", qUtf8Printable(toText(*rule)));
        rule->fault->inject({request, rule->value, makeAnswer, m_history, m_rules.random()},
                            delivery);
    } else {
        const PacketAssembler::Packet answer = makeAnswer(request);
        delivery.bytes = SSProxy::Wire::encodeFrame(answer.head, answer.body);
    }
    if (delivery.bytes.isEmpty())
        m_history.unanswered = request;
    return delivery;
}

/// Delivers the packet that was kept when the requested one was sent in its place.
bool FaultyAnswers::takeHeldBack(const WireHead &request, Delivery &delivery)
{
    auto &heldBack = m_history.heldBack;
    const auto held = std::find_if(heldBack.begin(), heldBack.end(), [&](const auto &packet) {
        return packet.head.stream == request.stream
            && packet.head.sendCount + 1 == request.sendCount;
    });
    if (held == heldBack.end())
        return false;
    held->head.lables = request.lables;
    held->head.number = request.number;
    delivery.bytes = SSProxy::Wire::encodeFrame(held->head, held->body);
    delivery.preparedAnswer = std::move(*held);
    heldBack.erase(held);
    return true;
}

} // namespace Tavoro::Sim
