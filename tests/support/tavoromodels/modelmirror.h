#pragma once

#include <QAbstractItemModel>
#include <QHash>
#include <QList>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <utility>

/// What a view knows of a list model: it takes over rows and values only when the model signals
/// them.
class ModelMirror {
public:
    using Row = QHash<int, QVariant>;

    explicit ModelMirror(const QAbstractItemModel &source)
        : model(source), m_roles(source.roleNames().keys())
    {
        for (int i = 0; i < model.rowCount(); ++i)
            rows.append(read(i));
        connectTo(&QAbstractItemModel::rowsInserted,
                  [this](const QModelIndex &, int first, int last) {
                      ++insertions;
                      for (int i = first; i <= last; ++i)
                          rows.insert(i, read(i));
                  });
        connectTo(&QAbstractItemModel::rowsRemoved,
                  [this](const QModelIndex &, int first, int last) {
                      ++removals;
                      for (int i = last; i >= first; --i)
                          rows.removeAt(i);
                  });
        connectTo(&QAbstractItemModel::rowsMoved,
                  [this](const QModelIndex &, int first, int last, const QModelIndex &, int to) {
                      ++moves;
                      for (int i = 0; i <= last - first; ++i)
                          rows.move(to > first ? first : first + i, to > first ? to - 1 : to + i);
                  });
        connectTo(&QAbstractItemModel::modelReset, [this] { faults << QStringLiteral("reset"); });
        connectTo(&QAbstractItemModel::layoutChanged,
                  [this] { faults << QStringLiteral("layout changed"); });
        connectTo(&QAbstractItemModel::dataChanged,
                  [this](const QModelIndex &first, const QModelIndex &last,
                         const QVector<int> &roles) { update(first.row(), last.row(), roles); });
    }

    /// The values of all roles, as the model returns them now.
    Row read(int row) const
    {
        Row values;
        for (const int role : m_roles)
            values.insert(role, model.data(model.index(row, 0), role));
        return values;
    }

    /// Whether the model returns what it has signalled.
    bool isUpToDate() const
    {
        if (rows.size() != model.rowCount())
            return false;
        for (int i = 0; i < rows.size(); ++i) {
            if (rows[i] != read(i))
                return false;
        }
        return true;
    }

    /// The names of the roles of each signal of changed values, sorted: "display edit general".
    QStringList changes;
    QStringList faults;
    QList<Row> rows;
    int insertions = 0;
    int removals = 0;
    int moves = 0;

    const QAbstractItemModel &model;

private:
    template <class Signal, class Slot>
    void connectTo(Signal signal, Slot slot)
    {
        QObject::connect(&model, signal, &m_context, std::move(slot));
    }

    void update(int first, int last, const QVector<int> &roles)
    {
        const auto names = model.roleNames();
        QStringList changed;
        if (roles.isEmpty())
            faults << QStringLiteral("no roles");
        for (int i = first; i <= last; ++i) {
            for (const int role : roles) {
                const QVariant value = model.data(model.index(i, 0), role);
                if (rows[i].value(role) == value)
                    faults << QStringLiteral("unchanged ") + QString::fromLatin1(names.value(role));
                rows[i].insert(role, value);
                changed << QString::fromLatin1(names.value(role));
            }
        }
        changed.sort();
        changes << changed.join(QLatin1Char(' '));
    }

    const QList<int> m_roles;
    QObject m_context;
};
