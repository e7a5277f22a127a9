#pragma once

#include <QHash>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::SessionInternal {

class DeviceSessionPrivate;

/// Which session works with each device of the model. On the session's thread.
class DeviceOwners {
public:
    /// Null if there is none.
    DeviceSessionPrivate *of(const BizModel::Device *device) const
    {
        return m_owners.value(device);
    }
    void claim(const BizModel::Device *device, DeviceSessionPrivate *owner)
    {
        m_owners.insert(device, owner);
    }
    /// Without effect if the device belongs to another owner.
    void release(const BizModel::Device *device, const DeviceSessionPrivate *owner)
    {
        if (of(device) == owner)
            m_owners.remove(device);
    }

private:
    QHash<const BizModel::Device *, DeviceSessionPrivate *> m_owners;
};

} // namespace Tavoro::SessionInternal
