#pragma once

#include <tavorosession/outcome.h>
#include <tavorosession/pendingcall.h>

#include <QPointer>
#include <QWidget>

namespace Tavoro {
class DeviceSession;
} // namespace Tavoro

namespace Tavoro::Panel {

class Actions;
class ElidedLabel;
class Messages;
class Selection;

/// The selected device, its state, and who controls it; takes control, releases and forces it.
class ControlBar : public QWidget {
    Q_OBJECT

public:
    ControlBar(Selection &selection, Messages &messages, Actions &actions,
               QWidget *parent = nullptr);

    /// Who controls the device, as a sentence.
    QString controlText() const;

private:
    void connectActions();
    void followDevice();
    void update();
    void readHolder();
    void request(PendingCall<Outcome> (DeviceSession::*control)(), const QString &done);
    void askToForce();

    Selection &m_selection;
    Messages &m_messages;
    Actions &m_actions;
    QPointer<DeviceSession> m_device;
    QString m_holder; ///< The client that held control when the device was asked last.
    bool m_isAsking = false; ///< The device is being asked for it.
    ElidedLabel *const m_name;
    ElidedLabel *const m_state;
    ElidedLabel *const m_control;
};

} // namespace Tavoro::Panel
