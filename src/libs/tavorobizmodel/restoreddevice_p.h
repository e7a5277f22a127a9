#pragma once

#include "deviceidentity_p.h"
#include "devicerows_p.h"

#include <tavorocontrol/proto/device.h>
#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/interface.h>
#include <tavorocontrol/proto/layer.h>
#include <tavorocontrol/proto/rgb.h>
#include <tavorocontrol/proto/screen.h>

#include <memory>
#include <vector>

namespace Tavoro::BizModel {

class Device;

/// Collects the rows of one stored device, then makes the device.
class RestoredDevice {
public:
    explicit RestoredDevice(const DeviceIdentity &identity);

    /// Returns false, and ignores the row, if it does not hold a record of its kind.
    bool take(const DeviceRow &row);
    /// Makes an offline device from the rows that were taken.
    std::shared_ptr<Device> make() const;

private:
    s_StoredIdentity m_identity; ///< Without an identity row, only the DeviceIdentity.
    bool m_hasIdentityRow = false;
    ProtoModel::Device::s_DeviceDetail m_detail;
    std::vector<ProtoModel::Interface::s_InterfaceDetail> m_interfaces;
    std::vector<ProtoModel::Screen::s_ScreenFullDetail> m_screens;
    std::vector<ProtoModel::Layer::s_LayerFullDetail> m_layers;
    std::vector<ProtoModel::File::s_FileDetail> m_files;
    std::vector<ProtoModel::Screen::s_ScreenGenlockBody> m_genlocks;
    ProtoModel::s_RGB m_cutout;
    std::vector<s_StoredLayout> m_layouts;
};

} // namespace Tavoro::BizModel
