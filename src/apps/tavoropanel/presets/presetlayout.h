#pragma once

#include <QColor>
#include <QRect>
#include <QString>

#include <optional>
#include <string>
#include <vector>

namespace Tavoro::Panel {

/// A layer of a preset.
struct PresetLayer {
    QRect window; ///< In pixels of its screen.
    bool isBackground = false;
};

/// A screen of a preset.
struct PresetScreen {
    QString name;
    QRect area; ///< On the canvas.
    QColor colour; ///< Of what no layer covers.
    std::vector<PresetLayer> layers; ///< Of the programme, from the bottom.
};

/// What a preset contains, as far as its picture needs it.
using PresetLayout = std::vector<PresetScreen>;

/// Reads the content of a preset: JSON with the records of its screens and layers. Returns nothing
/// if a device stores its presets in another form.
std::optional<PresetLayout> readPresetLayout(const std::string &content);

} // namespace Tavoro::Panel
