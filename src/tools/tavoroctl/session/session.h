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

/// The connections of one run of the tool, each made when it is first needed.
class Session {
public:
    /// How long to wait, in milliseconds.
    struct Limits {
        int ready = 5000; ///< For a device to be ready.
        int request = 0; ///< For one request; 0 for the time that the library gives it.
    };

    explicit Session(const Limits &limits);
    /// Closes all connections.
    ~Session();
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    /// The device at \a host. Null with a sentence that names the host in \a error when it cannot
    /// be reached, or when calls to it would reach another device of the session: the request path
    /// finds a device by address, MAC and serial number.
    std::shared_ptr<BizModel::Device> device(const Host &host, QString &error);
    /// Lets answers have as many packets as a file can take, whatever its length. The caller has to
    /// limit them by the announced length. Applies to connections that are made afterwards.
    void acceptAnyPacketCount();
    /// How many packets an answer may have.
    quint32 maxPacketCount() const { return m_options.maxPacketCount; }

    /// The channel of a device that device() gave.
    std::shared_ptr<SSProxy::NetworkChannel> channel(const BizModel::Device &device) const;

private:
    struct Connection {
        std::shared_ptr<SSProxy::NetworkChannel> channel;
        std::shared_ptr<BizModel::Device> device;
    };

    /// Where a device is that the request path takes for that of \a channel at \a host.
    std::optional<Host> findTwin(const Host &host, const SSProxy::NetworkChannel &channel) const;

    const Limits m_limits;
    SSProxy::ChannelOptions m_options;
    std::map<std::pair<QString, quint16>, Connection> m_connections;
};

} // namespace Tavoro::Ctl
