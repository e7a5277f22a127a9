#include <tavoromodels/objectmodel.h>

#include "mergedvalue_p.h"
#include "objectmodel_p.h"

#include <QVariantMap>

#include <utility>

namespace Tavoro::Models {

ObjectModel::ObjectModel(std::unique_ptr<RowSource> source, QObject *parent)
    : QAbstractListModel(parent), d(std::make_unique<ObjectModelPrivate>(*this, std::move(source)))
{ }

ObjectModel::~ObjectModel() = default;

int ObjectModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(d->rows.size());
}

QVariant ObjectModel::data(const QModelIndex &index, int role) const
{
    const auto *const row = d->rowAt(index);
    return row ? d->data(*row, role) : QVariant();
}

bool ObjectModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    auto *const row = d->rowAt(index);
    const bool isName = role == Qt::EditRole;
    const int key = isName ? d->generalIndex : d->indexOfRole(role);
    if (!row || !d->canEdit(key) || row->object.expired())
        return false;
    const auto now = mergedValue(d->value(*row, key),
                                 isName ? QVariantMap{{QStringLiteral("name"), value}} : value);
    if (!now)
        return false;
    d->startEdit(*row, key, *now);
    return true;
}

Qt::ItemFlags ObjectModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractListModel::flags(index);
    if (index.isValid() && d->canEdit(d->generalIndex))
        flags |= Qt::ItemIsEditable;
    return flags;
}

QHash<int, QByteArray> ObjectModel::roleNames() const
{
    QHash<int, QByteArray> names{{Qt::EditRole, "edit"}};
    for (int i = 0; i < static_cast<int>(d->roles.size()); ++i)
        names.insert(d->roleOfIndex(i), d->roles[static_cast<std::size_t>(i)]);
    return names;
}

int ObjectModel::role(const QByteArray &name) const
{
    return roleNames().key(name, -1);
}

void ObjectModel::setEditHandler(EditHandler *handler)
{
    if (std::exchange(d->handler, handler) != handler)
        d->dropEdits();
}

void ObjectModel::setDecorations(std::function<QVariant(const QString &name)> decorations)
{
    d->decorations = std::move(decorations);
    if (!d->rows.empty())
        Q_EMIT dataChanged(index(0), index(rowCount() - 1), {Qt::DecorationRole});
}

void ObjectModel::refresh()
{
    d->synchronise();
    d->refreshAll();
}

std::shared_ptr<QObject> ObjectModel::objectAt(const QModelIndex &index) const
{
    const auto *const row = d->rowAt(index);
    return row ? row->object.lock() : nullptr;
}

void ObjectModel::refreshRows()
{
    d->synchronise();
}

RowSource &ObjectModel::source() const
{
    return *d->source;
}

} // namespace Tavoro::Models
