#include "presetsview.h"

namespace Tavoro::Panel {

PresetsView::PresetsView(Selection &, Messages &, Changes &, Actions &, QWidget *parent)
    : QWidget(parent)
{ }

} // namespace Tavoro::Panel
