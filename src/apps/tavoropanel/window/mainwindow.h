#pragma once

#include "keyfilter.h"

#include <tavoropanel/actions/actions.h>
#include <tavoropanel/messages/messages.h>
#include <tavoropanel/selection/selection.h>
#include <tavoropanel/undo/changes.h>

#include <QMainWindow>

QT_BEGIN_NAMESPACE
class QDockWidget;
class QSettings;
class QVBoxLayout;
QT_END_NAMESPACE

namespace Tavoro::Panel {

struct PartRow;

/// The window of the program: menus, the parts of partsTable(), and the status bar.
class MainWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit MainWindow(Session &session, QWidget *parent = nullptr);
    ~MainWindow() override;

    Selection &selection() { return m_selection; }
    Messages &messages() { return m_messages; }
    Changes &changes() { return m_changes; }
    Actions &actions() { return m_actions; }

    /// Adds a bar below the menus.
    void addTopBar(QWidget &bar);

    /// Restores size, places of the parts and theme, as save() stored them.
    void restore(const QSettings &settings);
    void save(QSettings &settings) const;

private:
    void makeColumn();
    void addMenus();
    void addParts(Session &session);
    void addBar(int place, QWidget &bar);
    void addDock(const PartRow &row, QWidget &part);
    void connectActions();
    void connectThemes();
    void showOnStatusBar(const Message &message);

    KeyFilter m_keyFilter;
    Selection m_selection;
    Messages m_messages;
    Changes m_changes;
    Actions m_actions;
    QVBoxLayout *m_column = nullptr;
    QMainWindow *const m_parts; ///< The docks around the canvas.
    QDockWidget *m_firstBottomDock = nullptr;
};

} // namespace Tavoro::Panel
