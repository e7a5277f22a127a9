#pragma once

#include "filestore.h"

namespace Tavoro::Sim {

/// The content of a file whose packets are coming in.
struct Upload {
    IncomingContent content;
    quint32 totalCount = 1;
    quint32 next = 0; ///< Index of the packet that is due.
    qint32 percent = -1; ///< The progress that was told last.
};
/// Those of one connection; they end with it.
using Uploads = std::map<FileKey, Upload>;

} // namespace Tavoro::Sim
