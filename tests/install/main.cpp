// Renames a device that exists only in the model, and reads a report: what links and runs here,
// links and runs in an application.

#include <tavorobizmodel/device.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/proto/codec.h>

#include <iostream>

using namespace Tavoro;

int main()
{
    const auto model = std::make_shared<BizModel::Device>(65535, nullptr);
    Control::Device device(model, nullptr);

    ProtoModel::Device::s_General general;
    general.general.name = "stage left";
    QString error;
    const bool written = device.writeDeviceGeneral(general, error);
    const bool reported =
        device.updatePowerConfig(R"({"powers":[{"powerId":2,"status":1}]})", error);

    std::string text;
    ajson::encodeRecord(model->deviceDetail().powers, text);
    const bool asExpected =
        written && reported && text == R"([{"powerId":2,"iSignal":0,"status":1}])";
    std::cout << (asExpected ? "The installed package works: " : "The installed package fails: ")
              << text << '\n';
    return asExpected ? 0 : 1;
}
