#pragma once

#include "wholedevicechannel.h"

#include <tavorobizmodel/device.h>

#include <functional>
#include <memory>
#include <utility>

/// A channel that does something of the test's choice when a synchronisation has begun to fill a
/// device of the model.
class InterferingChannel : public WholeDeviceChannel {
public:
    Tavoro::ProtoModel::DeviceBaseInfo deviceBaseInfo() const override
    {
        const auto device = watched.lock();
        if (device && device->signalsBlocked())
            std::exchange(interfere, [] {})();
        return WholeDeviceChannel::deviceBaseInfo();
    }

    std::weak_ptr<Tavoro::BizModel::Device> watched;
    mutable std::function<void()> interfere = [] {
    };
};
