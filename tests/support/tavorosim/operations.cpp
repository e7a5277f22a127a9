#include "operations.h"

#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/screen.h>

#include <QtTest>

using namespace Tavoro;

namespace {

const std::string longName(500, 'x'); // in a body of two packets
const ProtoModel::s_ScreenId firstScreen{1, 1};

bool readGroups(FaultBench &bench, QString &error)
{
    ProtoModel::Device::s_DeviceGroupInfos groups;
    return Control::Device(bench.device()).readDeviceGroupInfo(groups, error);
}

ProtoModel::Device::s_DeviceDetail detailOf(FaultBench &bench)
{
    ProtoModel::Device::s_DeviceDetail detail;
    QString error;
    if (!Control::Device(bench.device()).readDetails(detail, error))
        QTest::qFail(qPrintable(error), __FILE__, __LINE__);
    return detail;
}

bool readDetails(FaultBench &bench, QString &error)
{
    ProtoModel::Device::s_DeviceDetail detail;
    return Control::Device(bench.device()).readDetails(detail, error);
}

bool writeSwap(FaultBench &bench, QString &error)
{
    return Control::Device(bench.device()).writeSwap({0}, error);
}

bool isSwapWritten(FaultBench &bench)
{
    return detailOf(bench).swap == 0;
}

bool writeName(FaultBench &bench, const std::string &name, QString &error)
{
    ProtoModel::Screen::s_General general{firstScreen, {}};
    general.general.name = name;
    return Control::Screen(bench.device()).writeScreenGeneral({general}, error);
}

bool writeLongName(FaultBench &bench, QString &error)
{
    return writeName(bench, longName, error);
}

bool isLongNameWritten(FaultBench &bench)
{
    std::vector<ProtoModel::Screen::s_ScreenFullDetail> screens;
    QString error;
    return Control::Screen(bench.device()).readDetails(1, 0, -1, screens, error)
        && screens.at(0).general.name == longName;
}

bool readContent(FaultBench &bench, QString &error)
{
    const auto callback = [&](bool ok, double progress, const std::string &data, QString &reason) {
        bench.journal.add(QStringLiteral("callback %1: %2, %3 bytes")
                              .arg(int(ok))
                              .arg(progress, 0, 'f', 2)
                              .arg(data.size()));
        if (!ok)
            error = reason;
    };
    return Control::File(bench.device()).readBinary(2, 1, callback);
}

bool synchronise(FaultBench &bench, QString & /*error*/)
{
    return bench.readDevice();
}

} // namespace

// In a synchronisation, the read of the screens gets the fault.
// clang-format off
const Operation operations[operationCount] = {
    {"read", ",code=DeviceGroupInfo,count=1",
     "Get device group information failed: %1 .", "Get device group information failed: %1 .",
     "\"BC(11), FC(a).\" \"%1\" {tag}", "Failed to SendSyncRequest", "",
     "Get device group information successfully.", readGroups, nullptr},
    {"split read", ",code=DeviceDetail,skip=1,count=1",
     "Get device detail information failed: %1 .", "Get device detail information failed: %1 .",
     "\"BC(11), FC(0).\" \"%1\" {tag}", "", "1/3",
     "Get device detail information successfully.", readDetails, nullptr},
    {"write", ",code=DeviceSwap,count=1",
     "Set device swap status information failed: %1 .", "Set device swap status information failed: %1 .",
     "\"BC(11), FC(7).\" \"%1\" {tag}", "", "",
     "Set device swap status information successfully.", writeSwap, isSwapWritten},
    {"split write", ",code=ScreenGeneral,skip=1,count=1",
     "Set screen general information failed: %1 .", "%1",
     "\"BC(13), FC(2).\" \"%1\" {tag}", "", "2/2",
     "Set screen general information successfully.", writeLongName, isLongNameWritten},
    {"streamed read", ",code=FileExport,skip=1,count=1",
     "Get file export information failed: %1 .", "Get file export information failed: %1 .",
     "\"BC(fa), FC(4).\" \"%1\" {tag}", "", "1/3",
     "Get file export information successfully.", readContent, nullptr},
    {"synchronisation", ",code=ScreenDetail,count=1",
     "Get screen detail information failed: %1 .", "text from before",
     "\"BC(13), FC(0).\" \"%1\" {tag}", "Read screen details failed. \"%1\"", "",
     "Get screen detail information successfully.", synchronise, nullptr},
};
// clang-format on

void resetDevice(FaultBench &bench)
{
    Control::Device device(bench.device());
    QString error;
    QVERIFY2(device.writeSwap({1}, error), qPrintable(error));
    QVERIFY2(writeName(bench, "screen", error), qPrintable(error));
}
