#pragma once

#include <tavoropanel/messages/messages.h>

#include <tavorosession/devicesession.h>

#include <QObject>
#include <QString>

QT_BEGIN_NAMESPACE
class QUndoStack;
QT_END_NAMESPACE

namespace Tavoro::Panel {

/// The changes that the operator makes. Parts of the window call writes through this object, which
/// reports their failures in the messages. If the table of undoable operations has the operation,
/// the change can be undone.
class Changes : public QObject {
    Q_OBJECT

public:
    explicit Changes(Messages &messages, QObject *parent = nullptr);
    ~Changes() override;

    /// The steps that can be undone and redone.
    QUndoStack &steps() { return *m_steps; }

    /// Calls a write on a device, see DeviceSession::call(), and adds a step.
    template <class Control, class Parameter>
    PendingCall<Outcome> call(DeviceSession &device,
                              bool (Control::*operation)(Parameter, QString &),
                              const SessionInternal::Value<Parameter> &records)
    {
        return reported(device.call(operation, records));
    }

    /// Does the same for values that change continuously, such as a rectangle that is dragged, see
    /// DeviceSession::callLatest(). Calls with the same \a key are one step until finish().
    template <class Control, class Parameter>
    PendingCall<Outcome> callLatest(const QString &key, DeviceSession &device,
                                    bool (Control::*operation)(Parameter, QString &),
                                    const SessionInternal::Value<Parameter> &records)
    {
        return reported(device.callLatest(key, operation, records));
    }

    /// Ends the step that the calls with this key make, for example when a drag ends.
    void finish(const QString &key);

private:
    PendingCall<Outcome> reported(PendingCall<Outcome> call);

    Messages &m_messages;
    QUndoStack *const m_steps;
};

} // namespace Tavoro::Panel
