#pragma once

#include <tavoromodels/export.h>

#include <QJsonObject>
#include <QString>

#include <functional>
#include <memory>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Models {

/// The kinds of objects that item models show.
enum class ObjectKind : int {
    Device = 0, ///< A device as a whole.
    Interface = 1, ///< A connector, input or output.
    Screen = 2, ///< A screen or a multiviewer.
    Layer = 3, ///< A layer of a screen.
    File = 4, ///< A file on a device.
};

/// A change that a user made in a view.
struct Edit {
    std::weak_ptr<BizModel::Device> device; ///< The device to which the object belongs.
    ObjectKind kind = ObjectKind::Device; ///< The kind of the object.
    QString key; ///< The key whose value changes, such as "general" or "window".
    /// The record to write: the keys of the object's identity, as in the write records, and \c key
    /// with its whole value. For the name of a file also \c desFileId and \c desFileType.
    QJsonObject record;
};

/// Carries out the changes that users make in views of an ObjectModel.
///
/// All members are called on the thread of the models. They must not block.
class TAVOROMODELS_EXPORT EditHandler {
public:
    /// The result of an edit: empty if it succeeded, otherwise the reason as a sentence.
    using Done = std::function<void(const QString &error)>;

    virtual ~EditHandler();

    /// Returns true if there is a command that writes this key of this kind of object.
    virtual bool canEdit(ObjectKind kind, const QString &key) const = 0;
    /// Sends a change to the device. Calls \a done exactly once, on the thread of the models: at
    /// once or later. After a success it does so when the object in the device model has the value
    /// that the device reports, since the view then shows that value. \a done may be called when
    /// the item model no longer exists.
    virtual void edit(const Edit &edit, Done done) = 0;
};

} // namespace Tavoro::Models
