#pragma once

#include <tavoropanel/actions/actions.h>
#include <tavoropanel/messages/messages.h>
#include <tavoropanel/selection/selection.h>
#include <tavoropanel/undo/changes.h>

#include <QMainWindow>

namespace Tavoro::Panel {

/// The window of the program.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(Session &session, QWidget *parent = nullptr);

    Selection &selection() { return m_selection; }
    Messages &messages() { return m_messages; }
    Changes &changes() { return m_changes; }
    Actions &actions() { return m_actions; }

private:
    void addMenus();
    void addParts(Session &session);

    Selection m_selection;
    Messages m_messages;
    Changes m_changes;
    Actions m_actions;
};

} // namespace Tavoro::Panel
