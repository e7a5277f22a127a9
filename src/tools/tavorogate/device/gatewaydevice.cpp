#include "gatewaydevice.h"

#include <tavorogate/audit/auditrecord.h>
#include <tavorogate/broker/outbox.h>
#include <tavorogate/ownership/alwaysactive.h>
#include <tavorogate/ownership/leaseownership.h>
#include <tavorogate/topics/topics.h>
#include <tavorosession/devicesession.h>

namespace Tavoro::Gate {

namespace {

std::unique_ptr<DeviceOwnership> makeOwnership(const GatewayDevice::Surroundings &surroundings,
                                               DeviceSession &session, const QString &serial)
{
    if (!surroundings.answers)
        return std::make_unique<AlwaysActive>();
    return std::make_unique<LeaseOwnership>(
        surroundings.broker, *surroundings.answers, session, serial,
        LeaseOwnership::Options{surroundings.gateway, surroundings.leaseTime});
}

} // namespace

GatewayDevice::GatewayDevice(const Surroundings &surroundings, DeviceSession &session,
                             const QString &serial)
    : m_serial(serial),
      m_ownership(makeOwnership(surroundings, session, serial)),
      m_presence(surroundings.broker, session, serial, surroundings.gateway),
      m_state({surroundings.broker, surroundings.turns, session}, serial,
              Topics::mark(surroundings.gateway, serial)),
      m_calls({surroundings.broker, surroundings.outbox, session, *m_ownership}, serial,
              surroundings.rules)
{
    const auto setActive = [this](bool isActive) {
        m_presence.setActive(isActive);
        m_state.setActive(isActive);
    };
    connect(m_ownership.get(), &DeviceOwnership::activeChanged, this, setActive);
    connect(&m_calls, &DeviceCalls::callRepeated, this, &GatewayDevice::callRepeated);
    connect(&m_calls, &DeviceCalls::callEnded, this,
            [this, &outbox = surroundings.outbox,
             gateway = surroundings.gateway](const CallRequest &call, const CallAnswer &answer) {
                outbox.send(auditRecord(m_serial, gateway, call, answer));
                Q_EMIT callEnded(call, answer);
            });
    setActive(m_ownership->isActive());
}

GatewayDevice::~GatewayDevice() = default;

bool GatewayDevice::isActive() const
{
    return m_ownership->isActive();
}

bool GatewayDevice::isLeaving() const
{
    return m_ownership->isLeaving();
}

void GatewayDevice::leave()
{
    m_presence.leave();
    m_state.setActive(false);
    m_ownership->leave();
}

} // namespace Tavoro::Gate
