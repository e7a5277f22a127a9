// Steps that concern the device as a whole.

#include "connection.h"
#include "simulator.h"
#include "steps.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/file.h>
#include <tavorobizmodel/interface.h>
#include <tavorobizmodel/screen.h>
#include <tavorocontrol/auxiliary.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/proto/codec.h>

using namespace Tavoro;

bool readsIntoTheModel(Connection &connection)
{
    if (!connection.synchronise())
        return false;
    const auto device = connection.device();
    const auto screen = device->findScreen(BizModel::Enum::Screen::OrdinaryScreen, 1).lock();
    return device->isOnline() && device->isSyncDataSuccess() && !device->interfaces().isEmpty()
        && screen && !screen->layers().isEmpty() && !screen->outputs().isEmpty();
}

bool takesANewName(Connection &connection)
{
    const std::string name = "Main hall";
    QString error;
    return connection.device()->name() != QString::fromStdString(name)
        && Control::Device(connection.device()).writeDeviceGeneral({{name, 1}}, error)
        && connection.synchronise() && connection.device()->name() == QString::fromStdString(name);
}

/// A switch accepts 0 and 1.
bool refusesWhatIsOutOfRange(Connection &connection)
{
    const auto before = connection.device()->deviceDetail().zeLKEnable;
    ProtoModel::Device::s_DeviceZelk zelk;
    zelk.zeLKEnable = 7;
    QString error;
    return !Control::Device(connection.device()).writeZelk(zelk, error) && !error.isEmpty()
        && connection.synchronise() && connection.device()->deviceDetail().zeLKEnable == before;
}

bool sendsAFileAndFetchesIt(Connection &connection)
{
    std::string content(300000, '\0');
    for (std::size_t i = 0; i < content.size(); ++i)
        content[i] = static_cast<char>(i * 31 + i / 256);
    ProtoModel::File::s_FileInfo info;
    info.fileType = BizModel::Enum::File::Logo;
    info.fileId = 3;
    info.general.name = "wall";
    info.size.length = static_cast<qint32>(content.size());

    Control::File files(connection.device());
    QString error;
    if (!files.importFile({info}, error) || !files.importFileBinary(info, content, error))
        return false;
    std::string fetched;
    const bool isFetched = files.readBinary(
        info.fileType, info.fileId,
        [&](bool, double, const std::string &data, QString &) { fetched += data; });
    if (!isFetched || fetched != content || !connection.synchronise())
        return false;
    const auto file = connection.device()->findFile(BizModel::Enum::File::Logo, info.fileId).lock();
    return file && file->detail().binary == content;
}

bool followsAnUpgrade(Connection &connection)
{
    Control::Auxiliary device(connection.device());
    ProtoModel::Auxiliary::s_UpgradeDetail upgrade;
    upgrade.filePath = "/firmware/2.bin";
    ProtoModel::Auxiliary::s_UpgradePercent progress;
    QString error;
    return device.setUgradeConfig(upgrade, error) && waitUntil([&] {
               progress = {};
               return !device.readUpgradeProgress(progress, error) || progress.rate == 100;
           })
        && progress.rate == 100 && progress.result == 0;
}

bool readsTheNewVersion(Connection &connection)
{
    ProtoModel::Auxiliary::s_DeviceVersion version;
    QString error;
    return Control::Auxiliary(connection.device()).readDeviceVersion(version, error)
        && version.version == "1.0.1";
}

/// The device reports its groups to all its clients when one of them writes them.
bool followsReports(Connection &connection)
{
    const auto device = connection.device();
    ProtoModel::Device::s_DeviceGroupInfos groups;
    groups.groupInfos = {{"East", "7"}};
    bool isReported = false;
    const QObject context;
    QObject::connect(device.get(), &BizModel::Device::deviceDataChanged, &context,
                     [&](BizModel::Enum::Device::DataPart part) {
                         isReported |= part == BizModel::Enum::Device::Groups;
                     });
    QString error;
    return !device->findGroup("7") && Control::Device(device).writeDeviceGroupInfo(groups, error)
        && waitUntil([&] { return isReported; }) && device->findGroup("7")->groupName == "East";
}

bool followsWhatHappensThere(Connection &connection, Simulator &simulator)
{
    const auto device = connection.device();
    const auto powers = [&] {
        return device->deviceDetail().powers;
    };
    const auto input = [&] {
        return device->findInterface({1, 2, 0}).lock();
    };
    if (powers().empty() || powers().front().status != 1 || !input()
        || input()->detail().colorDepths.actualColorDepth == 10)
        return false;
    simulator.execute("power 1 0");
    simulator.execute("depth 1 2 10");
    return waitUntil([&] {
        return powers().front().status == 0 && input()->detail().colorDepths.actualColorDepth == 10;
    });
}

bool printsRecords(Connection &connection)
{
    std::string text;
    ajson::encodeRecord(connection.device()->deviceDetail().groupInfos, text);
    return text == R"([{"groupName":"East","groupId":"7"}])";
}
