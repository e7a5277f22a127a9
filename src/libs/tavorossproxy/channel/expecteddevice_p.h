#pragma once

#include <QString>

#include <string>

namespace Tavoro::SSProxy::Internal {

/// What a channel knows about its device before the device has identified itself. Any thread.
class ExpectedDevice {
public:
    /// The identityKey() of the only device that the channel accepts; empty for any device.
    virtual std::string expectedIdentity() const = 0;
    /// Returns true if the channel connects to \a host and \a port.
    virtual bool connectsTo(const QString &host, quint16 port) const = 0;

protected:
    ~ExpectedDevice() = default;
};

} // namespace Tavoro::SSProxy::Internal
