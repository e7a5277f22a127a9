#include "mosquittoproperties.h"

#include <cstdlib>
#include <memory>

namespace Tavoro::Gate {

namespace {

struct Free {
    void operator()(void *memory) const
    {
        std::free(memory);
    } // NOLINT(cppcoreguidelines-no-malloc)
};
using Text = std::unique_ptr<char, Free>;

QString readText(const mosquitto_property *list, int identifier)
{
    char *text = nullptr;
    mosquitto_property_read_string(list, identifier, &text, false);
    return QString::fromUtf8(Text(text).get());
}

QByteArray readBytes(const mosquitto_property *list, int identifier)
{
    void *bytes = nullptr;
    uint16_t length = 0;
    mosquitto_property_read_binary(list, identifier, &bytes, &length, false);
    const std::unique_ptr<void, Free> owned(bytes);
    return QByteArray(static_cast<const char *>(bytes), length);
}

} // namespace

MosquittoProperties::MosquittoProperties(const BrokerMessage &message)
{
    if (!message.responseTopic.isEmpty())
        mosquitto_property_add_string(&m_list, MQTT_PROP_RESPONSE_TOPIC,
                                      message.responseTopic.toUtf8().constData());
    if (!message.correlation.isEmpty())
        mosquitto_property_add_binary(&m_list, MQTT_PROP_CORRELATION_DATA,
                                      message.correlation.constData(),
                                      static_cast<uint16_t>(message.correlation.size()));
    if (message.expirySeconds)
        mosquitto_property_add_int32(&m_list, MQTT_PROP_MESSAGE_EXPIRY_INTERVAL,
                                     *message.expirySeconds);
    for (const auto &property : message.userProperties)
        mosquitto_property_add_string_pair(&m_list, MQTT_PROP_USER_PROPERTY,
                                           property.first.toUtf8().constData(),
                                           property.second.toUtf8().constData());
}

void MosquittoProperties::addSubscriptionIdentifier(quint32 identifier)
{
    mosquitto_property_add_varint(&m_list, MQTT_PROP_SUBSCRIPTION_IDENTIFIER, identifier);
}

void readProperties(const mosquitto_property *list, BrokerMessage &message)
{
    message.responseTopic = readText(list, MQTT_PROP_RESPONSE_TOPIC);
    message.correlation = readBytes(list, MQTT_PROP_CORRELATION_DATA);
    uint32_t seconds = 0;
    if (mosquitto_property_read_int32(list, MQTT_PROP_MESSAGE_EXPIRY_INTERVAL, &seconds, false))
        message.expirySeconds = seconds;
    for (auto each = list; each; each = mosquitto_property_next(each)) {
        if (mosquitto_property_identifier(each) != MQTT_PROP_USER_PROPERTY)
            continue;
        char *name = nullptr;
        char *value = nullptr;
        mosquitto_property_read_string_pair(each, MQTT_PROP_USER_PROPERTY, &name, &value, false);
        message.userProperties.append(
            {QString::fromUtf8(Text(name).get()), QString::fromUtf8(Text(value).get())});
    }
}

quint32 subscriptionIdentifier(const mosquitto_property *list)
{
    uint32_t identifier = 0;
    mosquitto_property_read_varint(list, MQTT_PROP_SUBSCRIPTION_IDENTIFIER, &identifier, false);
    return identifier;
}

} // namespace Tavoro::Gate
