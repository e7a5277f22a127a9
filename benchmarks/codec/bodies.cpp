#include "bodies.h"

#include <string>

using namespace Tavoro::ProtoModel;

namespace Bodies {

namespace {

Device::s_subcardBody subcard(qint32 slot)
{
    Device::s_subcardBody card;
    card.slotId = slot;
    card.modelId = 4096 + slot % 5;
    card.boardId = 17;
    card.cardType = slot % 3;
    card.online = 1;
    for (qint32 id = 0; id < 4; ++id) {
        Device::s_ConnectorBody connector;
        connector.id = id;
        connector.type = 3 + id % 2;
        connector.copyId = 0xFFFFFFFF;
        connector.workMode = 1;
        connector.capacityMode = 2;
        card.connectors.push_back(connector);
    }
    return card;
}

Screen::s_MosaicOutput output(qint32 index)
{
    Screen::s_MosaicOutput output;
    output.interfaceId.slotId = 10 + index / 4;
    output.interfaceId.connectorId = index % 4;
    output.pos.x = 1920 * (index % 2);
    output.pos.y = 1080 * (index / 2);
    output.crop.x = output.pos.x;
    output.crop.y = output.pos.y;
    output.feather.resize(4);
    for (Screen::s_Feather &feather : output.feather)
        feather.width = 128;
    return output;
}

Screen::s_ScreenFullDetail screen(int index)
{
    Screen::s_ScreenFullDetail screen;
    screen.screenId = static_cast<quint8>(index);
    screen.screenType = index % 3;
    screen.general.name = index % 8 == 7 ? "B\xC3\xBChne " + std::to_string(index)
                                         : "Screen " + std::to_string(index);
    screen.general.nameGB2312 = screen.general.name;
    screen.general.index = index;
    screen.mosaic.type = 1;
    screen.mosaic.splice.row = 2;
    screen.mosaic.splice.column = 2;
    screen.mosaic.window.width = 3840;
    screen.mosaic.window.height = 2160;
    screen.mosaic.refOutputPara.timing.horizontal = {1920, 88, 44, 1, 2200};
    screen.mosaic.refOutputPara.timing.vertical = {1080, 4, 5, 1, 1125};
    for (qint32 i = 0; i < 4; ++i)
        screen.mosaic.outputs.push_back(output(i));
    screen.layout.x = 3840 * (index % 8);
    screen.layout.y = 2160 * (index / 8);
    screen.physicalSize.dotPitch = 2500;
    screen.selected = index == 0;
    screen.switchEffect.time = 10;
    return screen;
}

} // namespace

Device::s_DeviceDetail deviceDetail()
{
    Device::s_DeviceDetail detail;
    detail.general.name = "Main stage processor";
    detail.general.status = 1;
    detail.powers = {{0, 1, 1}, {1, 1, 1}};
    for (qint32 slot = 0; slot < 16; ++slot)
        detail.subcards.push_back(subcard(slot));
    for (int i = 0; i < 2; ++i) {
        Device::s_NetworkBody network;
        network.index = i;
        network.MAC = "00:1B:44:11:3A:B" + std::to_string(i);
        detail.networks.push_back(network);
    }
    for (int i = 0; i < 4; ++i) {
        Device::s_DeviceGroupInfoBody group;
        group.groupName = "Group " + std::to_string(i);
        group.groupId = "7b0e9c1e-52d5-4f0a-9a3c-1c2d3e4f506" + std::to_string(i);
        detail.groupInfos.push_back(group);
    }
    for (qint32 i = 0; i < 8; ++i)
        detail.interfaceRelation.relation.push_back({1, i, i + 32, i});
    return detail;
}

std::vector<Screen::s_ScreenFullDetail> screens()
{
    std::vector<Screen::s_ScreenFullDetail> screens;
    for (int i = 0; i < 32; ++i)
        screens.push_back(screen(i));
    return screens;
}

std::vector<File::s_FileDetail> files()
{
    std::vector<File::s_FileDetail> files(2000);
    quint32 hash = 1;
    for (std::size_t i = 0; i < files.size(); ++i) {
        File::s_FileDetail &file = files[i];
        hash = hash * 1664525 + 1013904223;
        file.fileId = static_cast<decltype(file.fileId)>(i);
        file.fileType = static_cast<decltype(file.fileType)>(i % 5);
        file.general.name = "Background " + std::to_string(i) + ".png";
        file.source.id = static_cast<quint32>(i * 7);
        file.size.length = static_cast<qint32>(hash >> 8);
        file.size.hashSum = static_cast<qint32>(hash);
        file.size.width = 1920;
        file.size.height = 1080;
    }
    return files;
}

std::vector<Screen::s_SwitchEffect> switchEffects()
{
    std::vector<Screen::s_SwitchEffect> effects(8);
    for (std::size_t i = 0; i < effects.size(); ++i) {
        effects[i].screenId = static_cast<quint8>(i);
        effects[i].switchEffect.time = 15;
        effects[i].switchEffect.type = 3;
    }
    return effects;
}

} // namespace Bodies
