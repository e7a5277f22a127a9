#pragma once

#include "rowchanges_p.h"
#include "rowsource_p.h"

#include <tavoromodels/objectmodel.h>

#include <map>
#include <memory>
#include <vector>

namespace Tavoro::Models {

/// The rows of an ObjectModel. Belongs to the thread of the model.
class ObjectModelPrivate {
public:
    /// A change that a user made and that has not ended.
    struct PendingEdit {
        QVariant value;
        quint64 number = 0;
    };

    struct Row {
        std::weak_ptr<QObject> object;
        std::shared_ptr<const RowValues> values;
        QMetaObject::Connection connection; ///< To the signal of the object.
        std::map<int, PendingEdit> edits; ///< By the index of the role.
    };

    ObjectModelPrivate(ObjectModel &model, std::unique_ptr<RowSource> source);

    /// \name Following the device model
    /// @{
    /// Inserts, removes and moves rows, so that they are those of the source. A call by a slot that
    /// one of these changes has called takes effect after the changes under way.
    void synchronise();
    /// Takes over the values of one row, if the object has one.
    void refresh(const std::shared_ptr<QObject> &object);
    void refreshAll();
    /// @}

    /// \name Values
    /// @{
    /// Returns null for an index that is not valid.
    Row *rowAt(const QModelIndex &index);
    int roleOfIndex(int index) const;
    /// Returns -1 for a role that the model does not have.
    int indexOfRole(int role) const;
    QVariant value(const Row &row, int index) const;
    QVariant data(const Row &row, int role) const;
    /// @}

    /// \name Edits
    /// @{
    bool canEdit(int index) const;
    /// Shows the values of the device again.
    void dropEdits();
    void startEdit(Row &row, int index, const QVariant &value);
    void finishEdit(const std::weak_ptr<QObject> &object, int index, quint64 number,
                    const QString &error);
    /// @}

    ObjectModel &q;
    const std::unique_ptr<RowSource> source;
    const std::vector<QByteArray> roles;
    std::vector<Row> rows;
    EditHandler *handler = nullptr;
    std::function<QVariant(const QString &)> decorations;
    const int generalIndex; ///< Of the key that contains the name.
    const int displayIndex;
    const int decorationIndex;

private:
    Row makeRow(const std::shared_ptr<QObject> &object);
    Row *findRow(const std::weak_ptr<QObject> &object);
    QString editedName(const Row &row) const;
    std::vector<QVariant> allValues(const Row &row) const;
    /// Emits dataChanged() for the roles whose values are not those of \a before.
    void notifyDifferences(const Row &row, const std::vector<QVariant> &before);
    void applyDifferences();
    void apply(const RowChange &change, const ObjectList &wanted);

    quint64 m_lastEdit = 0;
    bool m_isSynchronising = false;
    bool m_isOutdated = false; ///< The rows must be compared with the source again.
};

} // namespace Tavoro::Models
