#include "controlbar.h"

#include <tavoropanel/actions/actions.h>
#include <tavoropanel/devices/statetext.h>
#include <tavoropanel/messages/messages.h>
#include <tavoropanel/selection/selection.h>
#include <tavoropanel/theme/colours.h>
#include <tavoropanel/theme/elidedlabel.h>
#include <tavorosession/devicesession.h>

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

namespace Tavoro::Panel {

namespace {

constexpr ActionId controlActions[] = {ActionId::TakeControl, ActionId::ReleaseControl,
                                       ActionId::ForceControl};

QPushButton *makeButton(QAction &action, QWidget *parent)
{
    auto *const button = new QPushButton(action.icon(), action.iconText(), parent);
    button->setFocusPolicy(Qt::TabFocus);
    button->setToolTip(action.toolTip());
    button->setAccessibleName(action.iconText());
    button->setAccessibleDescription(action.toolTip());
    QObject::connect(button, &QPushButton::clicked, &action, &QAction::trigger);
    QObject::connect(&action, &QAction::changed, button, [button, &action] {
        button->setEnabled(action.isEnabled());
        button->setIcon(action.icon());
    });
    button->setEnabled(action.isEnabled());
    return button;
}

/// Shows a label as text on a colour.
void setBadge(QLabel &label, const QColor &background, const QColor &foreground)
{
    QPalette colours;
    colours.setColor(QPalette::Window, background);
    colours.setColor(QPalette::WindowText, foreground);
    label.setPalette(colours);
}

} // namespace

ControlBar::ControlBar(Selection &selection, Messages &messages, Actions &actions, QWidget *parent)
    : QWidget(parent),
      m_selection(selection),
      m_messages(messages),
      m_actions(actions),
      m_name(new ElidedLabel(this)),
      m_state(new ElidedLabel(this)),
      m_control(new ElidedLabel(this))
{
    QFont large = font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.4);
    m_name->setFont(large);
    for (QLabel *const badge : {m_state, m_control}) {
        badge->setAutoFillBackground(true);
        badge->setBackgroundRole(QPalette::Window); // not that of the tool bar
        badge->setContentsMargins(10, 3, 10, 3);
    }
    m_control->setObjectName(QStringLiteral("controlState"));
    m_state->setObjectName(QStringLiteral("deviceState"));
    m_control->setAccessibleName(tr("Control"));

    auto *const row = new QHBoxLayout(this);
    row->setContentsMargins(8, 4, 8, 4);
    row->setSpacing(10);
    row->addWidget(m_name);
    row->addWidget(m_state);
    row->addStretch(1);
    row->addWidget(m_control);
    for (const ActionId id : controlActions)
        row->addWidget(makeButton(actions.action(id), this));
    connectActions();
    followDevice();
}

void ControlBar::connectActions()
{
    connect(&m_actions.action(ActionId::TakeControl), &QAction::triggered, this, [this] {
        request(&DeviceSession::takeControl, tr("This panel controls the device."));
    });
    connect(&m_actions.action(ActionId::ReleaseControl), &QAction::triggered, this, [this] {
        request(&DeviceSession::releaseControl, tr("Control of the device was released."));
    });
    connect(&m_actions.action(ActionId::ForceControl), &QAction::triggered, this,
            &ControlBar::askToForce);
    connect(&m_selection, &Selection::deviceChanged, this, &ControlBar::followDevice);
}

void ControlBar::followDevice()
{
    if (m_device)
        m_device->disconnect(this);
    m_device = m_selection.device();
    if (m_device) {
        for (const auto changed :
             {&DeviceSession::stateChanged, &DeviceSession::stateDetailsChanged,
              &DeviceSession::controlChanged, &DeviceSession::deviceChanged})
            connect(m_device, changed, this, &ControlBar::update);
        connect(m_device, &DeviceSession::readProgressChanged, this, &ControlBar::update);
        for (const auto changed : {&DeviceSession::stateChanged, &DeviceSession::controlChanged})
            connect(m_device, changed, this, &ControlBar::readHolder);
        connect(m_device, &DeviceSession::callFinished, this, [this](const Outcome &outcome) {
            if (outcome && m_holder.isEmpty() && !m_isAsking)
                readHolder(); // the first write takes control
        });
    }
    readHolder();
    update();
}

void ControlBar::readHolder()
{
    m_holder.clear();
    if (!m_selection.isConnected())
        return;
    m_isAsking = true;
    const QPointer<DeviceSession> device = m_device;
    m_device->readControlHolder().then(this, [this, device](const Answer<QString> &answer) {
        m_isAsking = false;
        if (!answer || device != m_device)
            return;
        m_holder = answer.record();
        update();
    });
}

void ControlBar::update()
{
    m_name->setLine(m_device ? m_device->name() : tr("No device"));
    m_state->setLine(m_device ? stateText(*m_device) : QString());
    if (m_device && m_device->state().kind == DeviceState::Lost)
        setBadge(*m_state, Colours::programme, Colours::onColour);
    else
        m_state->setPalette({});
    m_control->setLine(controlText());
    m_control->setVisible(m_selection.isConnected());
    if (m_device && m_device->isControlledByOthers())
        setBadge(*m_control, Colours::warning, Colours::onWarning);
    else if (!m_holder.isEmpty())
        setBadge(*m_control, Colours::preview, Colours::onColour);
    else
        m_control->setPalette({});
}

QString ControlBar::controlText() const
{
    if (!m_device)
        return {};
    if (!m_device->isControlledByOthers())
        return m_holder.isEmpty() ? tr("Not controlled") : tr("Controlled by this panel");
    return m_holder.isEmpty() ? tr("Controlled by another client")
                              : tr("Controlled by %1").arg(m_holder);
}

void ControlBar::request(PendingCall<Outcome> (DeviceSession::*control)(), const QString &done)
{
    if (!m_device)
        return;
    (m_device->*control)().then(this, [this, done](const Outcome &outcome) {
        m_messages.report(outcome);
        if (outcome)
            m_messages.report(Severity::Information, done, outcome.deviceName());
        readHolder();
    });
}

/// Asks first, since the other client loses control in the middle of its work.
void ControlBar::askToForce()
{
    if (!m_device)
        return;
    auto *const box =
        new QMessageBox(QMessageBox::Warning, tr("Force control"),
                        tr("Another operator may be working with %1. Take control from them?")
                            .arg(m_device->name()),
                        QMessageBox::Cancel, window());
    box->setAttribute(Qt::WA_DeleteOnClose);
    QAbstractButton *const force = box->addButton(tr("Force control"), QMessageBox::AcceptRole);
    force->setObjectName(QStringLiteral("force"));
    connect(force, &QAbstractButton::clicked, this, [this] {
        request(&DeviceSession::forceControl, tr("This panel controls the device."));
    });
    box->open();
}

} // namespace Tavoro::Panel
