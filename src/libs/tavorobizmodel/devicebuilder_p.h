#pragma once

#include "datafaults_p.h"

#include <tavorocontrol/proto/device.h>
#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/interface.h>
#include <tavorocontrol/proto/layer.h>
#include <tavorocontrol/proto/screen.h>

#include <vector>

namespace Tavoro::BizModel {

class Device;
class DevicePrivate;

/// Builds a device from the records that were read, for Device::initModelData(). Use one builder
/// for each kind of record. Records without a fault are stored; report() returns the faults of the
/// others.
class DeviceBuilder {
public:
    explicit DeviceBuilder(Device &device);

    void build(const ProtoModel::Device::s_DeviceDetail &detail);
    void build(const std::vector<ProtoModel::Interface::s_InterfaceDetail> &details);
    void build(const std::vector<ProtoModel::File::s_FileDetail> &details);
    void build(const std::vector<ProtoModel::Screen::s_ScreenFullDetail> &details);
    void build(const std::vector<ProtoModel::Layer::s_LayerFullDetail> &details);

    /// Returns true if there was no fault. Otherwise returns false, with the first few faults in
    /// \a error.
    bool report(QString &error) const { return m_faults.report(error); }

private:
    Device &m_device;
    DevicePrivate &m_d;
    DataFaults m_faults;
};

} // namespace Tavoro::BizModel
