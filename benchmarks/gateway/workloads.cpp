#include "workloads.h"

#include "directcalls.h"

#include <functional>

namespace Bench {

namespace {

using Clock = std::chrono::steady_clock;

double secondsBetween(Clock::time_point begin, Clock::time_point end)
{
    return std::chrono::duration<double>(end - begin).count();
}

Cost costOf(Site &site, const std::function<void()> &work)
{
    Cost cost;
    const BrokerTotals totals = site.client.totals();
    const auto begin = Clock::now();
    const ProcessUsage gateways = site.gateways->usage();
    const ProcessUsage broker = site.broker.usage();
    work();
    cost.gateways = site.gateways->usage().seconds - gateways.seconds;
    cost.broker = site.broker.usage().seconds - broker.seconds;
    cost.seconds = secondsBetween(begin, Clock::now());
    cost.totals = site.client.totals() - totals;
    cost.totalsSeconds = secondsBetween(begin, Clock::now());
    return cost;
}

} // namespace

Site::Site(int deviceCount)
    : devices(QStringLiteral(FLEETDEVICES), deviceCount), client(broker.port())
{ }

StateLoad start(Site &site, int gatewayCount)
{
    StateLoad load;
    const auto begin = Clock::now();
    site.gateways =
        std::make_unique<Gateways>(gatewayCount, site.broker.port(), site.devices.ports());
    const auto deviceCount = static_cast<int>(site.devices.ports().size());
    waitUntil([&] { return site.client.online().size() == deviceCount; },
              QStringLiteral("the devices"));
    load.seconds = secondsBetween(begin, site.client.waitForLastState());
    load.messages = static_cast<double>(site.client.stateMessages());
    load.bytes = static_cast<double>(site.client.stateBytes());
    return load;
}

Cost idle(Site &site, int milliseconds)
{
    return costOf(site, [&] { waitFor(milliseconds); });
}

void callInTurn(Site &site, DirectCalls &direct, int count, Samples &viaGateway, Samples &directly)
{
    const QString serial = site.client.online().first();
    const auto callViaGateway = [&] {
        bool hasEnded = false;
        site.client.callWrite(serial, [&] { hasEnded = true; });
        waitUntil([&] { return hasEnded; }, QStringLiteral("the gateway's answer"));
    };
    callViaGateway(); // the first call takes control
    direct.callWrite();
    for (int i = 0; i < count; ++i) {
        viaGateway.add(callViaGateway);
        directly.add([&] { direct.callWrite(); });
    }
}

CallLoad callAll(Site &site, int milliseconds)
{
    CallLoad load;
    bool isRunning = true;
    int waiting = 0;
    std::function<void(const QString &)> callAgain = [&](const QString &serial) {
        ++waiting;
        site.client.callWrite(serial, [&, serial, begin = Clock::now()] {
            --waiting;
            load.durations.addSince(begin);
            if (isRunning)
                callAgain(serial);
        });
    };
    load.cost = costOf(site, [&] {
        const auto begin = Clock::now();
        const QStringList serials = site.client.online();
        for (const QString &serial : serials)
            callAgain(serial);
        waitFor(milliseconds);
        isRunning = false;
        waitUntil([&] { return waiting == 0; }, QStringLiteral("the last answers"));
        load.seconds = secondsBetween(begin, Clock::now());
    });
    return load;
}

StateLoad report(Site &site, int rate, int milliseconds)
{
    StateLoad load;
    const qint64 messages = site.client.stateMessages(), bytes = site.client.stateBytes();
    load.cost = costOf(site, [&] {
        const auto begin = Clock::now();
        site.devices.startReports(rate);
        waitFor(milliseconds);
        load.sent = static_cast<double>(site.devices.stopReports());
        load.seconds = secondsBetween(begin, site.client.waitForLastState());
    });
    load.messages = static_cast<double>(site.client.stateMessages() - messages);
    load.bytes = static_cast<double>(site.client.stateBytes() - bytes);
    return load;
}

} // namespace Bench
