#pragma once

#include <tavoropanel/messages/message.h>

#include <QWidget>

QT_BEGIN_NAMESPACE
class QTableView;
QT_END_NAMESPACE

namespace Tavoro::Panel {

class Actions;
class LogFilter;
class Messages;

/// The messages with their times; copies them as text.
class LogView : public QWidget {
    Q_OBJECT

public:
    LogView(Messages &messages, Actions &actions, QWidget *parent = nullptr);

    /// The selected messages as lines of text, or all that are shown if none is selected.
    QString text() const;

private:
    void addFilter();
    void addTable();
    void scroll();

    Messages &m_messages;
    Actions &m_actions;
    LogFilter *const m_filter;
    QTableView *const m_table;
};

} // namespace Tavoro::Panel
