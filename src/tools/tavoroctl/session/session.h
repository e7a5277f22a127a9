#pragma once

#include <tavoroctl/arguments/host.h>

#include <QString>

#include <map>
#include <memory>
#include <optional>

namespace Tavoro::BizModel {
class Device;
}
namespace Tavoro::SSProxy {
class NetworkChannel;
}

namespace Tavoro::Ctl {

/// The connections of one run of the tool. Each is made when it is first needed.
class Session {
public:
    /// How long to wait, in milliseconds.
    struct Limits {
        int ready = 5000; ///< Until a device is ready.
        int request = 0; ///< Until a request is answered; 0: the timeout of the library.
    };

    explicit Session(const Limits &limits);
    /// Closes all connections.
    ~Session();
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    /// Connects to the device at \a host. Blocks until it is ready.
    ///
    /// Null, with a sentence in \a error that names the host, if the device cannot be reached or if
    /// calls would reach another device of the session: the request path finds a device by address,
    /// MAC and serial number.
    std::shared_ptr<BizModel::Device> device(const Host &host, QString &error);
    /// Lets answers have as many packets as a file can take, whatever its length. The caller has to
    /// limit them by the announced length. Applies to connections that are made afterwards.
    void acceptAnyPacketCount();
    /// How many packets an answer may have.
    quint32 maxPacketCount() const { return m_options.maxPacketCount; }

    /// The channel of a device that device() has returned.
    std::shared_ptr<SSProxy::NetworkChannel> channel(const BizModel::Device &device) const;

private:
    struct Connection {
        std::shared_ptr<SSProxy::NetworkChannel> channel;
        std::shared_ptr<BizModel::Device> device;
    };

    /// The host of a device that the request path would confuse with the one of \a channel.
    std::optional<Host> findTwin(const Host &host, const SSProxy::NetworkChannel &channel) const;

    const Limits m_limits;
    SSProxy::ChannelOptions m_options;
    std::map<std::pair<QString, quint16>, Connection> m_connections;
};

} // namespace Tavoro::Ctl
