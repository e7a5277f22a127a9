#pragma once

#include "deviceownership.h"

namespace Tavoro::Gate {

/// The ownership of a gateway that shares its devices with no other one.
class AlwaysActive : public DeviceOwnership {
    Q_OBJECT

public:
    bool isActive() const override { return true; }
    void claim(const CallRequest &call, std::function<void(Claim)> decided) override;
    void release(const CallRequest &call, const CallAnswer &answer) override;
};

} // namespace Tavoro::Gate
