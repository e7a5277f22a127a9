#include "mainwindow.h"

#include "partstable.h"

#include <tavorosession/session.h>

#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>

namespace Tavoro::Panel {

namespace {

struct MenuRow {
    Menu menu;
    const char *title;
};

#define TITLE(text) QT_TRANSLATE_NOOP("Tavoro::Panel::MainWindow", text)

// clang-format off
constexpr MenuRow menus[] = {
    {Menu::Device, TITLE("&Device")},
    {Menu::Live,   TITLE("&Live")},
    {Menu::Edit,   TITLE("&Edit")},
    {Menu::View,   TITLE("&View")},
    {Menu::Help,   TITLE("&Help")},
};
// clang-format on

Qt::DockWidgetArea dockAreaOf(Area area)
{
    switch (area) {
    case Area::Left:
        return Qt::LeftDockWidgetArea;
    case Area::Right:
        return Qt::RightDockWidgetArea;
    case Area::Centre:
    case Area::Bottom:
        break;
    }
    return Qt::BottomDockWidgetArea;
}

} // namespace

MainWindow::MainWindow(Session &session, QWidget *parent)
    : QMainWindow(parent),
      m_selection(session),
      m_changes(m_messages),
      m_actions(m_selection, m_changes)
{
    addMenus();
    addParts(session);
}

void MainWindow::addMenus()
{
    for (const MenuRow &row : menus) {
        QMenu *const menu = menuBar()->addMenu(tr(row.title));
        for (const ActionRow &action : actionTable()) {
            if (action.menu == row.menu)
                menu->addAction(&m_actions.action(action.id));
        }
    }
}

void MainWindow::addParts(Session &session)
{
    const PartContext context{session, m_selection, m_messages, m_changes, m_actions};
    for (const PartRow &row : partsTable()) {
        QWidget *const part = row.make(context, this);
        part->setObjectName(QString::fromLatin1(row.name));
        if (row.area == Area::Centre) {
            setCentralWidget(part);
            continue;
        }
        auto *const dock = new QDockWidget(tr(row.title), this);
        dock->setObjectName(QString::fromLatin1(row.name) + QStringLiteral("Dock"));
        dock->setWidget(part);
        addDockWidget(dockAreaOf(row.area), dock);
    }
}

} // namespace Tavoro::Panel
