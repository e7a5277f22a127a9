#pragma once

#include <QJsonValue>
#include <QMap>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Ctl {

/// Tells what changes in the model of one device, a line per object.
///
/// Belongs to the main thread, on which the model must change.
class ModelWatch {
public:
    /// \a tell is called with each line.
    explicit ModelWatch(std::function<void(const QString &)> tell) : m_tell(std::move(tell)) { }

    /// Looks at all objects of \a device and follows them from now on. To be called again when it
    /// was read again; then tells what is other than before.
    void follow(const std::shared_ptr<BizModel::Device> &device);

private:
    using Objects = QMap<QString, QJsonValue>; ///< What is known of each, by its name.

    void followObjects(BizModel::Device &device, Objects &objects);
    void compare(const QString &name, const QJsonValue &now);

    const std::function<void(const QString &)> m_tell;
    Objects m_known;
    std::unique_ptr<QObject> m_connections; ///< Context of all connections; null before the first.
};

} // namespace Tavoro::Ctl
