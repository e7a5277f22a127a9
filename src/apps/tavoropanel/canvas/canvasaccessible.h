#pragma once

namespace Tavoro::Panel {

class LayerItem;

/// Makes the canvas and its layers known to screen readers: the canvas is a list of the layers of
/// all screens, and each layer has its description as its name. Call it before the first canvas is
/// created; further calls have no effect.
void installCanvasAccessibility();
/// Lets a screen reader read a layer that was selected with the keyboard.
void announceLayer(LayerItem &layer);

} // namespace Tavoro::Panel
