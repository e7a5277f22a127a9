#pragma once

#include <tavorogate/broker/brokeroptions.h>
#include <tavorogate/calls/callrequest.h>

#include <QList>
#include <QPair>
#include <QString>

#include <optional>

namespace Tavoro::Gate {

/// Everything that the configuration file says.
struct GateConfig {
    QString name; ///< Of the gateway; by default the name of the machine.
    BrokerOptions broker;
    QList<QPair<QString, quint16>> devices; ///< Host and port.
    bool usesDiscovery = false; ///< Also works for each device that is found on the network.
    int controlIdleSeconds = 5; ///< After this time without a call control is given up.
    CallRules calls;
    QString metricsFile; ///< Where the counters are written; empty: nowhere.
};

/// Reads a configuration file: a JSON object, see docs/gateway.md. On failure returns nothing;
/// \a error then names the file, the line and what is wrong. Also reads the file of the password,
/// and checks that the files of certificates can be read.
std::optional<GateConfig> readConfig(const QString &fileName, QString &error);

} // namespace Tavoro::Gate
