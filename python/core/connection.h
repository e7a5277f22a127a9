#pragma once

#include "modelsignals.h"
#include "modelstate.h"
#include "pending.h"

#include <tavorosession/devicesession.h>
#include <tavorosession/sessionoptions.h>

#include <QPointer>
#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

namespace Tavoro::Python {

/// The part of a Device that belongs to the runtime's thread: its session, and what Python waits
/// for there. Connections to one address share a session, which ends with the last one of them.
class Connection {
public:
    /// \a state is what other threads see of the device.
    explicit Connection(std::shared_ptr<ModelState> state);
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// Begins to connect.
    void open(const QString &host, quint16 port, const SessionOptions &options);
    /// Ends the session for this connection.
    void close();

    /// Ends \a pending when the device was read, when the session is closed, or after this time.
    void whenReady(const std::shared_ptr<Pending> &pending, int milliseconds);
    /// The session; ends \a pending and returns null if it is closed.
    DeviceSession *sessionFor(Pending &pending) const;

private:
    void publish();
    void endWaiting();

    const std::shared_ptr<ModelState> m_state;
    ModelSignals m_signals;
    QPointer<DeviceSession> m_session;
    std::vector<std::weak_ptr<Pending>> m_waiting; ///< Until the device was read.
    std::unique_ptr<QObject> m_context; ///< Ends the connections to the session.
};

} // namespace Tavoro::Python
