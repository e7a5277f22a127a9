#pragma once

#include <tavorobizmodel/deviceconfig.h>
#include <tavorobizmodel/enums.h>
#include <tavorobizmodel/export.h>
#include <tavorocontrol/proto/auxiliary.h>
#include <tavorocontrol/proto/device.h>
#include <tavorocontrol/proto/devicebaseinfo.h>
#include <tavorocontrol/proto/file.h>
#include <tavorocontrol/proto/interface.h>
#include <tavorocontrol/proto/layer.h>
#include <tavorocontrol/proto/rgb.h>
#include <tavorocontrol/proto/screen.h>

#include <QList>
#include <QMetaType>
#include <QObject>
#include <QString>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Tavoro::BizModel {

class DevicePrivate;
class File;
class Interface;
class Layer;
class MVRScreen;
class Screen;

/// One device of the model. Always made as a shared object.
///
/// A device owns its interfaces, screens, layers and files. They are replaced as a whole when the
/// device is read again: keep weak pointers, and fetch new ones when deviceDataChanged() tells of
/// it. While the signals of the device are blocked, its objects are silent too.
///
/// All members may be called from any thread. What deviceConfig() refers to is filled before the
/// device is shared and only read afterwards.
class TAVOROBIZMODEL_EXPORT Device : public QObject, public std::enable_shared_from_this<Device> {
    Q_OBJECT

public:
    /// \a id is the application's number of the device; 65535 for a device that has none yet.
    Device(unsigned short id, QObject *parent);
    ~Device() override;

    QString sn() const;
    QString MAC() const;
    QString IPAddress() const;
    QString name() const;
    /// Address, MAC and serial number as one text for log lines.
    QString ipMacSn() const;

    void setIPAddress(QString ip);
    void setName(const QString &name);
    void setModelId(unsigned short modelId);
    void setDeviceOnlineFlag(const bool &online);
    /// Stores how the last read of the whole device ended.
    void setSyncDataSuccess(bool success);
    /// Stores the identity that a channel found.
    void updateDeviceBaseInfo(ProtoModel::DeviceBaseInfo info);
    /// Version of the protocol that the device's connection speaks.
    unsigned short tcpProtocolVersion() const;

    /// How long commands may take. A new device waits 5 s for most of them, and 20 s for its card
    /// modes, 100 s for the interfaces, 15 s for a take, 200 s for a save.
    s_DeviceConfig &deviceConfig();

    /// Empties the device's interfaces, screens, layers and files. What the user set beside the
    /// device, the layouts of multiviewer screens, is kept for the screens that come if \a
    /// keepUserSettings is true.
    void clearAll(bool keepUserSettings);

    /// \name Building
    /// Each takes the place of what was there of its kind. Layers come last, since they refer to
    /// screens and interfaces, and screens refer to interfaces.
    ///
    /// What is sound is taken in any case. When something is wrong the result is false, and \a
    /// error names the first few faults, a sentence each: an identity that is there twice (the
    /// first one is taken), a screen with an output that is not there (the screen is taken), a
    /// layer on a screen that is not there (the layer is not). On success \a error is left alone.
    /// @{
    /// Builds the data of the device as a whole.
    bool initModelData(const ProtoModel::Device::s_DeviceDetail &detail, QString &error);
    bool initModelData(const std::vector<ProtoModel::Interface::s_InterfaceDetail> &details,
                       QString &error);
    bool initModelData(const std::vector<ProtoModel::File::s_FileDetail> &details, QString &error);
    bool initModelData(const std::vector<ProtoModel::Screen::s_ScreenFullDetail> &details,
                       QString &error);
    bool initModelData(const std::vector<ProtoModel::Layer::s_LayerFullDetail> &details,
                       QString &error);
    /// @}
    /// Rebuilds the data of the slots that \a reported names from \a detail.
    bool updateSlotModelData(const ProtoModel::Device::s_subcards &reported,
                             const ProtoModel::Device::s_DeviceDetail &detail, QString &error);

    /// The screens whose type \e t has its bit <tt>1 << t</tt> in \a mask, in the device's order.
    QList<std::weak_ptr<Screen>> screens(int mask) const;
    /// The screen that the user works on; an empty pointer when there is none.
    std::weak_ptr<Screen> activedScreen() const;
    std::weak_ptr<MVRScreen> activedMVRScreen() const;
    /// Makes \a screen the active one, or the active multiviewer if it is one.
    void setActivedScreen(std::weak_ptr<Screen> screen);

    /// The screen of this type and number, or an empty pointer.
    std::weak_ptr<Screen> findScreen(int screenType, unsigned char screenId) const;
    /// The interface with this identity, or an empty pointer.
    std::weak_ptr<Interface> findInterface(const ProtoModel::s_InterfaceID &id) const;
    /// The file of this type and id, or an empty pointer.
    std::weak_ptr<File> findFile(Enum::File::FileType fileType, int fileId) const;

    void setDeviceProcess(ProtoModel::Auxiliary::s_DeviceProcess process);
    bool updateCutoutRGB(const ProtoModel::s_RGB &color, QString &error);
    void updateDeviceGroupInfo(const ProtoModel::Device::s_DeviceGroupInfoBody &group);
    void setGenlockOnStatus(const ProtoModel::Device::s_GenlockSignalBody &signal);
    void updateInterfaceRelation(const std::vector<ProtoModel::Device::s_Relation> &relations);
    void setPower(const std::vector<ProtoModel::Device::s_PowerBody> &powers);
    void setScreenGenlocks(const std::vector<ProtoModel::Screen::s_ScreenGenlockBody> &genlocks);
    void updateSubCard(const std::vector<ProtoModel::Device::s_subcardBody> &subcards);

    /// \name For applications
    /// What the control library itself does not call.
    /// @{
    unsigned short modelId() const;
    bool isOnline() const;
    /// True if the last synchronisation set the device's clock and all its reads succeeded; false
    /// before the first. A channel that is removed before the contents of the files are read does
    /// not make it false: the contents are then empty.
    bool isSyncDataSuccess() const;
    ProtoModel::DeviceBaseInfo deviceBaseInfo() const;
    /// What is known of the device as a whole.
    ProtoModel::Device::s_DeviceDetail deviceDetail() const;
    ProtoModel::Auxiliary::s_DeviceProcess deviceProcess() const;
    ProtoModel::s_RGB cutoutRGB() const;
    std::vector<ProtoModel::Screen::s_ScreenGenlockBody> screenGenlocks() const;

    std::optional<ProtoModel::Device::s_subcardBody> findSubcard(int slotId) const;
    std::optional<ProtoModel::Device::s_PowerBody> findPower(int powerId) const;
    std::optional<ProtoModel::Device::s_DeviceGroupInfoBody>
    findGroup(const std::string &groupId) const;
    /// The layer with this identity, or an empty pointer.
    std::weak_ptr<Layer> findLayer(const ProtoModel::Layer::s_LayerIdentity &identity) const;

    /// All objects of a kind, in the device's order.
    QList<std::weak_ptr<Interface>> interfaces() const;
    QList<std::weak_ptr<Layer>> layers() const;
    QList<std::weak_ptr<File>> files() const;
    /// @}

Q_SIGNALS:
    /// For applications: data of the device itself changed, or objects of it came or went. Emitted
    /// on the thread that changed it: connect with a context object to be told on the thread where
    /// that lives.
    void deviceDataChanged(Tavoro::BizModel::Enum::Device::DataPart part);

private:
    friend class DevicePrivate;

    const std::unique_ptr<DevicePrivate> d;
};

} // namespace Tavoro::BizModel

Q_DECLARE_METATYPE(Tavoro::BizModel::Enum::Device::DataPart)
