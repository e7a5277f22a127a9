#include "fleet.h"

#include <tavorobizmodel/devicelist.h>
#include <tavorossproxy/devicemanager.h>

#include <iterator>

using namespace Tavoro;

namespace {

Sim::SimOptions optionsOf(int number)
{
    Sim::SimOptions options;
    options.sn[6] = static_cast<quint8>(number >> 8);
    options.sn[7] = static_cast<quint8>(number);
    options.mac[4] = options.sn[6];
    options.mac[5] = options.sn[7];
    options.inputs = 4;
    options.outputs = 4;
    options.screens = 3;
    options.layersPerScreen = 2;
    return options;
}

constexpr const char *disturbances[] = {
    "power 1 0",    "power 1 1",     "genlock 0",
    "genlock 1",    "cable 1 1",     "timing 1 1 1920 1080 60",
    "depth 1 1 10", "depth 1 1 8",   "card 1 0",
    "card 1 1",     "group 3 stage",
};

} // namespace

Fleet::Fleet(int size) : m_isOff(static_cast<std::size_t>(size))
{
    for (int number = 1; number <= size; ++number) {
        m_devices.push_back(std::make_unique<SimulatedConnection>(optionsOf(number)));
        BizModel::DeviceList::instance()->append(m_devices.back()->model);
    }
}

Fleet::~Fleet()
{
    for (const auto &device : m_devices)
        BizModel::DeviceList::instance()->remove(device->model);
}

quint64 Fleet::reports() const
{
    quint64 count = 0;
    for (const auto &device : m_devices)
        count += device->channel->statistics().reports;
    return count;
}

bool Fleet::disturb(std::mt19937 &random)
{
    const char *const line = disturbances[random() % std::size(disturbances)];
    const auto &device = m_devices[random() % m_devices.size()];
    return device->simulator->execute(QString::fromLatin1(line)).ok;
}

void Fleet::switchOne(std::mt19937 &random)
{
    const std::size_t index = random() % m_devices.size();
    m_devices[index]->simulator->execute(m_isOff[index] ? QStringLiteral("switch 1")
                                                        : QStringLiteral("switch 0"));
    m_isOff[index] = !m_isOff[index];
}
