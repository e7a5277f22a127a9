#pragma once

#include "liveoperations.h"

#include <QWidget>

QT_BEGIN_NAMESPACE
class QHBoxLayout;
QT_END_NAMESPACE

namespace Tavoro::Panel {

class Actions;
class LiveButton;
class ScreenButtons;
class StatusLine;
class TBar;

/// The large controls of the live operation: screens, take, cut, T-bar, freeze, fade to black, and
/// the line that reports what went wrong.
class LiveBar : public QWidget {
    Q_OBJECT

public:
    LiveBar(Selection &selection, Changes &changes, Actions &actions, QWidget *parent = nullptr);

private:
    void addControls(QHBoxLayout &row);
    void connectActions();
    void updateLit();
    void updateStatus();
    LiveStatus screensStatus() const;
    static QString controlledText(const DeviceSession &device);

    Selection &m_selection;
    Actions &m_actions;
    LiveOperations m_operations;
    StatusLine *const m_status;
    ScreenButtons *const m_screens;
    TBar *const m_tBar;
    LiveButton *m_freeze = nullptr;
    LiveButton *m_black = nullptr;
};

} // namespace Tavoro::Panel
