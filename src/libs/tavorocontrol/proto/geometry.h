#pragma once

#include <tavorocontrol/proto/fields.h>

#include <QtGlobal>

namespace Tavoro::ProtoModel::Screen {

/// A position on a screen, or of a screen on the canvas.
struct s_Position {
    qint32 x = 0; ///< Pixels from the left.
    qint32 y = 0; ///< Pixels from the top.
    TAVORO_FIELDS(x, y)
};

/// A rectangle. The default is a full HD picture.
struct s_Rect {
    qint32 x = 0; ///< Pixels from the left, -65535 to 65535.
    qint32 y = 0; ///< Pixels from the top, -65535 to 65535.
    qint32 width = 1920; ///< Pixels, 1 to 65535.
    qint32 height = 1080; ///< Pixels, 1 to 65535.
    TAVORO_FIELDS(x, y, width, height)
};

} // namespace Tavoro::ProtoModel::Screen
