#pragma once

#include <QColor>
#include <QPalette>

namespace Tavoro::Panel {

/// The colours of the canvas, for a light or a dark palette. Pictures are dark in both.
struct CanvasTheme {
    QColor canvas; ///< Around the screens.
    QColor title; ///< Names of screens.
    QColor detail; ///< Less important text.
    QColor preview; ///< Frame and label of the preview.
    QColor programme; ///< Frame and label of the programme.
    QColor label; ///< Text on these labels.
    QColor highlight; ///< What is selected.
    QColor highlightText;

    static CanvasTheme of(const QPalette &palette);
};

/// The colour of a layer that shows this source. Layers with the same source have the same one.
QColor pictureColor(qint32 sourceType, quint32 sourceId);

} // namespace Tavoro::Panel
