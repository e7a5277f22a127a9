#pragma once

#include "recordequality_p.h"

#include <tavorobizmodel/device.h>

#include <QCoreApplication>
#include <QObject>
#include <QThread>

#include <memory>
#include <mutex>
#include <utility>

namespace Tavoro::BizModel {

/// Moves an object to the application's thread. Most objects are created on threads that end soon
/// and could then no longer deliver events to them.
inline void liveOnApplicationThread(QObject &object)
{
    if (const auto *const application = QCoreApplication::instance())
        object.moveToThread(application->thread());
}

/// The private part of every object of a device: its record and its device.
template <class Detail>
class ObjectPrivate {
public:
    ObjectPrivate(QObject &object, Detail read, std::weak_ptr<Device> owner)
        : device(std::move(owner)), m_detail(std::move(read))
    {
        liveOnApplicationThread(object);
    }

    Detail detail() const
    {
        const std::lock_guard lock(m_mutex);
        return m_detail;
    }

    /// Replaces the record. Returns false if they are equal.
    bool assign(const Detail &now)
    {
        return change([&](Detail &known) { return replaceIfDifferent(known, now); });
    }

    /// Changes the record. Returns the result of \a change.
    template <class Change>
    auto change(const Change &change)
    {
        const std::lock_guard lock(m_mutex);
        return change(m_detail);
    }

    /// Returns the result of calling \a look with the record. \a look must not emit signals.
    template <class Look>
    auto read(const Look &look) const
    {
        const std::lock_guard lock(m_mutex);
        return look(m_detail);
    }

    /// Emits \a signal of \a object, unless the signals of the device are blocked.
    template <class Object>
    void notify(Object &object, void (Object::*signal)()) const
    {
        const auto owner = device.lock();
        if (!owner || !owner->signalsBlocked())
            Q_EMIT(object.*signal)();
    }

    const std::weak_ptr<Device> device;

private:
    mutable std::mutex m_mutex;
    Detail m_detail; // guarded by m_mutex
};

} // namespace Tavoro::BizModel
