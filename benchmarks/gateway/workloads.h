#pragma once

#include "measuringclient.h"
#include "site.h"

#include <support/fleetdevices.h>
#include <support/samples.h>

namespace Bench {

class DirectCalls;

/// Devices, broker, and the client that measures; later the gateways.
struct Site {
    explicit Site(int deviceCount);

    FleetDevices devices;
    const Broker broker;
    MeasuringClient client;
    std::unique_ptr<Gateways> gateways;
};

/// What work has cost.
struct Cost {
    double seconds = 0;
    double gateways = 0, broker = 0; ///< Seconds of processor time.
    double totalsSeconds = 0; ///< Time to which the totals belong.
    BrokerTotals totals;
};

struct StateLoad {
    double seconds = 0; ///< Until the last message.
    double sent = 0; ///< Reports of the devices.
    double messages = 0, bytes = 0;
    Cost cost;
};

struct CallLoad {
    Samples durations;
    double seconds = 0;
    Cost cost;
};

/// Starts gateways, until all state of their devices is on the broker.
StateLoad start(Site &site, int gatewayCount);
Cost idle(Site &site, int milliseconds);
/// Calls through a gateway and direct ones in turn, one at a time.
void callInTurn(Site &site, DirectCalls &direct, int count, Samples &viaGateway, Samples &directly);
/// Each device always has a call under way.
CallLoad callAll(Site &site, int milliseconds);
/// Each device sends reports that change its state.
StateLoad report(Site &site, int rate, int milliseconds);

} // namespace Bench
