#include "directcalls.h"

#include "measuringclient.h"

#include <support/bench.h>

namespace Bench {

using namespace Tavoro;

DirectCalls::DirectCalls()
    : m_devices(QStringLiteral(FLEETDEVICES), 1),
      m_device(m_session.open(QStringLiteral("127.0.0.1"), m_devices.ports().front()))
{
    waitUntil([this] { return m_device->isReady(); }, QStringLiteral("the device"));
}

void DirectCalls::callWrite()
{
    bool hasEnded = false;
    m_device->callByName(QStringLiteral("Device.writeSwap"), {QStringLiteral(R"({"swap":1})")})
        .then(m_device, [&](const Answer<std::string> &answer) {
            require(answer.kind() == Outcome::Done, answer.text());
            hasEnded = true;
        });
    waitUntil([&] { return hasEnded; }, QStringLiteral("the device's answer"));
}

} // namespace Bench
