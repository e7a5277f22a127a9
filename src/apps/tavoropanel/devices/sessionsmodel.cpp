#include "sessionsmodel.h"

#include "statetext.h"

#include <tavoropanel/messages/messages.h>
#include <tavorosession/session.h>

namespace Tavoro::Panel {

SessionsModel::SessionsModel(Session &session, const Messages &messages, QObject *parent)
    : QAbstractListModel(parent)
{
    const auto devices = session.devices();
    for (DeviceSession *const device : devices)
        add(device);
    connect(&session, &Session::deviceAdded, this, &SessionsModel::add);
    connect(&session, &Session::deviceRemoved, this, &SessionsModel::remove);
    connect(&messages, &Messages::reported, this, &SessionsModel::keep);
}

void SessionsModel::add(DeviceSession *device)
{
    const int row = static_cast<int>(m_devices.size());
    beginInsertRows({}, row, row);
    m_devices << device;
    endInsertRows();
    const auto changed = [this, device] {
        update(device);
    };
    connect(device, &DeviceSession::stateChanged, this, changed);
    connect(device, &DeviceSession::stateDetailsChanged, this, changed);
    connect(device, &DeviceSession::readProgressChanged, this, changed);
    connect(device, &DeviceSession::controlChanged, this, changed);
    connect(device, &DeviceSession::deviceChanged, this, changed);
}

void SessionsModel::remove(DeviceSession *device)
{
    const int row = static_cast<int>(m_devices.indexOf(device));
    if (row < 0)
        return;
    device->disconnect(this);
    beginRemoveRows({}, row, row);
    m_devices.removeAt(row);
    endRemoveRows();
}

void SessionsModel::update(DeviceSession *device)
{
    const QModelIndex changed = indexOf(device);
    Q_EMIT dataChanged(changed, changed);
}

void SessionsModel::keep(const Message &message)
{
    if (message.device.isEmpty())
        return;
    m_lastMessages.insert(message.device, message.text);
    for (DeviceSession *const device : qAsConst(m_devices)) {
        if (device->name() == message.device)
            update(device);
    }
}

DeviceSession *SessionsModel::device(const QModelIndex &index) const
{
    return m_devices.value(index.row(), nullptr);
}

QModelIndex SessionsModel::indexOf(const DeviceSession *device) const
{
    return index(static_cast<int>(m_devices.indexOf(const_cast<DeviceSession *>(device))));
}

int SessionsModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_devices.size());
}

QVariant SessionsModel::data(const QModelIndex &index, int role) const
{
    const DeviceSession *const shown = device(index);
    if (!shown)
        return {};
    const DeviceState::Kind kind = shown->state().kind;
    switch (role) {
    case Qt::DisplayRole:
        return shown->name();
    case Qt::ToolTipRole:
    case Qt::AccessibleTextRole:
        return tr("%1 (%2): %3").arg(shown->name(), shown->address(), stateText(*shown));
    case StateRole:
        return static_cast<int>(kind);
    case StateTextRole:
        return stateText(*shown);
    case ProgressRole:
        return kind == DeviceState::Reading ? shown->readProgress() : -1.0;
    case ControlTextRole:
        return shown->isControlledByOthers() ? tr("Controlled by another client") : QString();
    case MessageRole:
        return m_lastMessages.value(shown->name());
    case AddressRole:
        return shown->address();
    default:
        return {};
    }
}

} // namespace Tavoro::Panel
