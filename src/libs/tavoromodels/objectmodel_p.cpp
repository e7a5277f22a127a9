#include "objectmodel_p.h"

#include <QPointer>
#include <QScopedValueRollback>

#include <algorithm>
#include <iterator>
#include <utility>

namespace Tavoro::Models {

namespace {

constexpr int firstRole = Qt::UserRole + 1;

QString nameKey()
{
    return QStringLiteral("name");
}

/// Returns whether both pointers are to the same object, also if it no longer exists.
bool isSame(const std::weak_ptr<QObject> &a, const std::weak_ptr<QObject> &b)
{
    return !a.owner_before(b) && !b.owner_before(a);
}

int indexOf(const std::vector<QByteArray> &roles, const char *name)
{
    const auto place = std::find(roles.begin(), roles.end(), name);
    return place == roles.end() ? -1 : static_cast<int>(place - roles.begin());
}

} // namespace

ObjectModelPrivate::ObjectModelPrivate(ObjectModel &model, std::unique_ptr<RowSource> rowSource)
    : q(model),
      source(std::move(rowSource)),
      roles(source->roles()),
      generalIndex(indexOf(roles, "general")),
      displayIndex(indexOf(roles, "display")),
      decorationIndex(indexOf(roles, "decoration"))
{ }

// Following the device model

void ObjectModelPrivate::synchronise()
{
    m_isOutdated = true;
    if (m_isSynchronising)
        return;
    const QScopedValueRollback<bool> synchronising(m_isSynchronising, true);
    while (std::exchange(m_isOutdated, false))
        applyDifferences();
}

void ObjectModelPrivate::applyDifferences()
{
    const ObjectList wanted = source->objects();
    const auto isRowOf = [](const Row &row, const std::shared_ptr<QObject> &object) {
        return isSame(row.object, object);
    };
    if (std::equal(rows.begin(), rows.end(), wanted.begin(), wanted.end(), isRowOf))
        return;
    std::map<std::weak_ptr<QObject>, int, std::owner_less<>> numbers;
    const auto numberOf = [&numbers](const std::weak_ptr<QObject> &object) {
        return numbers.emplace(object, static_cast<int>(numbers.size())).first->second;
    };
    std::vector<int> present;
    std::vector<int> target;
    for (const Row &row : rows)
        present.push_back(numberOf(row.object));
    for (const auto &object : wanted)
        target.push_back(numberOf(object));
    for (const RowChange &change : rowChanges(std::move(present), target))
        apply(change, wanted);
}

void ObjectModelPrivate::apply(const RowChange &change, const ObjectList &wanted)
{
    const auto begin = rows.begin() + change.row;
    const int last = change.row + change.count - 1;
    switch (change.kind) {
    case RowChange::Remove:
        q.beginRemoveRows({}, change.row, last);
        std::for_each(begin, begin + change.count,
                      [](const Row &row) { QObject::disconnect(row.connection); });
        rows.erase(begin, begin + change.count);
        q.endRemoveRows();
        break;
    case RowChange::Insert: {
        std::vector<Row> added;
        added.reserve(static_cast<std::size_t>(change.count));
        const auto first = wanted.begin() + change.wanted;
        std::transform(first, first + change.count, std::back_inserter(added),
                       [this](const auto &object) { return makeRow(object); });
        q.beginInsertRows({}, change.row, last);
        rows.insert(begin, std::make_move_iterator(added.begin()),
                    std::make_move_iterator(added.end()));
        q.endInsertRows();
        break;
    }
    case RowChange::Move:
        q.beginMoveRows({}, change.row, last, {}, change.to);
        if (change.to > change.row)
            std::rotate(begin, begin + 1, rows.begin() + change.to);
        else
            std::rotate(rows.begin() + change.to, begin, begin + 1);
        q.endMoveRows();
        break;
    }
}

ObjectModelPrivate::Row ObjectModelPrivate::makeRow(const std::shared_ptr<QObject> &object)
{
    const std::weak_ptr<QObject> weak = object;
    const auto connection = source->connectTo(*object, &q, [this, weak] {
        if (const auto changed = weak.lock()) {
            refresh(changed);
            synchronise();
        }
    });
    return {object, source->values(*object), connection, {}};
}

ObjectModelPrivate::Row *ObjectModelPrivate::findRow(const std::weak_ptr<QObject> &object)
{
    const auto place = std::find_if(rows.begin(), rows.end(),
                                    [&](const Row &row) { return isSame(row.object, object); });
    return place == rows.end() ? nullptr : &*place;
}

void ObjectModelPrivate::refresh(const std::shared_ptr<QObject> &object)
{
    Row *const row = findRow(object);
    if (!row)
        return;
    const auto before = allValues(*row);
    row->values = source->values(*object);
    notifyDifferences(*row, before);
}

void ObjectModelPrivate::refreshAll()
{
    ObjectList objects;
    for (const Row &row : rows) {
        if (auto object = row.object.lock())
            objects.push_back(std::move(object));
    }
    for (const auto &object : objects)
        refresh(object);
}

std::vector<QVariant> ObjectModelPrivate::allValues(const Row &row) const
{
    std::vector<QVariant> values;
    values.reserve(roles.size());
    for (int i = 0; i < static_cast<int>(roles.size()); ++i)
        values.push_back(value(row, i));
    return values;
}

void ObjectModelPrivate::notifyDifferences(const Row &row, const std::vector<QVariant> &before)
{
    QVector<int> changed;
    for (int i = 0; i < static_cast<int>(roles.size()); ++i) {
        const QVariant &former = before[static_cast<std::size_t>(i)];
        if (value(row, i) == former)
            continue;
        changed.append(roleOfIndex(i));
        if (i == generalIndex && former.toMap().value(nameKey()) != editedName(row))
            changed.append(Qt::EditRole);
    }
    if (changed.isEmpty())
        return;
    const QModelIndex index = q.index(static_cast<int>(&row - rows.data()));
    Q_EMIT q.dataChanged(index, index, changed);
}

// Values

ObjectModelPrivate::Row *ObjectModelPrivate::rowAt(const QModelIndex &index)
{
    if (!index.isValid())
        return nullptr;
    Q_ASSERT(q.checkIndex(index));
    return &rows[static_cast<std::size_t>(index.row())];
}

int ObjectModelPrivate::roleOfIndex(int index) const
{
    if (index == displayIndex)
        return Qt::DisplayRole;
    return index == decorationIndex ? int(Qt::DecorationRole) : firstRole + index;
}

int ObjectModelPrivate::indexOfRole(int role) const
{
    if (role == Qt::DisplayRole)
        return displayIndex;
    if (role == Qt::DecorationRole)
        return decorationIndex;
    const int index = role - firstRole;
    return index >= 0 && index < static_cast<int>(roles.size()) ? index : -1;
}

QString ObjectModelPrivate::editedName(const Row &row) const
{
    return value(row, generalIndex).toMap().value(nameKey()).toString();
}

QVariant ObjectModelPrivate::value(const Row &row, int index) const
{
    if (const auto edit = row.edits.find(index); edit != row.edits.end())
        return edit->second.value;
    if (index == displayIndex && row.edits.count(generalIndex) != 0)
        return editedName(row);
    return row.values->value(index);
}

QVariant ObjectModelPrivate::data(const Row &row, int role) const
{
    if (role == Qt::EditRole)
        return editedName(row);
    const int index = indexOfRole(role);
    if (index < 0)
        return {};
    const QVariant result = value(row, index);
    return role == Qt::DecorationRole && decorations ? decorations(result.toString()) : result;
}

// Edits

bool ObjectModelPrivate::canEdit(int index) const
{
    return handler && index >= 0 && index < source->keyCount()
        && handler->canEdit(source->kind(),
                            QString::fromLatin1(roles[static_cast<std::size_t>(index)]));
}

void ObjectModelPrivate::startEdit(Row &row, int index, const QVariant &value)
{
    const auto object = row.object.lock();
    if (!object)
        return;
    const QString key = QString::fromLatin1(roles[static_cast<std::size_t>(index)]);
    const Edit edit{source->deviceOf(*object), source->kind(), key,
                    source->writeRecord(*object, key, value)};
    const quint64 number = ++m_lastEdit;
    const auto before = allValues(row);
    row.edits[index] = {value, number};
    notifyDifferences(row, before);
    handler->edit(edit,
                  [model = QPointer<ObjectModel>(&q), this, weak = std::weak_ptr<QObject>(object),
                   index, number](const QString &error) {
                      if (model)
                          finishEdit(weak, index, number, error);
                  });
}

void ObjectModelPrivate::dropEdits()
{
    const auto isEdited = [](const Row &each) {
        return !each.edits.empty();
    };
    // A slot may change the rows.
    for (;;) {
        const auto row = std::find_if(rows.begin(), rows.end(), isEdited);
        if (row == rows.end())
            return;
        const auto before = allValues(*row);
        row->edits.clear();
        notifyDifferences(*row, before);
    }
}

void ObjectModelPrivate::finishEdit(const std::weak_ptr<QObject> &object, int index, quint64 number,
                                    const QString &error)
{
    Row *row = findRow(object);
    if (!row)
        return;
    const auto edit = row->edits.find(index);
    if (edit != row->edits.end() && edit->second.number == number) {
        const auto before = allValues(*row);
        row->edits.erase(edit);
        notifyDifferences(*row, before);
        row = findRow(object); // a slot may have changed the rows
    }
    if (row && !error.isEmpty())
        Q_EMIT q.editFailed(q.index(static_cast<int>(row - rows.data())),
                            QString::fromLatin1(roles[static_cast<std::size_t>(index)]), error);
}

} // namespace Tavoro::Models
