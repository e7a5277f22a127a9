// Whatever a device reports, the dispatcher and the model take it or leave it.
//
// Input: reports, one behind the other: the place of a code in the table, and a body behind its
// length.

#include "input.h"

#include <reported.h>

#include <tavorocontrol/autoreportmanager.h>
#include <tavorossproxy/commandcodes.h>

#include <QCoreApplication>

#include <iterator>

using Tavoro::SSProxy::Command;

namespace {

// clang-format off
constexpr Command codes[] = {
    Command::DeviceCardMode,
    Command::DevicePower,
    Command::DeviceGenlockStatus,
    Command::DeviceGroupInfo,
    Command::DeviceInterfaceRelation,
    Command::InterfaceGeneral,
    Command::InterfaceActualTiming,
    Command::InterfaceColorDepth,
    Command::InterfaceColorSpace,
    Command::InterfaceColorRange,
    Command::InterfaceHDR,
    Command::ScreenGenlock,
    Command::ScreenZelk,
    Command::FileTransferProgress,
    Command::AuxiliaryCutoutRGB,
    Command::AuxiliaryLoadProgress,
    Command::DeviceDetail, // nobody handles it
};
// clang-format on

struct Application {
    Application() { Tavoro::Control::AutoReportManager::instance(); }

    int argc = 1;
    char name[8] = "reports";
    char *argv[2] = {name, nullptr};
    QCoreApplication qt{argc, argv};
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static Application application;
    Reported reported;
    for (Input input(data, size); !input.isEmpty();) {
        const Command code = codes[input.byte() % std::size(codes)];
        reported.report(static_cast<quint16>(code), std::string(input.text()));
    }
    QCoreApplication::processEvents();
    return 0;
}
