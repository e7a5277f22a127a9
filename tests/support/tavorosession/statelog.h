#pragma once

#include <tavorosession/devicesession.h>

#include <QByteArray>
#include <QObject>
#include <QStringList>

/// Name of a kind of state, such as "Ready".
inline QByteArray nameOf(Tavoro::DeviceState::Kind kind)
{
    constexpr const char *names[] = {"Disconnected", "Connecting", "Reading", "Ready", "Lost"};
    return names[kind];
}

/// Records each kind of state that a session reports.
class StateLog {
public:
    explicit StateLog(Tavoro::DeviceSession &session)
    {
        QObject::connect(&session, &Tavoro::DeviceSession::stateChanged, &m_context,
                         [this, &session] {
                             kinds << nameOf(session.state().kind);
                             reasons << session.state().reason;
                         });
    }
    QByteArray text() const { return kinds.join(' '); }

    QByteArrayList kinds;
    QStringList reasons;

private:
    QObject m_context;
};
