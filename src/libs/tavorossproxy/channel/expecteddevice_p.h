#pragma once

#include <QString>

#include <string>

namespace Tavoro::SSProxy::Internal {

/// What a channel knows of its device before the device has told who it is. Any thread.
class ExpectedDevice {
public:
    /// The key of the only identity that is taken; empty: any.
    virtual std::string expectedIdentity() const = 0;
    /// True when that is where the channel connects.
    virtual bool isBoundFor(const QString &host, quint16 port) const = 0;

protected:
    ~ExpectedDevice() = default;
};

} // namespace Tavoro::SSProxy::Internal
