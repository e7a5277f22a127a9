#pragma once

#include <tavorossproxy/channeloptions.h>
#include <tavorossproxy/networkchannel.h>

#include <memory>

namespace Tavoro::SSProxy {

/// Begins to connect to a device and returns at once. A \c QCoreApplication must exist.
///
/// Without a host or a port there is nothing to connect to: such a channel is never opened, and
/// refuses requests as not initialised.
///
/// The channel is not known to the manager until it is added there:
/// \code
/// auto channel = openTcpDeviceChannel(QStringLiteral("192.0.2.7"));
/// QString error;
/// if (!channel->waitUntilReady(5000, error))
///     qCritical().noquote() << error;
/// DeviceManager::instance()->addDeviceChannel(channel);
/// \endcode
///
/// All channels share one thread, which receives and which emits the manager's reports. A slot that
/// runs on it must not block; requests from it are refused. The thread ends with the application
/// object, and channels that are still there then refuse requests too.
TAVOROSSPROXY_EXPORT std::shared_ptr<NetworkChannel>
openTcpDeviceChannel(const QString &host, quint16 port = defaultTcpPort,
                     const ChannelOptions &options = {});

} // namespace Tavoro::SSProxy
