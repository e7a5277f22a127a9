#pragma once

#include "courier_p.h"
#include "deviceowners_p.h"
#include "readqueue_p.h"

#include <memory>

QT_BEGIN_NAMESPACE
class QThreadPool;
QT_END_NAMESPACE

namespace Tavoro::SessionInternal {

/// What the sessions of all devices share.
struct Shared {
    QThreadPool &pool;
    std::shared_ptr<Courier> courier;
    ReadQueue &readQueue;
    DeviceOwners &owners;
};

} // namespace Tavoro::SessionInternal
