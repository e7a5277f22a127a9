#pragma once

#include "devicecontents_p.h"
#include "devicerecords_p.h"
#include "recordequality_p.h"
#include "usersettings_p.h"

#include <tavorobizmodel/device.h>
#include <tavorocontrol/proto/hexdigits.h>

#include <QString>

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <utility>

namespace Tavoro::BizModel {

/// Identity and state of a device.
struct DeviceState {
    unsigned short modelId = 0;
    QString ip;
    QString name;
    QString mac = QStringLiteral("000000000000"); ///< As in \c info, as text for lookups.
    QString sn = QStringLiteral("0000000000000000");
    ProtoModel::DeviceBaseInfo info;
    bool online = false;
    bool syncSuccess = false;
};

class DevicePrivate {
public:
    using Part = Enum::Device::DataPart;

    DevicePrivate(Device &device, unsigned short number) : q(device), id(number) { }

    static DevicePrivate &get(const Device &device) { return *device.d; }
    static DeviceContents &contentsOf(const Device &device) { return device.d->contents; }

    /// Returns the result of calling \a look with the state. \a look must not emit signals.
    template <class Look>
    auto read(const Look &look) const
    {
        const std::lock_guard lock(m_mutex);
        return look(m_state);
    }

    template <class Value>
    Value value(Value DeviceState::*member) const
    {
        const std::lock_guard lock(m_mutex);
        return m_state.*member;
    }

    /// Changes the state without a signal.
    template <class Change>
    void write(const Change &change)
    {
        const std::lock_guard lock(m_mutex);
        change(m_state);
    }

    /// Changes the state, then emits deviceDataChanged().
    template <class Change>
    void change(Part part, const Change &change)
    {
        write(change);
        notify(part);
    }

    /// Stores a value. Emits deviceDataChanged() only when the value changes.
    template <class Value>
    void set(Part part, Value DeviceState::*member, const Value &value)
    {
        {
            const std::lock_guard lock(m_mutex);
            if (m_state.*member == value)
                return;
            m_state.*member = value;
        }
        if (part == Part::Identity)
            notifyIdentity();
        else
            notify(part);
    }

    /// Stores MAC address and serial number in one step, so that no thread sees only one of them
    /// changed.
    void setIdentity(const ProtoModel::DeviceBaseInfo &info)
    {
        bool hasChanged = false;
        write([&](DeviceState &state) {
            const auto before = std::make_pair(state.mac, state.sn);
            replaceInfo(state, info);
            hasChanged = before != std::make_pair(state.mac, state.sn);
        });
        if (hasChanged)
            notifyIdentity();
    }

    /// Stores the identity record of a channel, with MAC address and serial number as text. Returns
    /// false if it is equal.
    static bool replaceInfo(DeviceState &state, const ProtoModel::DeviceBaseInfo &info)
    {
        state.mac = QString::fromStdString(ProtoModel::hexDigits(info.mac));
        state.sn = QString::fromStdString(ProtoModel::hexDigits(info.sn));
        return replaceIfDifferent(state.info, info);
    }

    /// Store the crops of objects that are about to be replaced in the user settings.
    void keepInterfaceCrops();
    void keepLayerCrops();
    /// Takes over the settings of \a former, which is the same device.
    void adopt(DevicePrivate &former);

    void notifyIdentity() const
    {
        noteIdentityChange();
        notify(Part::Identity);
    }
    /// The identity may have changed: call it after the state has changed, or while it is written.
    void noteIdentityChange() const
    {
        if (isListed)
            ++identityChanges;
    }

    void notify(Part part) const { Q_EMIT q.deviceDataChanged(part); }

    /// Counts the changes of identities of the devices in the list. When the count has changed, the
    /// index of the list is out of date.
    static inline std::atomic<quint64> identityChanges = 0;
    std::atomic<bool> isListed{false}; ///< The device is in the list.

    Device &q;
    const unsigned short id;
    DeviceContents contents;
    DeviceRecords records;
    const std::shared_ptr<UserSettings> settings = std::make_shared<UserSettings>();
    s_DeviceConfig config; // filled at construction

private:
    mutable std::mutex m_mutex;
    DeviceState m_state; // guarded by m_mutex
};

/// Returns weak pointers to \a objects.
template <class Objects>
auto weakList(const Objects &objects)
{
    QList<std::weak_ptr<typename Objects::value_type::element_type>> list;
    list.reserve(static_cast<int>(objects.size()));
    for (const auto &object : objects)
        list.append(object);
    return list;
}

} // namespace Tavoro::BizModel
