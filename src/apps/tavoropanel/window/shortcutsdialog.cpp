#include "shortcutsdialog.h"

#include <tavoropanel/actions/actions.h>

#include <QAction>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace Tavoro::Panel {

namespace {

struct NoteRow {
    const char *keys;
    const char *text;
};

#define TEXT(text) QT_TRANSLATE_NOOP("Tavoro::Panel::ShortcutsDialog", text)

// Keys that are not the shortcut of an action.
// clang-format off
constexpr NoteRow notes[] = {
    {"Ctrl+1 … Ctrl+9", TEXT("Selects or deselects a screen for the live controls.")},
    {"Tab",             TEXT("Moves to the next control. The space bar then operates a button that has the focus.")},
    {"← →",             TEXT("Moves the T-bar while it has the focus.")},
    {"Tab",             TEXT("On the canvas: selects the next layer of the selected screens.")},
    {"← → ↑ ↓",         TEXT("On the canvas: moves the selected layer by 1 pixel, with Shift by 10. Without one: selects scene and screen.")},
    {"Ctrl+← → ↑ ↓",    TEXT("On the canvas: moves the right and lower edges of the selected layer.")},
    {"Shift+F10",       TEXT("Opens the menu of the selected layer or preset.")},
};
// clang-format on

#undef TEXT

} // namespace

ShortcutsDialog::ShortcutsDialog(const Actions &actions, QWidget *parent) : QDialog(parent)
{
    setWindowTitle(tr("Keyboard shortcuts"));
    auto *const list = new QTreeWidget(this);
    list->setRootIsDecorated(false);
    list->setAlternatingRowColors(true);
    list->setHeaderLabels({tr("Keys"), tr("Action"), tr("Effect")});
    list->setAccessibleName(windowTitle());
    list->setAccessibleDescription(tr("The keys, the action and what it does"));
    for (const ActionRow &row : actionTable()) {
        const QAction &action = actions.action(row.id);
        if (!action.shortcut().isEmpty())
            new QTreeWidgetItem(list,
                                {action.shortcut().toString(QKeySequence::NativeText),
                                 action.iconText(), action.toolTip()});
    }
    for (const NoteRow &row : notes)
        new QTreeWidgetItem(list, {QString::fromUtf8(row.keys), QString(), tr(row.text)});
    list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);

    auto *const buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->button(QDialogButtonBox::Close)->setAccessibleDescription(tr("Closes the list"));
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(list);
    layout->addWidget(buttons);
    resize(900, 560);
}

} // namespace Tavoro::Panel
