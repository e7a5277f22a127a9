#pragma once

#include "undooperations.h"

#include <QPointer>
#include <QUndoCommand>

namespace Tavoro {
class DeviceSession;
}

namespace Tavoro::Panel {

/// A change of one device, on the stack of changes. It only keeps the writes: Changes sends them,
/// and moves the stack when the device has carried them out.
class UndoStep : public QUndoCommand {
public:
    UndoStep(DeviceSession &device, const QString &text, const Write &back, const Write &again);

    /// The device that was changed; null if it was closed since.
    DeviceSession *device() const { return m_device; }
    /// The name that the device had when it was changed.
    QString deviceName() const { return m_deviceName; }
    /// What the operator did, and on which device. Says if the device cannot be reached.
    QString description() const;
    /// The write that undoes the change.
    const Write &back() const { return m_back; }
    /// The write that makes the change again.
    const Write &again() const { return m_again; }

private:
    const QPointer<DeviceSession> m_device;
    const QString m_deviceName;
    const Write m_back;
    const Write m_again;
};

} // namespace Tavoro::Panel
