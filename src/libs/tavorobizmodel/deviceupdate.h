#pragma once

#include <tavorobizmodel/export.h>
#include <tavorocontrol/proto/device.h>
#include <tavorocontrol/proto/devicebaseinfo.h>
#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/identities.h>
#include <tavorocontrol/proto/interface.h>
#include <tavorocontrol/proto/layer.h>
#include <tavorocontrol/proto/screen.h>

#include <QString>

#include <optional>
#include <string>
#include <vector>

/// \file
/// Applies records that were read from a device to its object in the model, as differences.

namespace Tavoro::BizModel {

class Device;

/// \defgroup update Updates of a device
///
/// Each function makes a device equal to what was read. The result is the same as if the device had
/// been cleared with Device::clearAll(true) and built again, but:
/// - objects that the device still has stay the same objects, so weak pointers, connections and
///   selections stay valid;
/// - a screen that is active and still exists stays active;
/// - only what differs is signalled. Nothing is signalled if the records are equal.
///
/// Signals are emitted after all changes were made, so a slot sees the complete new state. First
/// Device::deviceDataChanged() is emitted, once for each part that differs; for \c Interfaces,
/// \c Screens, \c Layers and \c Files that is when objects were added, removed or moved. Then each
/// object whose record differs emits its own signal once. Objects that were added emit nothing.
/// An interface whose measured timing differs also emits Interface::layerInputCropOutdated().
///
/// Each function returns false if a record has a fault, with the same sentences in \a error and the
/// same effect as Device::initModelData(). On success \a error is unchanged.
///
/// Call these functions on the thread of the device, with one call at a time for each device. They
/// send nothing and do not block. Reports may be applied meanwhile on another thread. A blocked
/// device and its objects emit nothing.
///
/// To read a device that is not in the list, create it with <tt>std::make_shared</tt>, set its
/// network address, apply what was read, and pass it to DeviceList::append().
/// @{

/// The interfaces that a read returns. A default filter selects all.
struct s_InterfaceFilter {
    int type = 0; ///< Kind of the interface; 0 does not filter.
    std::optional<ProtoModel::s_InterfaceID> interfaceId; ///< Selects a single interface.
};

/// The screens that a read returns: the first arguments of Control::Screen::readDetails(). A
/// default filter selects all.
struct s_ScreenFilter {
    int screenId = -1; ///< -1 does not filter.
    int screenType = -1; ///< -1 and 0 do not filter.
};

/// The layers that a read returns: the arguments of Control::Layer::readDetails(). A default filter
/// selects all.
struct s_LayerFilter {
    int screenId = -1; ///< -1 does not filter.
    int screenType = -1; ///< -1 and 0 do not filter.
    int sceneType = -1; ///< -1 does not filter.
    int layerType = -1; ///< -1 does not filter.
};

/// The files that a read returns: the arguments of Control::File::readDetails(). A default filter
/// selects all.
struct s_FileFilter {
    int fileType = -1; ///< -1 does not filter.
    int fileId = -1; ///< -1 does not filter.
};

/// Whether the contents of files were read together with their list.
enum class FileContents {
    /// \c binary of each record is the content of the file, or empty if the device does not send
    /// the content of this type of file.
    WereRead,
    /// \c binary was not read. A file keeps its content as long as its \c size is the same, and
    /// loses it otherwise.
    WereNotRead,
};

/// What was read from a device as a whole. What was not read stays as it is.
struct s_DeviceReading {
    /// The identity record of the channel; empty if the device no longer has a channel. The device
    /// is marked online or offline accordingly.
    std::optional<ProtoModel::DeviceBaseInfo> baseInfo;
    bool isComplete = false; ///< True if all reads succeeded: Device::isSyncDataSuccess().

    std::optional<ProtoModel::Device::s_DeviceDetail> detail; ///< Data of the device as a whole.
    std::optional<std::vector<ProtoModel::Interface::s_InterfaceDetail>> interfaces; ///< All.
    std::optional<std::vector<ProtoModel::Screen::s_ScreenFullDetail>> screens; ///< All.
    std::optional<std::vector<ProtoModel::Layer::s_LayerFullDetail>> layers; ///< All.
    std::optional<std::vector<ProtoModel::File::s_FileDetail>> files; ///< All, with contents.
};

/// Applies what was read from the whole device.
///
/// If the device reports the name "N/A", the name in \c baseInfo is used, if there is one. Files of
/// the type 15 are left out: the device lists them, but no longer has them. If no screen is active
/// afterwards, the first ordinary screen or mosaic becomes active; the same holds for multiviewers.
TAVOROBIZMODEL_EXPORT bool updateDevice(Device &device, const s_DeviceReading &reading,
                                        QString &error);

/// Applies the data of the device as a whole, including its name. The name "N/A" is treated as in
/// updateDevice(), with the name of Device::deviceBaseInfo().
TAVOROBIZMODEL_EXPORT bool updateDeviceDetail(Device &device,
                                              const ProtoModel::Device::s_DeviceDetail &detail,
                                              QString &error);

/// \name Updates of some objects
/// \a filter says what was read: objects that it selects and that are not in \a details no longer
/// exist and are removed. All records of \a details are applied, even if the filter does not select
/// them. With a default filter the objects get the order of \a details. Otherwise the order stays,
/// and a new object is placed before the first one with a greater identity, as devices list them.
/// @{

/// Applies interfaces. The crops of layers follow the timings of their interfaces.
TAVOROBIZMODEL_EXPORT bool
updateInterfaces(Device &device,
                 const std::vector<ProtoModel::Interface::s_InterfaceDetail> &details,
                 const s_InterfaceFilter &filter, QString &error);

/// Applies screens. Removes the layers of screens that no longer exist. Screens become active as in
/// updateDevice().
TAVOROBIZMODEL_EXPORT bool
updateScreens(Device &device, const std::vector<ProtoModel::Screen::s_ScreenFullDetail> &details,
              const s_ScreenFilter &filter, QString &error);

/// Applies layers.
TAVOROBIZMODEL_EXPORT bool
updateLayers(Device &device, const std::vector<ProtoModel::Layer::s_LayerFullDetail> &details,
             const s_LayerFilter &filter, QString &error);

/// Applies files. Files of the type 15 are left out.
TAVOROBIZMODEL_EXPORT bool updateFiles(Device &device,
                                       const std::vector<ProtoModel::File::s_FileDetail> &details,
                                       const s_FileFilter &filter, FileContents contents,
                                       QString &error);
/// @}

/// Stores the content of one file. Returns false, and changes nothing, if the device does not have
/// the file.
TAVOROBIZMODEL_EXPORT bool updateFileContent(Device &device, const ProtoModel::s_FileIdentity &file,
                                             const std::string &content);

/// @}

} // namespace Tavoro::BizModel
