#pragma once

#include <tavoromodels/export.h>

#include <QAbstractListModel>
#include <QByteArray>
#include <QHash>
#include <QModelIndex>
#include <QString>
#include <QVariant>

#include <functional>
#include <memory>

namespace Tavoro::Models {

class EditHandler;
class ObjectModelPrivate;
class RowSource;

/// A list of objects of the device model, one row for each, in one column.
///
/// Each key of the object's record is a role of the same name, so QML writes
/// <tt>model.general.name</tt>. A record within the record is a QVariantMap, a list a QVariantList.
/// Further roles of all models:
/// - \c display (Qt::DisplayRole): the name of the object, or its numbers if it has no name;
/// - \c decoration (Qt::DecorationRole): the name of a symbol, see setDecorations();
/// - \c online: whether the object can be used; false for a device without a channel.
///
/// Rows are inserted, removed and moved one by one, and the model is never reset, so views keep
/// selection and position. QAbstractItemModel::dataChanged() names the roles that changed.
///
/// A model belongs to its thread, usually the application's; changes that are made on another
/// thread arrive there through its event loop. A device whose signals were blocked while it changed
/// reports nothing: call refresh() afterwards. Control::DeviceList::readDeviceDetail() is such a
/// change.
class TAVOROMODELS_EXPORT ObjectModel : public QAbstractListModel {
    Q_OBJECT

public:
    ~ObjectModel() override;

    /// Number of rows; 0 for a row, since rows have no children.
    int rowCount(const QModelIndex &parent = {}) const override;
    /// The value of a role; invalid for a role that the model does not have.
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /// Sends a change to the device through the edit handler.
    ///
    /// \a role is the role of a key; \a value is its new value, or a map with some of its keys.
    /// Qt::EditRole changes the name of the object. The model shows the new value at once, and the
    /// value of the device when the edit has ended. Returns false, and does nothing, if there is no
    /// edit handler, if it cannot edit the key, or if \a value has a key that the record does not
    /// have.
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    /// A row is editable if its name is.
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// The roles with their names.
    QHash<int, QByteArray> roleNames() const override;
    /// Returns the role with this name, or -1.
    Q_INVOKABLE int role(const QByteArray &name) const;

    /// Sets the object that carries out edits; null makes the model read-only. The handler must
    /// exist as long as the model, or until another one is set. The model then shows the values of
    /// the device for the edits of the previous handler that have not ended.
    void setEditHandler(EditHandler *handler);
    /// Sets a function that makes the value of \c decoration from the name of a symbol, for example
    /// a \c QIcon for views in widgets. Without it the value is the name, as QML needs it. The
    /// names are those in docs/itemmodels.md.
    void setDecorations(std::function<QVariant(const QString &name)> decorations);

public Q_SLOTS:
    /// Compares all rows with the device model, and applies what differs.
    void refresh();

Q_SIGNALS:
    /// An edit failed; the row shows the value of the device again. \a key is the key that was
    /// edited, and \a error the reason as a sentence.
    void editFailed(const QModelIndex &index, const QString &key, const QString &error);

protected:
    /// \cond
    ObjectModel(std::unique_ptr<RowSource> source, QObject *parent);
    std::shared_ptr<QObject> objectAt(const QModelIndex &index) const;
    RowSource &source() const;
    /// Inserts, removes and moves rows after what the model shows has changed.
    void refreshRows();
    /// \endcond

private:
    friend class ContentsModelPrivate;
    friend class ObjectModelPrivate;

    const std::unique_ptr<ObjectModelPrivate> d;
};

} // namespace Tavoro::Models
