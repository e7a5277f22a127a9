#pragma once

#include <tavorossproxy/controlaction.h>
#include <tavorossproxy/export.h>

#include <QList>
#include <QObject>
#include <QString>

#include <memory>
#include <string>

namespace Tavoro::SSProxy {

class DeviceChannel;
class DeviceManagerPrivate;
class IDeviceCommand;

/// Owns the channels to devices, one manager per process.
///
/// A channel's identity is its \c deviceBaseInfo(): \c ip as text, \c mac and \c sn as upper-case
/// hexadecimal digits, two per byte, first byte first. All members may be called from any thread.
class TAVOROSSPROXY_EXPORT DeviceManager : public QObject {
    Q_OBJECT

public:
    /// The manager; made on the first call, never null.
    static DeviceManager *instance();

    /// The channel of the device with this identity, null when there is none. Cheap: it is called
    /// for every request.
    std::shared_ptr<DeviceChannel> findTavoroDeviceChannel(const std::string &ip,
                                                           const std::string &mac,
                                                           const std::string &sn) const;
    /// The same search over all channels.
    std::shared_ptr<DeviceChannel> findDeviceChannel(const std::string &ip, const std::string &mac,
                                                     const std::string &sn) const;
    QList<std::weak_ptr<DeviceChannel>> tavoroDeviceChannels() const;

    /// Takes a channel into the manager. A channel that is in already stays where it is; null is
    /// ignored.
    void addDeviceChannel(std::shared_ptr<DeviceChannel> channel);
    /// Forgets a channel. It is not stopped: that is the caller's to do first.
    void removeDeviceChannel(std::shared_ptr<DeviceChannel> channel);

    /// Looks at the network again: channels that lost their device try to reconnect now instead of
    /// at their next turn, and where the application looks for devices, they are asked for now.
    void refreshDeviceChannel();

    /// Takes control of a device unless another client holds it. \a ip, \a mac and \a sn name the
    /// device. On failure \a error tells why, in words. Blocks until the device answers, over a
    /// network 10 s at the most.
    bool sendTavoroControlRequest(const QString &ip, const QString &mac, const QString &sn,
                                  QString &error);
    /// The same with an action of the caller's choice.
    bool sendTavoroControlRequest(const QString &ip, const QString &mac, const QString &sn,
                                  ControlAction action, QString &error);

Q_SIGNALS:
    /// A device sent a command unasked. Emitted on the thread that received it: the channels'
    /// thread, for channels over a network.
    ///
    /// A slot without a context object runs on that thread. It must not block, and operations that
    /// it calls fail with status 261. This goes for all signals of the manager.
    void parseDeviceAutoReportFinished(std::weak_ptr<Tavoro::SSProxy::DeviceChannel> channel,
                                       std::shared_ptr<Tavoro::SSProxy::IDeviceCommand> command);

    /// Another client has got control of a device (false), or holds it no more (true): what \c
    /// isMasterControl() of the channel says now. Changes within 100 ms are told as one. Emitted on
    /// the channels' thread.
    void masterControlChanged(std::weak_ptr<Tavoro::SSProxy::DeviceChannel> channel, bool isMaster);

    /// A device was found on the network, and a channel to it is in the manager now. It is about to
    /// connect. Emitted on the channels' thread.
    void deviceChannelFound(std::weak_ptr<Tavoro::SSProxy::DeviceChannel> channel);

private:
    DeviceManager();
    ~DeviceManager() override;

    const std::unique_ptr<DeviceManagerPrivate> d;
};

} // namespace Tavoro::SSProxy
