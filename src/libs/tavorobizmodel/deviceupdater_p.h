#pragma once

#include "datafaults_p.h"
#include "devicecontents_p.h"
#include "updatesignals_p.h"

#include <tavorobizmodel/deviceupdate.h>

#include <memory>
#include <string>
#include <vector>

namespace Tavoro::BizModel {

class Device;
class DevicePrivate;

/// Applies records that were read to a device, for the functions of deviceupdate.h. Use one updater
/// for all parts that were read together, and then call finish().
class DeviceUpdater {
public:
    explicit DeviceUpdater(Device &device);

    /// Applies everything that was read.
    void update(const s_DeviceReading &reading);
    /// Applies the details. \a nameOfChannel replaces the name "N/A", unless it is empty.
    void update(ProtoModel::Device::s_DeviceDetail detail, const std::string &nameOfChannel);
    void update(const std::vector<ProtoModel::Interface::s_InterfaceDetail> &details,
                const s_InterfaceFilter &filter);
    void update(const std::vector<ProtoModel::Screen::s_ScreenFullDetail> &details,
                const s_ScreenFilter &filter);
    void update(const std::vector<ProtoModel::Layer::s_LayerFullDetail> &details,
                const s_LayerFilter &filter);
    void update(const std::vector<ProtoModel::File::s_FileDetail> &details,
                const s_FileFilter &filter, FileContents contents);
    /// Fits the crops of the layers to the pictures of the interfaces.
    void fitLayerCrops();
    /// Makes the first screen of each kind active if none is.
    void chooseActiveScreens();
    /// Returns false if the device does not have the file.
    bool updateContent(const ProtoModel::s_FileIdentity &file, const std::string &content);

    /// Emits the signals of all changes. Returns false if a record had a fault, with the first few
    /// faults in \a error.
    bool finish(QString &error);

private:
    void updateState(const s_DeviceReading &reading);
    void removeLayersWithoutScreen();
    template <class Object>
    void take(const std::vector<std::shared_ptr<Object>> &present, ObjectTable<Object> now,
              Enum::Device::DataPart part);

    Device &m_device;
    DevicePrivate &m_d;
    DataFaults m_faults;
    UpdateSignals m_signals;
};

} // namespace Tavoro::BizModel
