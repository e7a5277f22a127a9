#pragma once

#include <QObject>
#include <QTimer>

#include <deque>

namespace Tavoro::Gate {

class BrokerConnection;

/// Something that publishes one message at a time when it is its turn.
class TurnTaker {
public:
    virtual ~TurnTaker() = default;
    /// Publishes one message. Returns false if there was nothing to publish.
    virtual bool publishOne() = 0;
};

/// Lets many devices publish bulk over one connection: no faster than the broker acknowledges it,
/// and each device in its turn. Meanwhile later changes of an object replace earlier ones.
class PublishTurns : public QObject {
    Q_OBJECT

public:
    explicit PublishTurns(BrokerConnection &broker);

    /// Gives turns to \a taker, from the event loop, until it has nothing to publish.
    void request(TurnTaker &taker);
    /// Must be called before a taker is destroyed.
    void remove(const TurnTaker &taker);

private:
    void giveTurns();

    BrokerConnection &m_broker;
    std::deque<TurnTaker *> m_waiting;
    QTimer m_soon;
};

} // namespace Tavoro::Gate
