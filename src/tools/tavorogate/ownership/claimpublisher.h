#pragma once

#include "claimrecord.h"

#include <tavorogate/broker/brokerconnection.h>

#include <QByteArray>
#include <QString>

#include <optional>

namespace Tavoro::Gate {

/// Publishes what one gateway has to say to the others about the calls of a device.
class ClaimPublisher {
public:
    /// \a gateway is the name of the gateway.
    ClaimPublisher(BrokerConnection &broker, const QString &serial, const QString &gateway);

    /// True if this object has published the record.
    bool hasPublished(const ClaimRecord &record) const { return record.instance == m_instance; }

    /// The record that follows \a last in the sequence.
    ClaimRecord next(const std::optional<ClaimRecord> &last) const;
    void publish(const ClaimRecord &record, BrokerConnection::Delivered delivered = {});

    // Records outside the sequence, see DeviceOwnership.
    void ask(const CallRequest &call, bool isDoubtful);
    void replyWaiting(const CallRequest &call);
    void replyAnswered(const CallRequest &call, const CallAnswer &answer);

    /// Publishes a barrier and returns it: the message that arrives after all earlier records.
    QByteArray publishBarrier();

private:
    ClaimRecord note(ClaimRecord::State state, const CallRequest &call) const;

    BrokerConnection &m_broker;
    const QString m_topic;
    const QString m_gateway;
    const QString m_instance; ///< Identifies this object in records.
    quint64 m_barriers = 0; ///< How many were published.
};

} // namespace Tavoro::Gate
