#pragma once

#include <tavorobizmodel/device.h>
#include <tavorocontrol/proto/interface.h>
#include <tavorocontrol/proto/layer.h>
#include <tavorocontrol/proto/screen.h>

#include <QString>

#include <memory>
#include <vector>

/// Records of a small device, from which tests build models. The arguments of a function
/// distinguish a record from others of its kind.
namespace ModelRecords {

using Tavoro::ProtoModel::s_InterfaceID;
using Tavoro::ProtoModel::s_ScreenId;
using Tavoro::ProtoModel::s_TimingDetailBody;
using Tavoro::ProtoModel::Device::s_DeviceDetail;
using Tavoro::ProtoModel::File::s_FileDetail;
using Tavoro::ProtoModel::Interface::s_InterfaceDetail;
using Tavoro::ProtoModel::Layer::s_LayerFullDetail;
using Tavoro::ProtoModel::Screen::s_ScreenFullDetail;

inline s_TimingDetailBody timing(int width, int height)
{
    s_TimingDetailBody timing;
    timing.horizontal.addTime = width;
    timing.vertical.addTime = height;
    return timing;
}

inline s_InterfaceDetail interface(const s_InterfaceID &id, const std::string &name = "N/A")
{
    s_InterfaceDetail detail;
    detail.interfaceId = id;
    detail.general.name = name;
    return detail;
}

inline s_ScreenFullDetail screen(int type, quint8 id,
                                 const std::vector<s_InterfaceID> &outputs = {})
{
    s_ScreenFullDetail detail;
    detail.screenType = type;
    detail.screenId = id;
    for (const auto &output : outputs)
        detail.mosaic.outputs.emplace_back().interfaceId = output;
    return detail;
}

/// A layer that shows the interface with the packed number \a input; 0 stands for no source.
inline s_LayerFullDetail layer(int screenType, quint8 screenId, quint8 layerId, quint32 input = 0)
{
    s_LayerFullDetail detail;
    detail.layerIdenti.screenType = screenType;
    detail.layerIdenti.screenId = screenId;
    detail.layerIdenti.layerId = layerId;
    detail.layerIdenti.layerType = 1;
    detail.layerIdenti.sceneType = 4;
    if (input != 0)
        detail.source.general = {1, input};
    return detail;
}

inline s_FileDetail file(int type, int id, const std::string &binary = {})
{
    s_FileDetail detail;
    detail.fileType = type;
    detail.fileId = id;
    detail.binary = binary;
    return detail;
}

/// A device with the input 1/2/3, the output 2/0/0, screens of the types 1, 3 and 4, two layers,
/// and a file. The second layer shows the input.
inline std::shared_ptr<Tavoro::BizModel::Device> device(quint8 number = 1)
{
    auto made = std::make_shared<Tavoro::BizModel::Device>(number, nullptr);
    Tavoro::ProtoModel::DeviceBaseInfo info;
    info.sn[7] = number;
    info.mac[5] = number;
    made->updateDeviceBaseInfo(info);
    made->setIPAddress(QStringLiteral("192.0.2.%1").arg(number));
    QString error;
    s_DeviceDetail detail;
    detail.general.name = "box";
    detail.subcards.resize(2);
    detail.subcards[1].slotId = 2;
    made->initModelData(detail, error);
    made->initModelData(std::vector<s_InterfaceDetail>{interface({1, 2, 3}), interface({2, 0, 0})},
                        error);
    made->initModelData(std::vector<s_FileDetail>{file(2, 5, std::string("a\0b", 3))}, error);
    made->initModelData(
        std::vector<s_ScreenFullDetail>{screen(1, 0, {{2, 0, 0}}), screen(3, 0), screen(4, 1)},
        error);
    auto second = layer(1, 0, 1, 0x010203);
    second.source.crop.resize(1);
    second.source.crop[0].widthRatio = 50000;
    made->initModelData(std::vector<s_LayerFullDetail>{layer(1, 0, 0), second}, error);
    return made;
}

} // namespace ModelRecords
