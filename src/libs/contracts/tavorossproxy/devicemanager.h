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

/// Owns the channels to devices. There is one manager per process.
///
/// Channels are found by their \c deviceBaseInfo(): \c ip as text, \c mac and \c sn as upper-case
/// hexadecimal digits, two per byte, first byte first. All members may be called from any thread.
class TAVOROSSPROXY_EXPORT DeviceManager : public QObject {
    Q_OBJECT

public:
    /// Returns the manager, which the first call creates. Never null.
    static DeviceManager *instance();

    /// Returns the channel of the device with this identity; null if there is none. Fast: the
    /// control library calls it for every request.
    std::shared_ptr<DeviceChannel> findTavoroDeviceChannel(const std::string &ip,
                                                           const std::string &mac,
                                                           const std::string &sn) const;
    /// Does the same, for channels of every kind.
    std::shared_ptr<DeviceChannel> findDeviceChannel(const std::string &ip, const std::string &mac,
                                                     const std::string &sn) const;
    /// Returns all channels.
    QList<std::weak_ptr<DeviceChannel>> tavoroDeviceChannels() const;

    /// Adds a channel. Ignores null, and a channel that was added before.
    void addDeviceChannel(std::shared_ptr<DeviceChannel> channel);
    /// Removes a channel. Does not stop it: call DeviceChannel::stopChannel() before.
    void removeDeviceChannel(std::shared_ptr<DeviceChannel> channel);

    /// Makes channels without a connection reconnect at once instead of after their pause, and
    /// sends a discovery request if discovery was started. Returns at once.
    void refreshDeviceChannel();

    /// Takes control of the device with \a ip, \a mac and \a sn, unless another client holds it.
    ///
    /// Returns false if the device did not grant control or is not connected; \a error then says
    /// why, and names the client that holds control. Blocks until the device answers, over a
    /// network at most 10 s.
    bool sendTavoroControlRequest(const QString &ip, const QString &mac, const QString &sn,
                                  QString &error);
    /// Does the same with an action of the caller's choice.
    bool sendTavoroControlRequest(const QString &ip, const QString &mac, const QString &sn,
                                  ControlAction action, QString &error);

Q_SIGNALS:
    /// A device sent a report. Emitted on the thread that received it: for channels over a network,
    /// the channels' thread.
    ///
    /// A slot without a context object runs on that thread. It must not block, and operations that
    /// it calls fail with status 261. This applies to all signals of the manager.
    void parseDeviceAutoReportFinished(std::weak_ptr<Tavoro::SSProxy::DeviceChannel> channel,
                                       std::shared_ptr<Tavoro::SSProxy::IDeviceCommand> command);

    /// The \c isMasterControl() of a channel has changed to \a isMaster: false if another client
    /// has taken control of the device, true if no other client holds it any more. Emitted on the
    /// channels' thread, at most once in 100 ms for each channel, with the latest value.
    void masterControlChanged(std::weak_ptr<Tavoro::SSProxy::DeviceChannel> channel, bool isMaster);

    /// Discovery found a device and added a channel for it, which begins to connect. Emitted on the
    /// channels' thread.
    void deviceChannelFound(std::weak_ptr<Tavoro::SSProxy::DeviceChannel> channel);

private:
    DeviceManager();
    ~DeviceManager() override;

    const std::unique_ptr<DeviceManagerPrivate> d;
};

} // namespace Tavoro::SSProxy
