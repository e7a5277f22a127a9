// For any answers of a device, each operation of the library returns true, or false with a reason.
//
// Input: operations by their index in the table, each followed by the packets of the answer.

#include "demand.h"
#include "input.h"

#include <support/tavorocontrol/synchronised.h>

#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/screen.h>

#include <QLoggingCategory>

#include <iterator>
#include <string>
#include <vector>

using namespace Tavoro;

namespace {

constexpr int maxPackets = 64;
constexpr int maxOperations = 8;

struct Operation {
    bool (*run)(const std::shared_ptr<BizModel::Device> &device, QString &error);
    bool succeedsInSilence; ///< False for a synchronisation: it succeeds although parts failed.
};

bool readDevice(const std::shared_ptr<BizModel::Device> &device, QString &error)
{
    return Control::Device(device).readDeviceDetails(error);
}

bool readScreens(const std::shared_ptr<BizModel::Device> &device, QString &error)
{
    std::vector<ProtoModel::Screen::s_ScreenFullDetail> screens;
    return Control::Screen(device).readDetails(-1, 0, -1, screens, error);
}

bool readFile(const std::shared_ptr<BizModel::Device> &device, QString &error)
{
    std::string content;
    return Control::File(device).readBinary(1, 2, content, error);
}

bool streamFile(const std::shared_ptr<BizModel::Device> &device, QString &error)
{
    return Control::File(device).readBinary(
        1, 2, [&error](bool ok, double, const std::string &, QString &reason) {
            if (!ok)
                error = reason;
        });
}

bool writeLongName(const std::shared_ptr<BizModel::Device> &device, QString &error)
{
    ProtoModel::Device::s_General general;
    general.general.name.assign(4000, 'n');
    return Control::Device(device).writeDeviceGeneral(general, error);
}

bool writeContent(const std::shared_ptr<BizModel::Device> &device, QString &error)
{
    return Control::File(device).importFileBinary({}, std::string(3000, 'c'), error);
}

bool synchronise(const std::shared_ptr<BizModel::Device> & /*device*/, QString &error)
{
    SyncTask task;
    task.setDevice(Synchronised::ip(), Synchronised::mac(), Synchronised::sn());
    task.run();
    error = task.errorMsg();
    return task.isSyncSucess();
}

constexpr Operation operations[] = {
    {readDevice, true},    {readScreens, true},  {readFile, true},     {streamFile, true},
    {writeLongName, true}, {writeContent, true}, {synchronise, false},
};

ScriptedAnswer nextAnswer(Input &input)
{
    ScriptedAnswer answer;
    const std::uint8_t flags = input.byte();
    answer.null = (flags & 1) != 0;
    answer.status = (flags & 2) != 0 ? input.number() : quint16(0);
    answer.type = (flags & 4) != 0 ? input.byte() : quint8(0);
    answer.totalCount = (flags & 8) != 0 ? input.byte() : 1u;
    answer.sendCount = (flags & 16) != 0 ? input.byte() : 0u;
    answer.body = std::string(input.text());
    return answer;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    QLoggingCategory::setFilterRules(QStringLiteral("*=false"));
    Synchronised it;
    it.makeKnown();
    Input input(data, size);
    for (int i = 0; i < maxOperations && !input.isEmpty(); ++i) {
        const Operation &operation = operations[input.byte() % std::size(operations)];
        for (int packets = input.byte() % maxPackets; packets > 0 && !input.isEmpty(); --packets)
            it.device.channel->answer(nextAnswer(input));
        QString error;
        const bool ok = operation.run(it.device.model, error);
        demand(!ok || error.isEmpty() || !operation.succeedsInSilence, "a success gives no reason");
        demand(ok || !error.isEmpty(), "a failure gives its reason");
    }
    return 0;
}
