#include "keyfilter.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>

namespace Tavoro::Panel {

namespace {

bool isLetter(const QKeyEvent &event)
{
    return event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z;
}

bool isReturn(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool usesKey(QObject *widget, const QKeyEvent &event)
{
    if (event.modifiers() != Qt::NoModifier && event.modifiers() != Qt::KeypadModifier)
        return false;
    if (qobject_cast<QAbstractButton *>(widget))
        return event.key() == Qt::Key_Space;
    if (qobject_cast<QComboBox *>(widget))
        return event.key() == Qt::Key_Space || isLetter(event);
    if (qobject_cast<QLineEdit *>(widget) || qobject_cast<QAbstractSpinBox *>(widget))
        return isReturn(event);
    return qobject_cast<QAbstractItemView *>(widget) && isLetter(event);
}

} // namespace

bool KeyFilter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride
        && usesKey(watched, *static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace Tavoro::Panel
