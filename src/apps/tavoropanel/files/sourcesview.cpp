#include "sourcesview.h"

namespace Tavoro::Panel {

SourcesView::SourcesView(Selection &, Messages &, Changes &, Actions &, QWidget *parent)
    : QWidget(parent)
{ }

} // namespace Tavoro::Panel
