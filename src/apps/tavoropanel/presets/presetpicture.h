#pragma once

#include "presetlayout.h"

#include <QPalette>
#include <QPixmap>
#include <QSize>

namespace Tavoro::Panel {

/// Draws a small picture of a preset: its screens with their layers in place, numbered from the
/// bottom. Without a layout the picture says so by a question mark.
QPixmap presetPicture(const std::optional<PresetLayout> &layout, const QSize &size, qreal ratio,
                      const QPalette &palette);

} // namespace Tavoro::Panel
