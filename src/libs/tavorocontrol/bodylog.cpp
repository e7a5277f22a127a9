#include <tavorocontrol/bodylog.h>

#include <tavorobizmodel/device.h>

#include <algorithm>
#include <mutex>
#include <vector>

namespace Tavoro::Control {

namespace {

/// The devices whose bodies are not logged.
struct QuietDevices {
    std::mutex mutex;
    std::vector<std::weak_ptr<BizModel::Device>> devices; // guarded by mutex
};

QuietDevices &quietDevices()
{
    static QuietDevices quiet;
    return quiet;
}

template <class One, class Other>
bool isSame(const std::weak_ptr<One> &one, const std::weak_ptr<Other> &other)
{
    return !one.owner_before(other) && !other.owner_before(one);
}

} // namespace

void setBodiesLogged(const std::shared_ptr<BizModel::Device> &device, bool areLogged)
{
    QuietDevices &quiet = quietDevices();
    const std::lock_guard<std::mutex> lock(quiet.mutex);
    const auto isOver = [&](const auto &each) {
        return each.expired() || isSame(each, std::weak_ptr<BizModel::Device>(device));
    };
    quiet.devices.erase(std::remove_if(quiet.devices.begin(), quiet.devices.end(), isOver),
                        quiet.devices.end());
    if (!areLogged)
        quiet.devices.push_back(device);
}

bool areBodiesLogged(const BizModel::Device &device)
{
    const auto isWanted = [wanted = device.weak_from_this()](const auto &each) {
        return isSame(each, wanted);
    };
    QuietDevices &quiet = quietDevices();
    const std::lock_guard<std::mutex> lock(quiet.mutex);
    return std::none_of(quiet.devices.begin(), quiet.devices.end(), isWanted);
}

} // namespace Tavoro::Control
