#pragma once

#include <tavorocontrol/proto/fields.h>

#include <QtGlobal>

namespace Tavoro::ProtoModel {

/// A colour.
struct s_RGB {
    qint32 R = 50; ///< Red, 0 to 255.
    qint32 G = 50; ///< Green, 0 to 255.
    qint32 B = 50; ///< Blue, 0 to 255.
    TAVORO_FIELDS(R, G, B)
};

} // namespace Tavoro::ProtoModel
