#pragma once

#include "filestore.h"

namespace Tavoro::Sim {

/// The content of a file whose packets are being received.
struct Upload {
    IncomingContent content;
    quint32 totalCount = 1;
    quint32 next = 0; ///< Index of the expected packet.
    qint32 percent = -1; ///< The progress that was reported last.
};
/// The uploads of one connection; they end with it.
using Uploads = std::map<FileKey, Upload>;

} // namespace Tavoro::Sim
