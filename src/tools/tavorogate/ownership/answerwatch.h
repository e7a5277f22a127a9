#pragma once

#include <tavorogate/broker/brokerconnection.h>

#include <QObject>

namespace Tavoro::Gate {

/// Sees the answers of other gateways, one object for all devices. A gateway may be suspended after
/// it has published an answer, and before it has published that the call has ended.
class AnswerWatch : public QObject {
    Q_OBJECT

public:
    explicit AnswerWatch(BrokerConnection &broker);

Q_SIGNALS:
    void answered(const Tavoro::Gate::BrokerMessage &message);

private:
    Subscription m_subscription;
};

} // namespace Tavoro::Gate
