#pragma once

#include <QColor>

namespace Tavoro::Panel {

/// Colours with a meaning. They are the same in the dark and in the light theme, and legible with
/// their text colours in both. A word or a symbol always accompanies them.
namespace Colours {

constexpr QColor programme{198, 40, 40}; ///< On air, and what changes it.
constexpr QColor preview{46, 125, 50}; ///< What the operator prepares.
constexpr QColor frozen{21, 101, 192}; ///< A frozen picture.
constexpr QColor black{10, 10, 10}; ///< A screen that is faded to black.
constexpr QColor warning{249, 168, 37}; ///< Waits for something, or is not certain.
constexpr QColor onColour{255, 255, 255}; ///< Text on the colours above, except warning.
constexpr QColor onWarning{26, 20, 0}; ///< Text on the colour of warnings.

} // namespace Colours

} // namespace Tavoro::Panel
