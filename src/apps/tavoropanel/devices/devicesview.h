#pragma once

#include <QWidget>

QT_BEGIN_NAMESPACE
class QLabel;
class QListView;
QT_END_NAMESPACE

namespace Tavoro {
class Session;
} // namespace Tavoro

namespace Tavoro::Panel {

class Actions;
class Messages;
class Selection;
class SessionsModel;

/// The devices with their states; selects one, adds, finds and removes them.
class DevicesView : public QWidget {
    Q_OBJECT

public:
    DevicesView(Session &session, Selection &selection, Messages &messages, Actions &actions,
                QWidget *parent = nullptr);

private:
    void addList();
    void addButtons();
    void connectActions();
    void followSelection();
    void selectFirst();
    void askForDevice();
    void setFinding(bool isFinding);
    void removeDevice();
    void showHint();

    Session &m_session;
    Selection &m_selection;
    Messages &m_messages;
    Actions &m_actions;
    SessionsModel *const m_model;
    QListView *const m_list;
    QLabel *const m_hint; ///< Shown while there is no device.
};

} // namespace Tavoro::Panel
