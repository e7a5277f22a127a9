#include "devicesview.h"

#include "adddevicedialog.h"
#include "devicedelegate.h"
#include "sessionsmodel.h"

#include <tavorobizmodel/devicelist.h>
#include <tavoropanel/actions/actions.h>
#include <tavoropanel/messages/messages.h>
#include <tavoropanel/selection/selection.h>
#include <tavorosession/session.h>

#include <QAction>
#include <QItemSelectionModel>
#include <QLabel>
#include <QListView>
#include <QToolButton>
#include <QVBoxLayout>

namespace Tavoro::Panel {

namespace {

constexpr ActionId deviceActions[] = {ActionId::AddDevice, ActionId::FindDevices,
                                      ActionId::Reconnect, ActionId::ReadAgain,
                                      ActionId::RemoveDevice};

} // namespace

DevicesView::DevicesView(Session &session, Selection &selection, Messages &messages,
                         Actions &actions, QWidget *parent)
    : QWidget(parent),
      m_session(session),
      m_selection(selection),
      m_messages(messages),
      m_actions(actions),
      m_model(new SessionsModel(session, messages, this)),
      m_list(new QListView(this)),
      m_hint(new QLabel(this))
{
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    addButtons();
    addList();
    connectActions();
    showHint();
    selectFirst();
}

void DevicesView::addButtons()
{
    auto *const row = new QHBoxLayout;
    for (const ActionId id : deviceActions) {
        auto *const button = new QToolButton(this);
        QAction &action = m_actions.action(id);
        button->setDefaultAction(&action);
        button->setAutoRaise(true);
        button->setIconSize(QSize(22, 22));
        button->setFocusPolicy(Qt::TabFocus);
        button->setAccessibleName(action.iconText());
        button->setAccessibleDescription(action.toolTip());
        row->addWidget(button);
    }
    row->addStretch();
    static_cast<QVBoxLayout *>(layout())->addLayout(row);
}

void DevicesView::addList()
{
    m_list->setModel(m_model);
    m_list->setItemDelegate(new DeviceDelegate(m_list));
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setResizeMode(QListView::Adjust);
    m_list->setAccessibleName(tr("Devices"));
    m_list->setAccessibleDescription(tr("The devices with their states. The selected one is shown "
                                        "and operated."));
    layout()->addWidget(m_list);

    m_hint->setText(tr("No device yet. Add one by its address, or search the network."));
    m_hint->setWordWrap(true);
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setMargin(12);
    layout()->addWidget(m_hint);
}

void DevicesView::connectActions()
{
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex &index) { m_selection.setDevice(m_model->device(index)); });
    connect(&m_selection, &Selection::deviceChanged, this, &DevicesView::followSelection);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, [this] {
        showHint();
        selectFirst();
    });
    connect(m_model, &QAbstractItemModel::rowsRemoved, this, &DevicesView::showHint);

    const auto device = [this] {
        return m_selection.device();
    };
    connect(&m_actions.action(ActionId::AddDevice), &QAction::triggered, this,
            &DevicesView::askForDevice);
    connect(&m_actions.action(ActionId::RemoveDevice), &QAction::triggered, this,
            &DevicesView::removeDevice);
    connect(&m_actions.action(ActionId::Reconnect), &QAction::triggered, this, [device] {
        device()->open();
        device()->reconnectNow();
    });
    connect(&m_actions.action(ActionId::ReadAgain), &QAction::triggered, this,
            [device] { device()->readAgain(); });
    QAction &find = m_actions.action(ActionId::FindDevices);
    find.setCheckable(true);
    connect(&find, &QAction::toggled, this, &DevicesView::setFinding);
}

void DevicesView::followSelection()
{
    m_list->setCurrentIndex(m_model->indexOf(m_selection.device()));
}

void DevicesView::selectFirst()
{
    if (!m_selection.device())
        m_selection.setDevice(m_model->device(m_model->index(0)));
}

void DevicesView::askForDevice()
{
    auto *const dialog = new AddDeviceDialog(this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog] {
        m_selection.setDevice(m_session.open(dialog->host(), dialog->port()));
    });
    dialog->open();
}

void DevicesView::setFinding(bool isFinding)
{
    if (isFinding)
        m_session.startDiscovery();
    else
        m_session.stopDiscovery();
    m_messages.report(Severity::Information,
                      isFinding ? tr("Searching the network for devices.")
                                : tr("The search for devices has ended."));
}

void DevicesView::removeDevice()
{
    DeviceSession *const removed = m_selection.device();
    const auto model = removed->device();
    m_selection.setDevice(nullptr);
    delete removed;
    if (model)
        BizModel::DeviceList::instance()->remove(model);
    selectFirst();
}

void DevicesView::showHint()
{
    m_hint->setVisible(m_model->rowCount() == 0);
    m_list->setVisible(m_model->rowCount() > 0);
}

} // namespace Tavoro::Panel
