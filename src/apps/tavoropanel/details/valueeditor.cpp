#include "valueeditor.h"

#include <QEvent>
#include <QHBoxLayout>

namespace Tavoro::Panel {

void ValueEditor::setControl(QWidget *control)
{
    m_control = control;
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(control);
    QSizePolicy policy = control->sizePolicy();
    policy.setHorizontalPolicy(QSizePolicy::Expanding);
    control->setSizePolicy(policy);
    setFocusProxy(control);
    if (control->focusPolicy() == Qt::WheelFocus)
        control->setFocusPolicy(Qt::StrongFocus);
    control->installEventFilter(this);
}

bool ValueEditor::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Wheel && !m_control->hasFocus()) {
        event->ignore();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace Tavoro::Panel
