#pragma once

#include <QWidget>

namespace Tavoro::Panel {

class Actions;
class Changes;
class Messages;
class Selection;

/// The screens of the selected device in their layout, preview beside programme.
class CanvasView : public QWidget {
    Q_OBJECT

public:
    CanvasView(Selection &selection, Messages &messages, Changes &changes, Actions &actions,
               QWidget *parent = nullptr);
};

} // namespace Tavoro::Panel
