#include "demodevice.h"

#include <array>

namespace Tavoro::Panel {

namespace {

using namespace std::chrono_literals;

constexpr auto motionInterval = 2500ms;

// Lines of the device's console. Inputs 1 to 4 are in slot 1, inputs 5 to 8 in slot 2.
constexpr std::array motion = {
    "timing 1 2 1280 720 50",  "timing 2 1 3840 2160 30", "depth 1 3 10", "cable 2 4",
    "timing 1 2 1920 1080 50", "timing 2 1 1920 1080 60", "depth 1 3 8",  "timing 2 4 1920 1080 60",
};

} // namespace

Sim::SimOptions DemoDevice::options()
{
    Sim::SimOptions options;
    options.name = QStringLiteral("Demo wall");
    options.screens = 2;
    return options;
}

DemoDevice::DemoDevice(QObject *parent) : QObject(parent), m_device(options())
{
    m_motion.setInterval(motionInterval);
    connect(&m_motion, &QTimer::timeout, this, &DemoDevice::moveInputs);
}

bool DemoDevice::start(QString &error)
{
    if (!m_device.start(error))
        return false;
    m_motion.start();
    return true;
}

void DemoDevice::setOn(bool isOn)
{
    if (isOn == m_isOn)
        return;
    m_device.execute(isOn ? QStringLiteral("switch 1") : QStringLiteral("switch 0"));
    m_isOn = isOn;
    Q_EMIT isOnChanged();
}

void DemoDevice::moveInputs()
{
    m_device.execute(QString::fromLatin1(motion[m_next]));
    m_next = (m_next + 1) % motion.size();
}

} // namespace Tavoro::Panel
