#pragma once

#include "jsondiff.h"

#include <tavorocontrol/proto/file.h>

#include <QJsonObject>
#include <QJsonValue>
#include <QMap>
#include <QObject>
#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Ctl {

/// A change of one object.
struct ModelChange {
    enum Kind {
        Changed,
        New,
        Gone,
        Transfer
    };

    Kind kind = Changed;
    QString object; ///< "screen 1 (type 1)".
    std::vector<Difference> differences; ///< Of a Changed object.
    ProtoModel::File::s_FileTransPercent transfer; ///< Progress of a Transfer of a file.

    /// "screen 1 (type 1): freeze 0 -> 1".
    QString text() const;
    QJsonObject toJson() const;
};

/// Shows the changes in the model of one device, one line per object.
///
/// Belongs to the main thread, on which the model must change.
class ModelWatch {
public:
    /// \a show is called with each change.
    explicit ModelWatch(std::function<void(const ModelChange &)> show) : m_show(std::move(show)) { }

    /// Follows all objects of \a device. Call it again after the device has been read again: it
    /// then shows what has changed in between.
    void follow(const std::shared_ptr<BizModel::Device> &device);

private:
    using Objects = QMap<QString, QJsonValue>; ///< The last state of each object, by its name.

    void followObjects(BizModel::Device &device, Objects &objects);
    void compare(const QString &name, const QJsonValue &now);

    const std::function<void(const ModelChange &)> m_show;
    Objects m_known;
    std::unique_ptr<QObject>
        m_connections; ///< Context of all connections; null before the first call.
};

} // namespace Tavoro::Ctl
