#include "mainwindow.h"

#include "partstable.h"
#include "shortcutsdialog.h"

#include <tavoropanel/log/messagebox.h>
#include <tavoropanel/theme/theme.h>
#include <tavorosession/session.h>

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QDockWidget>
#include <QFrame>
#include <QHBoxLayout>
#include <QMenu>
#include <QMenuBar>
#include <QSettings>
#include <QStatusBar>
#include <QTabBar>
#include <QVBoxLayout>

namespace Tavoro::Panel {

namespace {

struct MenuRow {
    Menu menu;
    const char *title;
};

struct ThemeRow {
    ActionId action;
    Theme theme;
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

constexpr ThemeRow themes[] = {
    {ActionId::DarkTheme,   Theme::Dark},
    {ActionId::LightTheme,  Theme::Light},
    {ActionId::SystemTheme, Theme::System},
};
// clang-format on

constexpr int layoutVersion = 1;
constexpr int statusMilliseconds = 15000;

QString settingsKey(const char *name)
{
    return QStringLiteral("window/") + QLatin1String(name);
}

void hideTitle(QDockWidget &dock)
{
    auto *const empty = new QWidget(&dock);
    (new QHBoxLayout(empty))->setContentsMargins(0, 0, 0, 0);
    dock.setTitleBarWidget(empty);
}

} // namespace

MainWindow::MainWindow(Session &session, QWidget *parent)
    : QMainWindow(parent),
      m_selection(session),
      m_changes(m_messages),
      m_actions(m_selection, m_changes),
      m_parts(new QMainWindow)
{
    setWindowTitle(tr("Operator's panel"));
    makeColumn();
    addMenus();
    addParts(session);
    connectActions();
    connectThemes();
    showMessageBoxes(*this, m_messages);
    statusBar()->setSizeGripEnabled(false);
    connect(&m_messages, &Messages::reported, this, &MainWindow::showOnStatusBar);
    qApp->installEventFilter(&m_keyFilter);
    resize(1600, 960);
}

MainWindow::~MainWindow()
{
    // The parts use the members, which end before the children of the window would.
    qDeleteAll(findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly));
}

/// Bars stay in the window whatever its size, unlike tool bars. The docks are between them.
void MainWindow::makeColumn()
{
    auto *const column = new QWidget(this);
    m_column = new QVBoxLayout(column);
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
    m_parts->setWindowFlags(Qt::Widget);
    m_parts->setDockOptions(AnimatedDocks | AllowTabbedDocks | AllowNestedDocks);
    m_parts->setTabPosition(Qt::BottomDockWidgetArea, QTabWidget::North);
    m_parts->setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    m_parts->setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    m_column->addWidget(m_parts, 1);
    setCentralWidget(column);
}

void MainWindow::addMenus()
{
    for (const MenuRow &row : menus) {
        QMenu *const menu = menuBar()->addMenu(tr(row.title));
        menu->setObjectName(QString::fromLatin1(row.title).remove(QLatin1Char('&')));
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
        switch (row.area) {
        case Area::Top:
            addTopBar(*part);
            break;
        case Area::Foot:
            addBar(m_column->count(), *part);
            break;
        case Area::Centre:
            m_parts->setCentralWidget(part);
            break;
        case Area::Left:
        case Area::Right:
        case Area::Bottom:
            addDock(row, *part);
            break;
        }
    }
    m_firstBottomDock->raise();
    for (QTabBar *const tabs :
         m_parts->findChildren<QTabBar *>(QString(), Qt::FindDirectChildrenOnly)) {
        tabs->setAccessibleName(tr("Parts below the canvas"));
        tabs->setAccessibleDescription(tr("Selects presets, sources, images or the log"));
    }
}

void MainWindow::addTopBar(QWidget &bar)
{
    addBar(m_column->indexOf(m_parts), bar);
}

void MainWindow::addBar(int place, QWidget &bar)
{
    auto *const line = new QFrame(this);
    line->setFrameStyle(QFrame::HLine | QFrame::Plain);
    line->setForegroundRole(QPalette::Mid);
    const bool isTop = place == m_column->indexOf(m_parts);
    bar.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_column->insertWidget(place, isTop ? &bar : line);
    m_column->insertWidget(place + 1, isTop ? line : &bar);
}

void MainWindow::addDock(const PartRow &row, QWidget &part)
{
    auto *const dock = new QDockWidget(tr(row.title), m_parts);
    dock->setObjectName(QString::fromLatin1(row.name) + QStringLiteral("Dock"));
    dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable
                      | QDockWidget::DockWidgetClosable);
    dock->setWidget(&part);
    const bool isBottom = row.area == Area::Bottom;
    m_parts->addDockWidget(isBottom                     ? Qt::BottomDockWidgetArea
                               : row.area == Area::Left ? Qt::LeftDockWidgetArea
                                                        : Qt::RightDockWidgetArea,
                           dock);
    if (isBottom)
        hideTitle(*dock); // the tab has it
    if (isBottom && m_firstBottomDock)
        m_parts->tabifyDockWidget(m_firstBottomDock, dock);
    else if (isBottom)
        m_firstBottomDock = dock;
    m_parts->resizeDocks({dock},
                         {isBottom                     ? 200
                              : row.area == Area::Left ? 270
                                                       : 330},
                         isBottom ? Qt::Vertical : Qt::Horizontal);
    menuBar()->findChild<QMenu *>(QStringLiteral("View"))->addAction(dock->toggleViewAction());
}

void MainWindow::connectActions()
{
    connect(&m_actions.action(ActionId::Quit), &QAction::triggered, this, &QWidget::close);
    connect(&m_actions.action(ActionId::ShowShortcuts), &QAction::triggered, this, [this] {
        auto *const dialog = new ShortcutsDialog(m_actions, this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->open();
    });
}

void MainWindow::connectThemes()
{
    auto *const group = new QActionGroup(this);
    for (const ThemeRow &row : themes) {
        QAction &action = m_actions.action(row.action);
        action.setCheckable(true);
        action.setChecked(row.theme == currentTheme());
        group->addAction(&action);
        connect(&action, &QAction::triggered, this, [theme = row.theme] { applyTheme(theme); });
    }
}

void MainWindow::showOnStatusBar(const Message &message)
{
    if (message.severity == Severity::Detail)
        return;
    const QString text = message.severity == Severity::Information
        ? message.text
        : tr("%1: %2").arg(Messages::severityName(message.severity), message.text);
    statusBar()->showMessage(text, statusMilliseconds);
}

void MainWindow::restore(const QSettings &settings)
{
    restoreGeometry(settings.value(settingsKey("geometry")).toByteArray());
    m_parts->restoreState(settings.value(settingsKey("parts")).toByteArray(), layoutVersion);
}

void MainWindow::save(QSettings &settings) const
{
    settings.setValue(settingsKey("geometry"), saveGeometry());
    settings.setValue(settingsKey("parts"), m_parts->saveState(layoutVersion));
    settings.setValue(settingsKey("theme"), themeName(currentTheme()));
}

} // namespace Tavoro::Panel
