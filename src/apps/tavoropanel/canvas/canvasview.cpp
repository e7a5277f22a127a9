#include "canvasview.h"

namespace Tavoro::Panel {

CanvasView::CanvasView(Selection &, Messages &, Changes &, Actions &, QWidget *parent)
    : QWidget(parent)
{ }

} // namespace Tavoro::Panel
