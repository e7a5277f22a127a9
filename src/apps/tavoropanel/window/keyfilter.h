#pragma once

#include <QObject>

namespace Tavoro::Panel {

/// Leaves keys without modifiers to the widget that has the focus and uses them itself, although
/// they are shortcuts: the space bar to buttons and combo boxes, letters to lists, Return to lines
/// of text and spin boxes. Otherwise an operator who works with the keyboard would take, cut or
/// freeze by accident.
class KeyFilter : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override;
};

} // namespace Tavoro::Panel
