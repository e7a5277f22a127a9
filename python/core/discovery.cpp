#include "discovery.h"

#include "runtime.h"

#include <tavorocontrol/proto/deviceidentity.h>
#include <tavorossproxy/devicediscovery.h>

#include <QString>

#include <algorithm>
#include <map>

namespace Tavoro::Python {

namespace {

/// The search is made in slices, so that the end of the program does not wait for all of it.
constexpr int sliceTime = 250; // Milliseconds; also the time between two requests.

using Targets = std::vector<SSProxy::DiscoveryTarget>;

Result search(int milliseconds, const Targets &targets)
{
    std::map<std::string, std::string> found; // JSON by identity
    QString error;
    for (int left = milliseconds; left > 0 && !Runtime::instance().isStopping();
         left -= sliceTime) {
        for (const auto &device :
             SSProxy::findDevices(std::min(left, sliceTime), 0, targets, error))
            found.emplace(ProtoModel::identityKey(device), ProtoModel::encodeIdentity(device));
        if (!error.isEmpty())
            return notSent(error.toStdString(), error.toStdString());
    }
    std::string list;
    for (const auto &[key, identity] : found)
        list += (list.empty() ? "" : ",") + identity;
    return success('[' + list + ']');
}

} // namespace

std::shared_ptr<Pending> discover(int milliseconds,
                                  const std::vector<std::pair<std::string, std::uint16_t>> &targets)
{
    Targets places;
    for (const auto &[address, port] : targets)
        places.push_back({QString::fromStdString(address), port});
    Runtime &runtime = Runtime::instance();
    auto pending = runtime.makePending();
    runtime.post([&runtime, pending, milliseconds, places] {
        runtime.workers().start([=] { pending->finish(search(milliseconds, places)); });
    });
    return pending;
}

} // namespace Tavoro::Python
