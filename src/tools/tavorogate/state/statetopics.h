#pragma once

#include <QByteArray>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Gate {

/// The kinds of objects whose lists change as a whole.
enum class StateKind : quint8 {
    Device, ///< The device itself, its cards, its power supplies and so on.
    Interfaces,
    Screens,
    Layers,
    Files,
    Control, ///< Who controls the device, which the session knows.
};

/// The kinds whose objects the model has, in the order in which they are published.
constexpr StateKind stateKinds[] = {StateKind::Device, StateKind::Interfaces, StateKind::Screens,
                                    StateKind::Layers, StateKind::Files};

/// One topic of a device's state.
struct StateTopic {
    QString name; ///< What follows "state/": "screen/1/0".
    /// The record of the object as JSON; empty if the object is gone.
    std::function<QByteArray()> record;
};

/// Called with the name of a topic whose record may have changed.
using StateChanged = std::function<void(const QString &name)>;

/// The topics of all objects of one of \c stateKinds. Until \a context is destroyed, \a changed is
/// called when one of the objects changes, on the thread of \a context. Changes of the list, and of
/// the device itself, are not reported: see BizModel::Device::deviceDataChanged().
std::vector<StateTopic> topicsOf(const std::shared_ptr<BizModel::Device> &device, StateKind kind,
                                 QObject *context, const StateChanged &changed);

} // namespace Tavoro::Gate
