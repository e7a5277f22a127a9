#pragma once

#include <QAbstractListModel>
#include <QHash>
#include <QString>

namespace Tavoro {
class DeviceSession;
class Session;
} // namespace Tavoro

namespace Tavoro::Panel {

class Messages;
struct Message;

/// The devices of a session, also those that have never been connected.
class SessionsModel : public QAbstractListModel {
    Q_OBJECT

public:
    enum Role {
        StateRole = Qt::UserRole, ///< DeviceState::Kind as a number.
        StateTextRole, ///< State, reason and next attempt in words.
        ProgressRole, ///< The share of the reading that is done, 0 to 1; -1 in other states.
        ControlTextRole, ///< Names the client that controls the device, if it is another one.
        MessageRole, ///< The last message that concerns the device.
        AddressRole, ///< Address and port.
    };

    SessionsModel(Session &session, const Messages &messages, QObject *parent = nullptr);

    /// The device of a row; null if \a index is not valid.
    DeviceSession *device(const QModelIndex &index) const;
    /// The row of a device; not valid if it is not in the list.
    QModelIndex indexOf(const DeviceSession *device) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    void add(DeviceSession *device);
    void remove(DeviceSession *device);
    void update(DeviceSession *device);
    void keep(const Message &message);

    QList<DeviceSession *> m_devices;
    QHash<QString, QString> m_lastMessages; ///< By the names of the devices.
};

} // namespace Tavoro::Panel
