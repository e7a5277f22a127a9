#include "detailsview.h"

namespace Tavoro::Panel {

DetailsView::DetailsView(Selection &, Messages &, Changes &, Actions &, QWidget *parent)
    : QWidget(parent)
{ }

} // namespace Tavoro::Panel
