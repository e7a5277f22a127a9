#pragma once

#include <tavorocontrol/proto/device.h>
#include <tavorocontrol/proto/interface.h>
#include <tavorocontrol/proto/layer.h>
#include <tavorocontrol/proto/screen.h>

#include <QString>

#include <memory>
#include <string>
#include <vector>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Ctl {

/// The answers of a device to the four reads of details, one after the other.
struct Snapshot {
    ProtoModel::Device::s_DeviceDetail device;
    std::vector<ProtoModel::Interface::s_InterfaceDetail> interfaces;
    std::vector<ProtoModel::Screen::s_ScreenFullDetail> screens;
    std::vector<ProtoModel::Layer::s_LayerFullDetail> layers;

    /// Reads all of them. False with the reason in \a error if one fails.
    bool read(const std::weak_ptr<BizModel::Device> &from, QString &error);

    /// One object with the keys "device", "interfaces", "screens" and "layers".
    std::string json() const;
    /// Tables for people.
    QString tables() const;
};

} // namespace Tavoro::Ctl
