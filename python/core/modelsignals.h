#pragma once

#include <QtGlobal>

#include <functional>
#include <memory>

QT_BEGIN_NAMESPACE
class QObject;
QT_END_NAMESPACE

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Python {

/// Calls a function whenever a record of a device in the model has changed. Belongs to the
/// runtime's thread, which changes the model.
class ModelSignals {
public:
    /// Follows no device yet.
    explicit ModelSignals(std::function<void()> changed);
    ~ModelSignals();
    ModelSignals(const ModelSignals &) = delete;
    ModelSignals &operator=(const ModelSignals &) = delete;

    /// Follows this device instead of the former one, or none.
    void follow(const std::shared_ptr<BizModel::Device> &device);

private:
    void followObjects();

    const std::function<void()> m_changed;
    std::weak_ptr<BizModel::Device> m_device;
    std::unique_ptr<QObject> m_deviceContext; ///< Ends the connection to the device.
    std::unique_ptr<QObject> m_objectsContext; ///< Ends the connections to its objects.
};

} // namespace Tavoro::Python
