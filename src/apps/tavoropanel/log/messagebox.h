#pragma once

class QWidget;

namespace Tavoro::Panel {

class Messages;

/// From now on shows the message boxes that the library asks for, over \a window, and reports their
/// texts in the log. They do not block: the devices continue to be operated.
void showMessageBoxes(QWidget &window, Messages &messages);

} // namespace Tavoro::Panel
