#pragma once

#include <QByteArray>
#include <QString>

#include <chrono>

namespace Tavoro::Gate {

/// How to encrypt the connection. Without a file of authorities and without a certificate the
/// connection is not encrypted.
struct TlsOptions {
    QString authorities; ///< File with the certificates of the authorities that sign brokers.
    QString certificate; ///< File with this gateway's own certificate; empty: none.
    QString key; ///< File with the private key of the certificate.

    bool isEnabled() const { return !authorities.isEmpty() || !certificate.isEmpty(); }
};

/// Where the broker is and who the gateway is there.
struct BrokerOptions {
    using Milliseconds = std::chrono::milliseconds;

    QString host = QStringLiteral("127.0.0.1");
    quint16 port = 1883;
    QString clientId; ///< Brokers accept one connection for each client ID.
    QString user; ///< Empty: the gateway connects without a name.
    QByteArray password;
    TlsOptions tls;
    int keepAliveSeconds = 20;
    Milliseconds connectTime{10000}; ///< How long an attempt to connect may take.
    Milliseconds firstPause{500}; ///< Before the second attempt. Each further one is twice as long.
    Milliseconds longestPause{15000};
};

} // namespace Tavoro::Gate
