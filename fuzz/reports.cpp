// The dispatcher and the model apply any report or ignore it: an invalid report changes nothing,
// a repeated report changes nothing more, and no report adds, removes or renames an object.
//
// Input: a sequence of reports. Each is the index of a code in the table, a length and a body.

#include "demand.h"
#include "input.h"

#include <support/tavorocontrol/reported.h>

#include <tavorocontrol/autoreportmanager.h>
#include <tavorossproxy/commandcodes.h>

#include <QCoreApplication>

#include <iterator>
#include <string>
#include <utility>
#include <vector>

using namespace Tavoro;
using namespace Tavoro::ProtoModel;
using SSProxy::Command;

namespace {

template <class Record>
bool isReadable(const std::string &body)
{
    Record record;
    std::string error;
    return ajson::decodeRecord(body, record, error);
}

bool isNeverTaken(const std::string & /*body*/)
{
    return false;
}

struct ReportRow {
    Command code;
    bool (*isReadable)(const std::string &body);
};

// clang-format off
constexpr ReportRow reports[] = {
    {Command::DeviceCardMode,          isReadable<ProtoModel::Device::s_subcards>},
    {Command::DevicePower,             isReadable<ProtoModel::Device::s_Powers>},
    {Command::DeviceGenlockStatus,     isReadable<ProtoModel::Device::s_GenlockSignal>},
    {Command::DeviceGroupInfo,         isReadable<ProtoModel::Device::s_DeviceGroupInfos>},
    {Command::DeviceInterfaceRelation, isReadable<ProtoModel::Device::s_InterfaceRelation>},
    {Command::InterfaceGeneral,        isReadable<std::vector<Interface::s_General>>},
    {Command::InterfaceActualTiming,   isReadable<std::vector<Interface::s_ActualTimingDetail>>},
    {Command::InterfaceColorDepth,     isReadable<std::vector<Interface::s_ColorDepth>>},
    {Command::InterfaceColorSpace,     isReadable<std::vector<Interface::s_ColorSpace>>},
    {Command::InterfaceColorRange,     isReadable<std::vector<Interface::s_ColorRange>>},
    {Command::InterfaceHDR,            isReadable<std::vector<Interface::s_DHR>>},
    {Command::ScreenGenlock,           isReadable<std::vector<Screen::s_ScreenGenlockBody>>},
    {Command::ScreenZelk,              isReadable<std::vector<Screen::s_ScreenZeLKFull>>},
    {Command::FileTransferProgress,    isReadable<std::vector<File::s_FileTransPercent>>},
    {Command::AuxiliaryCutoutRGB,      isReadable<s_RGB>},
    {Command::AuxiliaryLoadProgress,   isReadable<Auxiliary::s_DeviceProcess>},
    {Command::DeviceDetail,            isNeverTaken},
};
// clang-format on

struct Application {
    Application() { Control::AutoReportManager::instance(); }

    int argc = 1;
    char name[8] = "reports";
    char *argv[2] = {name, nullptr};
    QCoreApplication qt{argc, argv};
};

/// Everything that reports may change.
std::string stateOf(const Reported &reported)
{
    const BizModel::Device &device = *reported.device.model;
    return json(device.deviceDetail()) + json(device.deviceProcess()) + json(device.cutoutRGB())
        + json(device.screenGenlocks()) + json(reported.interface()) + json(reported.screen())
        + json(reported.file()->detail()) + json(reported.file()->transferProgress());
}

/// Demands that the device still has the same objects under the same identities.
void demandObjects(const Reported &reported)
{
    const BizModel::Device &device = *reported.device.model;
    demand(device.interfaces().size() == 1 && device.screens(0x7FFFFFFF).size() == 1
               && device.files().size() == 1 && device.layers().isEmpty(),
           "no report adds or removes an object");
    const auto interface = device.findInterface(Reported::interfaceId).lock();
    const auto screen = device.findScreen(2, 1).lock();
    demand(interface && interface == device.interfaces().first().lock(), "the interface is found");
    demand(screen && screen == device.screens(0x7FFFFFFF).first().lock(), "the screen is found");
    demand(reported.file() && reported.file() == device.files().first().lock(),
           "the file is found");
    demand(json(interface->detail().interfaceId) == json(Reported::interfaceId)
               && screen->detail().screenId == 1 && screen->detail().screenType == 2
               && reported.file()->detail().fileId == 4 && reported.file()->detail().fileType == 6,
           "an object keeps its identity");
}

/// Demands that a search by identity finds each element: no identity exists twice.
void demandElements(const BizModel::Device &device)
{
    const auto detail = device.deviceDetail();
    for (const auto &power : detail.powers)
        demand(json(*device.findPower(power.powerId)) == json(power), "a power supply exists once");
    for (const auto &card : detail.subcards)
        demand(json(*device.findSubcard(card.slotId)) == json(card), "a card exists once");
    for (const auto &group : detail.groupInfos)
        demand(json(*device.findGroup(group.groupId)) == json(group), "a group exists once");
}

/// Checks \a state after the report; on return it is the new state.
void report(Reported &reported, const ReportRow &row, const std::string &body, std::string &state)
{
    const auto code = static_cast<quint16>(row.code);
    const std::string before = std::move(state);
    reported.report(code, body);
    state = stateOf(reported);
    if (!row.isReadable(body))
        return demand(state == before, "a report that is refused changes nothing");
    reported.report(code, body);
    demand(stateOf(reported) == state, "the same report again changes nothing");
    demandObjects(reported);
    demandElements(*reported.device.model);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static Application application;
    Reported reported;
    std::string state = stateOf(reported);
    for (Input input(data, size); !input.isEmpty();) {
        const ReportRow &row = reports[input.byte() % std::size(reports)];
        report(reported, row, std::string(input.text()), state);
    }
    QCoreApplication::processEvents();
    return 0;
}
