#include "publishturns.h"

#include <tavorogate/broker/brokerconnection.h>

#include <algorithm>

namespace Tavoro::Gate {

namespace {

constexpr int mostTurns = 50; ///< Until other work of the event loop is done.

} // namespace

PublishTurns::PublishTurns(BrokerConnection &broker) : m_broker(broker)
{
    m_soon.setSingleShot(true);
    m_soon.setInterval(0);
    connect(&m_soon, &QTimer::timeout, this, &PublishTurns::giveTurns);
    connect(&broker, &BrokerConnection::roomAvailable, &m_soon, qOverload<>(&QTimer::start));
    connect(&broker, &BrokerConnection::connected, &m_soon, qOverload<>(&QTimer::start));
}

void PublishTurns::request(TurnTaker &taker)
{
    if (std::find(m_waiting.begin(), m_waiting.end(), &taker) == m_waiting.end())
        m_waiting.push_back(&taker);
    if (!m_soon.isActive())
        m_soon.start();
}

void PublishTurns::remove(const TurnTaker &taker)
{
    m_waiting.erase(std::remove(m_waiting.begin(), m_waiting.end(), &taker), m_waiting.end());
}

void PublishTurns::giveTurns()
{
    for (int turn = 0; turn < mostTurns && !m_waiting.empty() && m_broker.hasRoom(); ++turn) {
        TurnTaker *const taker = m_waiting.front();
        m_waiting.pop_front();
        if (taker->publishOne())
            m_waiting.push_back(taker);
    }
    if (!m_waiting.empty() && m_broker.hasRoom())
        m_soon.start();
}

} // namespace Tavoro::Gate
