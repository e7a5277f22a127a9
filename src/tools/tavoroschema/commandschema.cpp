// The bodies of the commands. The request of a read and the answer of a write have an empty body; a
// report is not answered.

#include "schema.h"

#include <tavorooperations/recordnames_p.h>

#include <tavorossproxy/commandcodes.h>

#include <string>

namespace Tavoro::Schema {

using namespace ProtoModel;
using Operations::Internal::nameOf;

namespace {

struct Type {
    const char *name;
    const char *before; ///< What precedes the schema of the one body that is not empty.
    const char *after; ///< What follows it.
};

constexpr Type read{"read", R"("request": "empty", "answer": )", ""};
constexpr Type binaryRead{"binary read", R"("request": "empty", "answer": )", ""};
constexpr Type write{"write", R"("request": )", R"(, "answer": "empty")"};
constexpr Type binaryWrite{"binary write", R"("request": )", R"(, "answer": "empty")"};
constexpr Type report{"report", R"("report": )", ""};

std::string empty()
{
    return R"("empty")";
}

std::string bytes()
{
    return R"("bytes")";
}

template <class Record>
std::string record()
{
    return R"({"$ref": "records.json#/$defs/)" + nameOf<Record>() + R"("})";
}

template <class Record>
std::string list()
{
    return R"({"type": "array", "items": )" + record<Record>() + "}";
}

struct Exchange {
    SSProxy::Command command;
    const char *name;
    const Type &type;
    std::string (*body)();
};

// clang-format off
#define COMMAND(name) SSProxy::Command::name, #name
constexpr Exchange exchanges[] = {
    // command                             type         body
    // Device.
    {COMMAND(DeviceDetail),                read,        record<Device::s_DeviceDetail>},
    {COMMAND(DeviceGeneral),               write,       record<Device::s_General>},
    {COMMAND(DeviceCardMode),              write,       record<Device::s_subcards>},
    {COMMAND(DeviceCardMode),              report,      record<Device::s_subcards>},
    {COMMAND(DevicePower),                 report,      record<Device::s_Powers>},
    {COMMAND(DeviceGenlockConfig),         write,       record<Device::s_Genlock>},
    {COMMAND(DeviceGenlockStatus),         report,      record<Device::s_GenlockSignal>},
    {COMMAND(DeviceNetConfig),             write,       record<Device::s_Networks>},
    {COMMAND(DeviceSwap),                  write,       record<Device::s_swap>},
    {COMMAND(DeviceOutputMapping),         read,        record<Device::s_InterfaceMapping>},
    {COMMAND(DeviceOutputMapping),         write,       record<Device::s_InterfaceMapping>},
    {COMMAND(DeviceDynamicRangConversion), write,       record<Device::s_DynamicRangConversion>},
    {COMMAND(DeviceGroupInfo),             read,        record<Device::s_DeviceGroupInfos>},
    {COMMAND(DeviceGroupInfo),             write,       record<Device::s_DeviceGroupInfos>},
    {COMMAND(DeviceGroupInfo),             report,      record<Device::s_DeviceGroupInfos>},
    {COMMAND(DeviceInterfaceRelation),     write,       record<Device::s_InterfaceRelation>},
    {COMMAND(DeviceInterfaceRelation),     report,      record<Device::s_InterfaceRelation>},
    {COMMAND(DeviceZelk),                  write,       record<Device::s_DeviceZelk>},
    {COMMAND(DeviceLoadToPGM),             write,       record<Device::s_PresetApplyType>},

    // Interfaces.
    {COMMAND(InterfaceDetail),             read,        list<Interface::s_InterfaceDetail>},
    {COMMAND(InterfaceGeneral),            write,       list<Interface::s_General>},
    {COMMAND(InterfaceGeneral),            report,      list<Interface::s_General>},
    {COMMAND(InterfaceTestPattern),        write,       list<Interface::s_TestPattern>},
    {COMMAND(InterfacePresetTiming),       write,       list<Interface::s_PresetTimingDetail>},
    {COMMAND(InterfaceActualTiming),       report,      list<Interface::s_ActualTimingDetail>},
    {COMMAND(InterfaceImageQuality),       write,       list<Interface::s_ImageQuality>},
    {COMMAND(InterfaceCrop),               write,       list<Interface::s_CropDetail>},
    {COMMAND(InterfaceCutoutGeneral),      write,       list<Interface::s_CutoutGeneral>},
    {COMMAND(InterfaceHDCP),               write,       list<Interface::s_HDCP>},
    {COMMAND(InterfaceColorDepth),         write,       list<Interface::s_ColorDepth>},
    {COMMAND(InterfaceColorDepth),         report,      list<Interface::s_ColorDepth>},
    {COMMAND(InterfaceColorSpace),         write,       list<Interface::s_ColorSpace>},
    {COMMAND(InterfaceColorSpace),         report,      list<Interface::s_ColorSpace>},
    {COMMAND(InterfaceColorRange),         write,       list<Interface::s_ColorRange>},
    {COMMAND(InterfaceColorRange),         report,      list<Interface::s_ColorRange>},
    {COMMAND(InterfaceFormatMapping),      write,       list<Interface::s_FormatMapping>},
    {COMMAND(InterfaceHDR),                write,       list<Interface::s_DHR>},
    {COMMAND(InterfaceHDR),                report,      list<Interface::s_DHR>},

    // Screens.
    {COMMAND(ScreenDetail),                read,        list<Screen::s_ScreenFullDetail>},
    {COMMAND(ScreenEnable),                write,       list<Screen::s_Enable>},
    {COMMAND(ScreenGeneral),               write,       list<Screen::s_General>},
    {COMMAND(ScreenBackgroundColor),       write,       list<Screen::s_BackgroundColor>},
    {COMMAND(ScreenLayout),                write,       list<Screen::s_Layout>},
    {COMMAND(ScreenPhysicalSize),          write,       list<Screen::s_PhysicalSize>},
    {COMMAND(ScreenPGMEdit),               write,       list<Screen::s_PGMEdit>},
    {COMMAND(ScreenSelected),              write,       list<Screen::s_Selected>},
    {COMMAND(ScreenImageQuality),          write,       list<Screen::s_ImageQuality>},
    {COMMAND(ScreenFreeze),                write,       list<Screen::s_Freeze>},
    {COMMAND(ScreenFTB),                   write,       list<Screen::s_FTB>},
    {COMMAND(ScreenTestPattern),           write,       list<Screen::s_TestPattern>},
    {COMMAND(ScreenSwitchEffect),          write,       list<Screen::s_SwitchEffect>},
    {COMMAND(ScreenTBar),                  write,       list<Screen::s_TBar>},
    {COMMAND(ScreenTake),                  write,       list<Screen::s_SwitchEffect>},
    {COMMAND(ScreenDeleted),               write,       list<s_ScreenId>},
    {COMMAND(ScreenHDR),                   write,       list<Screen::s_HDR>},
    {COMMAND(ScreenGenlock),               report,      list<Screen::s_ScreenGenlockBody>},
    {COMMAND(ScreenZelk),                  write,       list<Screen::s_ScreenZeLKFull>},
    {COMMAND(ScreenZelk),                  report,      list<Screen::s_ScreenZeLKFull>},

    // Layers.
    {COMMAND(LayerDetail),                 read,        list<Layer::s_LayerFullDetail>},
    {COMMAND(LayerDetail),                 write,       list<Layer::s_LayerFullDetail>},
    {COMMAND(LayerEnable),                 write,       list<Layer::s_LayerEnable>},
    {COMMAND(LayerZOrder),                 write,       list<Layer::s_LayerZorder>},
    {COMMAND(LayerGeneral),                write,       list<Layer::s_LayerGeneral>},
    {COMMAND(LayerSource),                 write,       list<Layer::s_LayerSource>},
    {COMMAND(LayerWindow),                 write,       list<Layer::s_LayerWindow>},
    {COMMAND(LayerMask),                   write,       list<Layer::s_LayerMask>},
    {COMMAND(LayerColor),                  write,       list<Layer::s_LayerColor>},
    {COMMAND(LayerOpacity),                write,       list<Layer::s_LayerOpacity>},
    {COMMAND(LayerImageQuality),           write,       list<Layer::s_LayerImageQuality>},
    {COMMAND(LayerShadow),                 write,       list<Layer::s_LayerShadow>},
    {COMMAND(LayerBorder),                 write,       list<Layer::s_LayerBorder>},
    {COMMAND(LayerSelected),               write,       list<Layer::s_LayerSelected>},
    {COMMAND(LayerUMD),                    write,       list<Layer::s_LayerUMD>},
    {COMMAND(LayerRemoved),                write,       list<Layer::s_LayerRemoved>},
    {COMMAND(LayerCutFill),                write,       list<Layer::s_CutFill>},

    // Presets and projects.
    {COMMAND(PresetApply),                 write,       list<Preset::s_PresetPlay>},
    {COMMAND(ProjectApply),                write,       list<ProjectFile::s_ProjectFileApply>},

    // Files.
    {COMMAND(FileDetail),                  read,        list<File::s_FileDetail>},
    {COMMAND(FileDelete),                  write,       list<File::s_DeleteFile>},
    {COMMAND(FileGeneral),                 write,       list<File::s_ModifyFileInfo>},
    {COMMAND(FileImport),                  write,       list<File::s_FileInfo>},
    {COMMAND(FileImport),                  binaryWrite, bytes},
    {COMMAND(FileExport),                  binaryRead,  bytes},
    {COMMAND(FileTransferProgress),        report,      list<File::s_FileTransPercent>},
    {COMMAND(FileCreateImage),             write,       list<File::s_CreateImageFile>},
    {COMMAND(FileCreatePreset),            write,       list<File::s_CreatePresetFile>},
    {COMMAND(FileCreateProject),           write,       list<File::s_CreateProjFile>},
    {COMMAND(FileCreateLog),               write,       list<File::s_CreateLogFile>},
    {COMMAND(FileCreateEdid),              write,       list<File::s_CreateFileInfo>},

    // Maintenance.
    {COMMAND(AuxiliaryRestartShutdown),    write,       record<Auxiliary::s_AuxiliaryOpt>},
    {COMMAND(AuxiliaryFactoryReset),       write,       record<Auxiliary::s_AuxiliaryOpt>},
    {COMMAND(AuxiliarySave),               write,       empty},
    {COMMAND(AuxiliarySourceLossCount),    write,       record<Auxiliary::s_AuxiliaryOpt>},
    {COMMAND(AuxiliarySourceLossResult),   read,        list<Auxiliary::s_SourceLossStat>},
    {COMMAND(AuxiliaryCutoutPosition),     write,       record<Auxiliary::s_CutoutPos>},
    {COMMAND(AuxiliaryCutoutRGB),          report,      record<s_RGB>},
    {COMMAND(AuxiliaryUpgradeDetail),      write,       record<Auxiliary::s_UpgradeDetail>},
    {COMMAND(AuxiliaryUpgradePercent),     read,        record<Auxiliary::s_UpgradePercent>},
    {COMMAND(AuxiliaryDeviceVersion),      read,        record<Auxiliary::s_DeviceVersion>},
    {COMMAND(AuxiliarySelfCheck),          read,        record<Auxiliary::s_DeviceSelfCheckDetail>},
    {COMMAND(AuxiliaryDeviceTime),         write,       record<Auxiliary::s_DeviceTime>},
    {COMMAND(AuxiliaryLoadProgress),       read,        record<Auxiliary::s_DeviceProcess>},
    {COMMAND(AuxiliaryLoadProgress),       report,      record<Auxiliary::s_DeviceProcess>},
};
#undef COMMAND
// clang-format on

constexpr char head[] =
    "{\n"
    "  \"description\": \"The bodies of all commands. 'request', 'answer' and 'report' are JSON "
    "Schemas, or 'empty', or 'bytes' for the content of a file. A list may be empty: the write of "
    "0x140E with an empty list removes all layers of the screen that the head names.\",\n"
    "  \"identity\": {\"$ref\": \"records.json#/$defs/s_DeviceIdentity\"},\n"
    "  \"commands\": [\n";

std::string hexCode(SSProxy::Command command)
{
    constexpr char digits[] = "0123456789ABCDEF";
    std::string text = "0x";
    for (int shift = 12; shift >= 0; shift -= 4)
        text += digits[static_cast<quint16>(command) >> shift & 0xF];
    return text;
}

std::string line(const Exchange &exchange)
{
    return R"(    {"code": ")" + hexCode(exchange.command) + R"(", "name": ")" + exchange.name
        + R"(", "type": ")" + exchange.type.name + "\", " + exchange.type.before + exchange.body()
        + exchange.type.after + '}';
}

} // namespace

std::string commandsDocument()
{
    std::string text = head;
    const char *separator = "";
    for (const Exchange &exchange : exchanges) {
        text += separator + line(exchange);
        separator = ",\n";
    }
    return text + "\n  ]\n}\n";
}

} // namespace Tavoro::Schema
