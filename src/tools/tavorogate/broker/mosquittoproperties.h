#pragma once

#include "brokermessage.h"

#include <mosquitto.h>
#include <mqtt_protocol.h>

#include <utility>

namespace Tavoro::Gate {

/// A list of properties of MQTT 5 that frees itself.
class MosquittoProperties {
public:
    MosquittoProperties() = default;
    /// The properties that \a message is published with.
    explicit MosquittoProperties(const BrokerMessage &message);
    ~MosquittoProperties() { mosquitto_property_free_all(&m_list); }
    MosquittoProperties(const MosquittoProperties &) = delete;
    MosquittoProperties &operator=(const MosquittoProperties &) = delete;

    void addSubscriptionIdentifier(quint32 identifier);

    const mosquitto_property *list() const { return m_list; }
    /// Leaves the list to the caller, who frees it.
    mosquitto_property *release() { return std::exchange(m_list, nullptr); }

private:
    mosquitto_property *m_list = nullptr;
};

/// Reads the properties of a received message into \a message.
void readProperties(const mosquitto_property *list, BrokerMessage &message);

/// The subscription that a received message belongs to; 0 if the broker does not name it.
quint32 subscriptionIdentifier(const mosquitto_property *list);

} // namespace Tavoro::Gate
