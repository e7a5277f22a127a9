#pragma once

#include "simstate.h"

#include <optional>
#include <string>

namespace Tavoro::Sim {

/// The picture of an input or a screen: red grows to the right, green downwards, and blue
/// distinguishes the sources.
struct Picture {
    qint32 width = 0; ///< 0 without a signal.
    qint32 height = 0;
    qint32 blue = 0;

    ProtoModel::s_RGB colorAt(qint32 x, qint32 y) const;
    /// Every \a step-th pixel of every \a step-th line, as a portable pixmap (P6).
    std::string toPixmap(qint32 step) const;
};

/// The picture of a source; nothing if there is no such input or screen.
std::optional<Picture> findPicture(const SimState &state, qint32 sourceType, quint32 id);

} // namespace Tavoro::Sim
