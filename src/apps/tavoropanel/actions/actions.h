#pragma once

#include "actionid.h"
#include "actiontable.h"

#include <QObject>
#include <QString>

#include <map>

QT_BEGIN_NAMESPACE
class QAction;
QT_END_NAMESPACE

namespace Tavoro::Panel {

class Changes;
class Selection;

/// The actions of the program, made from the table. The parts of the window connect to those that
/// they carry out; menus and buttons show them.
class Actions : public QObject {
    Q_OBJECT

public:
    /// Actions whose enabled states follow the selection and the changes.
    Actions(Selection &selection, Changes &changes, QObject *parent = nullptr);

    QAction &action(ActionId id) const;

private:
    void updateEnabled();
    void nameStep(ActionId id, QString step);
    bool isMet(Needs needs) const;

    const Selection &m_selection;
    Changes &m_changes;
    std::map<ActionId, QAction *> m_actions; ///< Owned as children.
};

} // namespace Tavoro::Panel
