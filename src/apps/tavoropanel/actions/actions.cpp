#include "actions.h"

#include <tavoropanel/selection/selection.h>
#include <tavoropanel/undo/changes.h>

#include <QAction>
#include <QIcon>
#include <QUndoStack>

namespace Tavoro::Panel {

namespace {

QIcon iconOf(const ActionRow &row)
{
    const QString name = QString::fromLatin1(row.icon);
    return name.isEmpty()
        ? QIcon()
        : QIcon::fromTheme(name, QIcon(QStringLiteral(":/icons/%1.svg").arg(name)));
}

} // namespace

Actions::Actions(Selection &selection, Changes &changes, QObject *parent)
    : QObject(parent), m_selection(selection), m_changes(changes)
{
    for (const ActionRow &row : actionTable()) {
        auto *const action = new QAction(iconOf(row), tr(row.text), this);
        action->setShortcut(QKeySequence(QString::fromLatin1(row.shortcut)));
        action->setToolTip(tr(row.description));
        action->setStatusTip(tr(row.description));
        action->setAutoRepeat(false);
        m_actions.emplace(row.id, action);
    }
    const auto update = [this] {
        updateEnabled();
    };
    connect(&selection, &Selection::deviceChanged, this, update);
    connect(&selection, &Selection::canWriteChanged, this, update);
    connect(&selection, &Selection::screensChanged, this, update);
    connect(&selection, &Selection::layerChanged, this, update);
    connect(&changes.steps(), &QUndoStack::canUndoChanged, this, update);
    connect(&changes.steps(), &QUndoStack::canRedoChanged, this, update);
    updateEnabled();
}

QAction &Actions::action(ActionId id) const
{
    return *m_actions.at(id);
}

void Actions::updateEnabled()
{
    for (const ActionRow &row : actionTable())
        action(row.id).setEnabled(isMet(row.needs));
}

bool Actions::isMet(Needs needs) const
{
    switch (needs) {
    case Needs::Nothing:
        return true;
    case Needs::Device:
        return m_selection.device();
    case Needs::WritableScreens:
        return m_selection.canWrite() && !m_selection.screens().isEmpty();
    case Needs::WritableLayer:
        return m_selection.canWrite() && m_selection.layer();
    case Needs::WritableDevice:
        return m_selection.canWrite();
    case Needs::UndoStep:
        return m_changes.steps().canUndo();
    case Needs::RedoStep:
        return m_changes.steps().canRedo();
    }
    return false;
}

} // namespace Tavoro::Panel
