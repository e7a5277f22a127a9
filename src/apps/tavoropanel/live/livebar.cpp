#include "livebar.h"

#include "livebutton.h"
#include "screenbuttons.h"
#include "statusline.h"
#include "tbar.h"

#include <tavorobizmodel/screen.h>
#include <tavoropanel/actions/actions.h>
#include <tavoropanel/devices/statetext.h>
#include <tavoropanel/selection/selection.h>
#include <tavoropanel/theme/colours.h>
#include <tavorosession/devicesession.h>

#include <QAction>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

namespace Tavoro::Panel {

namespace {

/// Any number of screens fits in the bar.
QScrollArea *scrolling(QWidget &buttons, QWidget &parent)
{
    auto *const area = new QScrollArea(&parent);
    area->setWidget(&buttons);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setMinimumWidth(140);
    return area;
}

} // namespace

LiveBar::LiveBar(Selection &selection, Changes &changes, Actions &actions, QWidget *parent)
    : QWidget(parent),
      m_selection(selection),
      m_actions(actions),
      m_operations(selection, changes),
      m_status(new StatusLine(actions.action(ActionId::ClearAlert), this)),
      m_screens(new ScreenButtons(selection, this)),
      m_tBar(new TBar(this))
{
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 6);
    layout->setSpacing(4);
    layout->addWidget(m_status);
    auto *const row = new QHBoxLayout;
    row->setSpacing(6);
    addControls(*row);
    layout->addLayout(row, 1);
    connectActions();
    updateLit();
    updateStatus();
}

void LiveBar::addControls(QHBoxLayout &row)
{
    const auto add = [&](ActionId id, const QColor &base, const char *name) {
        auto *const button = new LiveButton(m_actions.action(id), base, this);
        button->setObjectName(QString::fromLatin1(name));
        row.addWidget(button);
        return button;
    };
    row.addWidget(scrolling(*m_screens, *this), 3);
    row.addWidget(m_tBar, 2);
    add(ActionId::Cut, {}, "cut");
    add(ActionId::Take, Colours::programme, "take");
    row.addSpacing(16);
    m_freeze = add(ActionId::Freeze, {}, "freeze");
    m_black = add(ActionId::FadeToBlack, {}, "fadeToBlack");
}

void LiveBar::connectActions()
{
    const auto carryOut = [this](ActionId id, void (LiveOperations::*slot)()) {
        connect(&m_actions.action(id), &QAction::triggered, &m_operations, slot);
    };
    carryOut(ActionId::Take, &LiveOperations::take);
    carryOut(ActionId::Cut, &LiveOperations::cut);
    carryOut(ActionId::Freeze, &LiveOperations::toggleFreeze);
    carryOut(ActionId::FadeToBlack, &LiveOperations::toggleBlack);
    connect(&m_actions.action(ActionId::SelectAllScreens), &QAction::triggered, m_screens,
            &ScreenButtons::selectAll);
    connect(&m_actions.action(ActionId::ClearAlert), &QAction::triggered, &m_operations.calls(),
            &LiveCalls::clear);
    connect(m_tBar, &TBar::moved, &m_operations, &LiveOperations::moveTBar);

    connect(&m_operations, &LiveOperations::screensChanged, this, &LiveBar::updateLit);
    connect(&m_operations.calls(), &LiveCalls::statusChanged, this, &LiveBar::updateStatus);
    for (const auto changed : {&Selection::deviceChanged, &Selection::screensChanged,
                               &Selection::canWriteChanged, &Selection::stateChanged})
        connect(&m_selection, changed, this, &LiveBar::updateStatus);
}

void LiveBar::updateLit()
{
    using Share = LiveOperations::Share;
    const auto word = [](Share share, const QString &all) {
        return share == Share::None ? QString() : share == Share::All ? all : tr("Some screens");
    };
    m_freeze->setLit(word(m_operations.frozen(), tr("Frozen")), Colours::frozen);
    m_black->setLit(word(m_operations.black(), tr("Black")), Colours::black);
    m_tBar->follow(m_operations.tBar());
}

void LiveBar::updateStatus()
{
    m_tBar->setEnabled(m_actions.action(ActionId::Take).isEnabled());
    const LiveStatus &call = m_operations.calls().status();
    const LiveStatus screens = screensStatus();
    const bool isOver = call.kind == LiveStatus::Failed || call.kind == LiveStatus::Done;
    if (isOver && screens.kind == LiveStatus::Blocked && !m_selection.canWrite())
        m_operations.calls().clear(); // updates the status again
    else
        m_status->show(call.kind == LiveStatus::Idle ? screens : call);
}

/// The device reports who holds control only when it is asked, so the name follows later.
QString LiveBar::controlledText(const DeviceSession &device)
{
    const QString holder = device.controlHolder();
    return holder.isEmpty()
        ? tr("%1 is controlled by another client. Take control to operate it.").arg(device.name())
        : tr("%1 is controlled by %2. Take control to operate it.").arg(device.name(), holder);
}

/// Why the screens cannot be operated, or which ones are.
LiveStatus LiveBar::screensStatus() const
{
    const auto blocked = [](const QString &text) {
        return LiveStatus{LiveStatus::Blocked, text};
    };
    const DeviceSession *const device = m_selection.device();
    if (!device)
        return {LiveStatus::Idle, tr("Select a device to operate its screens.")};
    if (!m_selection.isConnected())
        return blocked(tr("%1: %2").arg(device->name(), stateText(*device)));
    if (device->isControlledByOthers())
        return blocked(controlledText(*device));
    const auto screens = m_selection.screenObjects();
    if (screens.isEmpty())
        return {LiveStatus::Idle, tr("Select a screen to operate it.")};
    QStringList names;
    for (const auto &screen : screens)
        names << QString::fromStdString(screen->detail().general.name);
    return {LiveStatus::Idle,
            tr("Operating %1 of %2.").arg(names.join(QStringLiteral(", ")), device->name())};
}

} // namespace Tavoro::Panel
