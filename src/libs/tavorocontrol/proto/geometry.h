#pragma once

#include <tavorocontrol/proto/fields.h>

#include <QtGlobal>

namespace Tavoro::ProtoModel::Screen {

/// A place on a screen, or of a screen on the canvas.
struct s_Position {
    qint32 x = 0;
    qint32 y = 0;
    TAVORO_FIELDS(x, y)
};

/// A rectangle; until told otherwise that of a full HD picture.
struct s_Rect {
    qint32 x = 0;
    qint32 y = 0;
    qint32 width = 1920;
    qint32 height = 1080;
    TAVORO_FIELDS(x, y, width, height)
};

} // namespace Tavoro::ProtoModel::Screen
