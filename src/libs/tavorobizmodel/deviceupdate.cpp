#include <tavorobizmodel/deviceupdate.h>

#include "deviceupdater_p.h"

#include <tavorobizmodel/device.h>

namespace Tavoro::BizModel {

bool updateDevice(Device &device, const s_DeviceReading &reading, QString &error)
{
    DeviceUpdater updater(device);
    updater.update(reading);
    return updater.finish(error);
}

bool updateDeviceDetail(Device &device, const ProtoModel::Device::s_DeviceDetail &detail,
                        QString &error)
{
    DeviceUpdater updater(device);
    updater.update(detail, device.deviceBaseInfo().name);
    return updater.finish(error);
}

bool updateInterfaces(Device &device,
                      const std::vector<ProtoModel::Interface::s_InterfaceDetail> &details,
                      const s_InterfaceFilter &filter, QString &error)
{
    DeviceUpdater updater(device);
    updater.update(details, filter);
    updater.fitLayerCrops();
    return updater.finish(error);
}

bool updateScreens(Device &device,
                   const std::vector<ProtoModel::Screen::s_ScreenFullDetail> &details,
                   const s_ScreenFilter &filter, QString &error)
{
    DeviceUpdater updater(device);
    updater.update(details, filter);
    return updater.finish(error);
}

bool updateLayers(Device &device, const std::vector<ProtoModel::Layer::s_LayerFullDetail> &details,
                  const s_LayerFilter &filter, QString &error)
{
    DeviceUpdater updater(device);
    updater.update(details, filter);
    return updater.finish(error);
}

bool updateFiles(Device &device, const std::vector<ProtoModel::File::s_FileDetail> &details,
                 const s_FileFilter &filter, FileContents contents, QString &error)
{
    DeviceUpdater updater(device);
    updater.update(details, filter, contents);
    return updater.finish(error);
}

bool updateFileContent(Device &device, const ProtoModel::s_FileIdentity &file,
                       const std::string &content)
{
    DeviceUpdater updater(device);
    const bool isKnown = updater.updateContent(file, content);
    QString noError;
    updater.finish(noError);
    return isKnown;
}

} // namespace Tavoro::BizModel
