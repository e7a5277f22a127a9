#include "actions.h"

#include <tavoropanel/selection/selection.h>
#include <tavoropanel/theme/icon.h>
#include <tavoropanel/undo/changes.h>

#include <QAction>
#include <QRegularExpression>

#include <algorithm>

namespace Tavoro::Panel {

namespace {

/// The name without the letter that menus underline. In Chinese the letter follows in brackets.
QString plainName(QString name)
{
    static const QRegularExpression letterInBrackets(QStringLiteral("\\(&.\\)"));
    return name.remove(letterInBrackets).remove(QLatin1Char('&'));
}

} // namespace

Actions::Actions(Selection &selection, Changes &changes, QObject *parent)
    : QObject(parent), m_selection(selection), m_changes(changes)
{
    for (const ActionRow &row : actionTable()) {
        auto *const action = new QAction(tr(row.text), this);
        if (*row.icon)
            action->setIcon(icon(row.icon));
        action->setIconText(plainName(action->text()));
        action->setShortcut(QKeySequence(QString::fromLatin1(row.shortcut)));
        action->setToolTip(tr(descriptionOf(row.id)));
        action->setStatusTip(action->toolTip());
        action->setAutoRepeat(false);
        m_actions.emplace(row.id, action);
    }
    const auto update = [this] {
        updateEnabled();
        nameStep(ActionId::Undo, m_changes.undoText());
        nameStep(ActionId::Redo, m_changes.redoText());
    };
    connect(&selection, &Selection::deviceChanged, this, update);
    connect(&selection, &Selection::stateChanged, this, update);
    connect(&selection, &Selection::canWriteChanged, this, update);
    connect(&selection, &Selection::screensChanged, this, update);
    connect(&selection, &Selection::layerChanged, this, update);
    connect(&changes, &Changes::stepsChanged, this, update);
    connect(&action(ActionId::Undo), &QAction::triggered, &changes, &Changes::undo);
    connect(&action(ActionId::Redo), &QAction::triggered, &changes, &Changes::redo);
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

/// Says in the menu what is undone or redone.
void Actions::nameStep(ActionId id, QString step)
{
    const auto &table = actionTable();
    const auto row = std::find_if(table.begin(), table.end(),
                                  [id](const ActionRow &candidate) { return candidate.id == id; });
    const QString name = tr(row->text);
    step.replace(QLatin1Char('&'), QLatin1String("&&"));
    //: "Undo" or "Redo", and what the operator did
    action(id).setText(step.isEmpty() ? name : tr("%1: %2").arg(name, step));
    action(id).setIconText(plainName(name));
}

bool Actions::isMet(Needs needs) const
{
    switch (needs) {
    case Needs::Nothing:
        return true;
    case Needs::Device:
        return m_selection.device();
    case Needs::Connection:
        return m_selection.isConnected();
    case Needs::WritableScreens:
        return m_selection.canWrite() && !m_selection.screens().isEmpty();
    case Needs::WritableLayer:
        return m_selection.canWrite() && m_selection.layer();
    case Needs::WritableDevice:
        return m_selection.canWrite();
    case Needs::UndoStep:
        return m_changes.canUndo();
    case Needs::RedoStep:
        return m_changes.canRedo();
    }
    return false;
}

} // namespace Tavoro::Panel
