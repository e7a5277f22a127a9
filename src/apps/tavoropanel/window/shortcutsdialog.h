#pragma once

#include <QDialog>

namespace Tavoro::Panel {

class Actions;

/// Lists the keyboard shortcuts of all actions.
class ShortcutsDialog : public QDialog {
    Q_OBJECT

public:
    explicit ShortcutsDialog(const Actions &actions, QWidget *parent = nullptr);
};

} // namespace Tavoro::Panel
