#pragma once

#include <QByteArray>
#include <QList>
#include <QPair>
#include <QString>

#include <optional>

namespace Tavoro::Gate {

/// A message of MQTT 5, received or to be published.
struct BrokerMessage {
    QString topic;
    QByteArray payload;
    int qos = 1;
    bool isRetained = false;
    QString responseTopic; ///< Where the sender expects an answer; empty if nowhere.
    QByteArray correlation; ///< What the answer repeats.
    std::optional<quint32> expirySeconds; ///< Time until the message expires.
    QList<QPair<QString, QString>> userProperties;

    /// The first user property with this name; empty if there is none.
    QString userProperty(const QString &name) const
    {
        for (const auto &property : userProperties) {
            if (property.first == name)
                return property.second;
        }
        return {};
    }
};

} // namespace Tavoro::Gate
