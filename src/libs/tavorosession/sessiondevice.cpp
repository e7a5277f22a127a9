#include "sessiondevice_p.h"

#include <tavorobizmodel/device.h>
#include <tavorocontrol/bodylog.h>

#include <utility>

namespace Tavoro::SessionInternal {

SessionDevice::SessionDevice(DeviceOwners &owners, DeviceSessionPrivate *owner, bool logsBodies)
    : m_owners(owners), m_owner(owner), m_logsBodies(logsBodies)
{ }

SessionDevice::~SessionDevice()
{
    set(nullptr);
}

bool SessionDevice::isOwned() const
{
    return m_device && m_owners.of(m_device.get()) == m_owner;
}

void SessionDevice::set(std::shared_ptr<BizModel::Device> device)
{
    if (isOwned()) {
        Control::setBodiesLogged(m_device, true);
        m_owners.release(m_device.get(), m_owner);
    }
    m_device = std::move(device);
    if (!m_device)
        return;
    m_owners.claim(m_device.get(), m_owner);
    Control::setBodiesLogged(m_device, m_logsBodies);
}

void SessionDevice::setBodiesLogged(bool areLogged)
{
    m_logsBodies = areLogged;
    if (isOwned())
        Control::setBodiesLogged(m_device, areLogged);
}

void SessionDevice::setOnline(bool isOnline) const
{
    if (isOwned() && m_device->isOnline() != isOnline)
        m_device->setDeviceOnlineFlag(isOnline);
}

} // namespace Tavoro::SessionInternal
