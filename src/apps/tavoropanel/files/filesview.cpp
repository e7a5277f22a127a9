#include "filesview.h"

namespace Tavoro::Panel {

FilesView::FilesView(Selection &, Messages &, Changes &, Actions &, QWidget *parent)
    : QWidget(parent)
{ }

} // namespace Tavoro::Panel
