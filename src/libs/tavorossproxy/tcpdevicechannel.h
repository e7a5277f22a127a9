#pragma once

#include <tavorossproxy/channeloptions.h>
#include <tavorossproxy/networkchannel.h>

#include <memory>

namespace Tavoro::SSProxy {

/// Opens a channel to the device at \a host and \a port, and returns at once; the channel connects
/// in the background. Never null. A \c QCoreApplication must exist.
///
/// If \a host is empty or \a port is 0, the channel never connects, and requests end with status
/// 257.
///
/// The manager does not know the channel until it is added:
/// \code
/// auto channel = openTcpDeviceChannel(QStringLiteral("192.0.2.7"));
/// QString error;
/// if (!channel->waitUntilReady(5000, error))
///     qCritical().noquote() << error;
/// DeviceManager::instance()->addDeviceChannel(channel);
/// \endcode
///
/// All channels share one thread, which receives frames and emits the manager's signals. A slot on
/// that thread must not block; requests from it end with status 261. The thread ends with the
/// application object; later requests end with status 264.
TAVOROSSPROXY_EXPORT std::shared_ptr<NetworkChannel>
openTcpDeviceChannel(const QString &host, quint16 port = defaultTcpPort,
                     const ChannelOptions &options = {});

} // namespace Tavoro::SSProxy
