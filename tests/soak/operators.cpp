#include "operators.h"

#include <tavorocontrol/device.h>
#include <tavorocontrol/layer.h>
#include <tavorocontrol/screen.h>

#include <iterator>

using namespace Tavoro;

namespace {

using Operation = bool (*)(const std::shared_ptr<BizModel::Device> &, QString &);

bool readDevice(const std::shared_ptr<BizModel::Device> &device, QString &error)
{
    ProtoModel::Device::s_DeviceDetail detail;
    return Control::Device(device).readDetails(detail, error);
}

bool readScreens(const std::shared_ptr<BizModel::Device> &device, QString &error)
{
    std::vector<ProtoModel::Screen::s_ScreenFullDetail> screens;
    return Control::Screen(device).readDetails(-1, 0, -1, screens, error);
}

bool rename(const std::shared_ptr<BizModel::Device> &device, QString &error)
{
    ProtoModel::Device::s_General general;
    general.general.name = "Main hall";
    return Control::Device(device).writeDeviceGeneral(general, error);
}

bool take(const std::shared_ptr<BizModel::Device> &device, QString &error)
{
    ProtoModel::Screen::s_SwitchEffect effect;
    effect.screenId = 1;
    effect.screenType = BizModel::Enum::Screen::OrdinaryScreen;
    return Control::Screen(device).writeTake({effect}, error);
}

bool takeOnNoScreen(const std::shared_ptr<BizModel::Device> &device, QString &error)
{
    ProtoModel::Screen::s_SwitchEffect effect;
    effect.screenId = 99;
    effect.screenType = BizModel::Enum::Screen::OrdinaryScreen;
    return Control::Screen(device).writeTake({effect}, error);
}

constexpr Operation operations[] = {readDevice, readScreens, rename, take, take, takeOnNoScreen};

} // namespace

Operators::Operators(const Fleet &fleet, int count, unsigned seed, Counts &counts)
    : m_counts(counts)
{
    for (int i = 0; i < count; ++i)
        m_threads.emplace_back([this, &fleet, threadSeed = seed + static_cast<unsigned>(i)] {
            operate(fleet, threadSeed);
        });
}

Operators::~Operators()
{
    m_isOver = true;
    for (auto &thread : m_threads)
        thread.join();
}

void Operators::operate(const Fleet &fleet, unsigned seed)
{
    std::mt19937 random(seed);
    while (!m_isOver) {
        QString error;
        const bool ok = operations[random() % std::size(operations)](fleet.model(random()), error);
        ++(ok ? m_counts.done : error.isEmpty() ? m_counts.silent : m_counts.failed);
    }
}
