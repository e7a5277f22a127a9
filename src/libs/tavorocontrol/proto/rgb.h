#pragma once

#include <tavorocontrol/proto/fields.h>

#include <QtGlobal>

namespace Tavoro::ProtoModel {

/// A colour, each channel in the device's own scale.
struct s_RGB {
    qint32 R = 50;
    qint32 G = 50;
    qint32 B = 50;
    TAVORO_FIELDS(R, G, B)
};

} // namespace Tavoro::ProtoModel
