#pragma once

#include <QIcon>
#include <QPalette>

namespace Tavoro::Panel {

/// The sign of an input: a screen with a picture, or a crossed-out one without a signal.
QIcon sourceIcon(bool hasSignal, const QPalette &palette);

} // namespace Tavoro::Panel
