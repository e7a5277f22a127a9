// Calls that must not compile, one for each MISTAKE.

#include <tavorocontrol/device.h>
#include <tavorocontrol/screen.h>
#include <tavorosession/session.h>

#include <QString>

using namespace Tavoro;

namespace {

// clang-format off
enum Mistake { nothing, wrongType, tooFew, tooMany, notAnOperation, otherResult, noControlClass };
// clang-format on

struct OwnClass {
    bool operate(QString &) { return true; }
    void convert(int) { }
};

/// The type of the session is a parameter, so that only the selected call is compiled.
template <Mistake mistake, class Session>
void makeCall(Session &wall)
{
    const ProtoModel::Device::s_swap swap;
    if constexpr (mistake == nothing)
        wall.call(&Control::Device::writeSwap, swap);
    else if constexpr (mistake == wrongType)
        wall.call(&Control::Screen::writeTake, swap);
    else if constexpr (mistake == tooFew)
        wall.call(&Control::Screen::writeTake);
    else if constexpr (mistake == tooMany)
        wall.call(&Control::Device::writeSwap, swap, swap);
    else if constexpr (mistake == notAnOperation)
        wall.call(&Control::Device::refreshDeviceChannel);
    else if constexpr (mistake == otherResult)
        wall.call(&OwnClass::convert, 1);
    else if constexpr (mistake == noControlClass)
        wall.call(&OwnClass::operate);
}

} // namespace

void useCall(DeviceSession &wall)
{
    makeCall<MISTAKE>(wall);
}
