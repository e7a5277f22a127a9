#pragma once

#include <QString>

namespace Tavoro::BizModel {

class Device;

/// Two device objects with equal identities are the same device. The identity consists of serial
/// number and MAC address, so it does not depend on the network address, unless the device has
/// neither.
struct DeviceIdentity {
    static DeviceIdentity of(const Device &device);
    /// \a sn and \a mac are upper-case hexadecimal digits.
    static DeviceIdentity of(const QString &sn, const QString &mac, const QString &ip);

    bool operator==(const DeviceIdentity &other) const
    {
        return sn == other.sn && mac == other.mac && address == other.address;
    }

    QString sn;
    QString mac;
    QString address; ///< Empty for a device with a serial number or a MAC address.
};

} // namespace Tavoro::BizModel
