#pragma once

#include "deviceowners_p.h"

#include <memory>

namespace Tavoro::SessionInternal {

/// The device of the model with which a session works. On the session's thread.
class SessionDevice {
public:
    /// For the session \a owner. \a logsBodies: see DeviceSession::setBodiesLogged().
    SessionDevice(DeviceOwners &owners, DeviceSessionPrivate *owner, bool logsBodies);
    ~SessionDevice();

    const std::shared_ptr<BizModel::Device> &get() const { return m_device; }
    /// Works with \a device, which then belongs to this session.
    void set(std::shared_ptr<BizModel::Device> device);
    void setBodiesLogged(bool areLogged);
    void setOnline(bool isOnline) const;

private:
    /// False if another session has taken the device over.
    bool isOwned() const;

    DeviceOwners &m_owners;
    DeviceSessionPrivate *const m_owner;
    bool m_logsBodies;
    std::shared_ptr<BizModel::Device> m_device;
};

} // namespace Tavoro::SessionInternal
