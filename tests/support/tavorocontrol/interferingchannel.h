#pragma once

#include "wholedevicechannel.h"

#include <tavorobizmodel/device.h>

#include <functional>
#include <memory>
#include <utility>

/// A channel that calls a function of the test when a synchronisation starts to fill a device of
/// the model.
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
