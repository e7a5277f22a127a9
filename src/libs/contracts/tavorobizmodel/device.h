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

/// One device of the model. Always own it by a \c std::shared_ptr.
///
/// A device owns its interfaces, screens, layers and files. A synchronisation replaces them as a
/// whole, an update (see deviceupdate.h) keeps those that still exist: keep weak pointers, and get
/// new ones after deviceDataChanged(). While the signals of the device are blocked, its objects
/// emit nothing either.
///
/// All members may be called from any thread and return at once; none of them sends anything to the
/// device. deviceConfig() is an exception: change the settings only before you share the device.
class TAVOROBIZMODEL_EXPORT Device : public QObject, public std::enable_shared_from_this<Device> {
    Q_OBJECT

public:
    /// Creates a device. \a id is the number that the application gives the device, or 65535 for
    /// none. The object lives on the application's thread, unless it has a parent.
    Device(unsigned short id, QObject *parent);
    ~Device() override;

    /// Serial number: 16 upper-case hexadecimal digits, zeros if it is not known.
    QString sn() const;
    /// MAC address: 12 upper-case hexadecimal digits, zeros if it is not known.
    QString MAC() const;
    /// Network address, by which the control library finds the channel of the device; empty if it
    /// is not known.
    QString IPAddress() const;
    /// Name of the device.
    QString name() const;
    /// Address, MAC and serial number as one text for log lines.
    QString ipMacSn() const;

    /// Stores the network address.
    void setIPAddress(QString ip);
    /// Stores the name in the model. Does not rename the device itself.
    void setName(const QString &name);
    /// Stores the model number.
    void setModelId(unsigned short modelId);
    /// Stores whether the device has a channel.
    void setDeviceOnlineFlag(const bool &online);
    /// Stores whether the last synchronisation succeeded.
    void setSyncDataSuccess(bool success);
    /// Stores the identity record of a channel, including serial number and MAC address. Network
    /// address, name and model number do not change.
    void updateDeviceBaseInfo(ProtoModel::DeviceBaseInfo info);
    /// Protocol version of the device's connection.
    unsigned short tcpProtocolVersion() const;

    /// Settings of the device: how long the control library waits for its answers. By default 5 s
    /// for most commands, 20 s for card modes, 100 s for reading the interfaces, 15 s for a take
    /// and 200 s for a save. Not thread-safe: change it before you share the device.
    s_DeviceConfig &deviceConfig();

    /// Removes the interfaces, screens, layers and files; no screen is active afterwards. If
    /// \a keepUserSettings is true, the user's settings (layouts of multiviewer screens, cutout
    /// colour, pixels of crops) are kept and apply to the objects that are built next. Otherwise
    /// they are deleted.
    void clearAll(bool keepUserSettings);

    /// \name Building
    /// Each function replaces all data of its kind. Build the interfaces first, then the screens,
    /// which refer to them, and last the layers, which refer to both.
    ///
    /// Returns false if a record has a fault; \a error then holds one sentence for each of the
    /// first five faults, and the number of the others. Records without a fault are stored in any
    /// case. On success \a error is unchanged. docs/model.md lists the sentences. The faults are:
    /// - an identity that occurs twice: the first record is stored;
    /// - a screen with an output that the device does not have: the screen is stored;
    /// - a layer on a screen that the device does not have: the layer is left out.
    /// @{

    /// Builds the data of the device as a whole, including its name.
    bool initModelData(const ProtoModel::Device::s_DeviceDetail &detail, QString &error);
    /// Builds the interfaces.
    bool initModelData(const std::vector<ProtoModel::Interface::s_InterfaceDetail> &details,
                       QString &error);
    /// Builds the files.
    bool initModelData(const std::vector<ProtoModel::File::s_FileDetail> &details, QString &error);
    /// Builds the screens; no screen is active afterwards.
    bool initModelData(const std::vector<ProtoModel::Screen::s_ScreenFullDetail> &details,
                       QString &error);
    /// Builds the layers.
    bool initModelData(const std::vector<ProtoModel::Layer::s_LayerFullDetail> &details,
                       QString &error);
    /// @}
    /// Replaces the cards in the slots that \a reported names by the cards of \a detail. Returns
    /// false, changes nothing and writes the reason to \a error if \a detail lacks one of these
    /// slots.
    bool updateSlotModelData(const ProtoModel::Device::s_subcards &reported,
                             const ProtoModel::Device::s_DeviceDetail &detail, QString &error);

    /// The screens whose type \e t has its bit <tt>1 << t</tt> in \a mask, in the device's order.
    QList<std::weak_ptr<Screen>> screens(int mask) const;
    /// The screen that the user works on: one of the device's screens, or an empty pointer.
    std::weak_ptr<Screen> activedScreen() const;
    /// The multiviewer that the user works on: one of the device's screens, or an empty pointer.
    std::weak_ptr<MVRScreen> activedMVRScreen() const;
    /// Makes \a screen the active multiviewer if it is one, otherwise the active screen. An empty
    /// pointer makes no screen active. Does nothing if the device no longer has the screen.
    void setActivedScreen(std::weak_ptr<Screen> screen);

    /// The screen of this type and number, or an empty pointer.
    std::weak_ptr<Screen> findScreen(int screenType, unsigned char screenId) const;
    /// The interface with this identity, or an empty pointer.
    std::weak_ptr<Interface> findInterface(const ProtoModel::s_InterfaceID &id) const;
    /// The file of this type and id, or an empty pointer.
    std::weak_ptr<File> findFile(Enum::File::FileType fileType, int fileId) const;

    /// \name Reports
    /// Each function stores what the device reported, and emits deviceDataChanged().
    /// @{

    /// Stores the progress of the device as a whole.
    void setDeviceProcess(ProtoModel::Auxiliary::s_DeviceProcess process);
    /// Stores the cutout colour. Always returns true; \a error is unchanged.
    bool updateCutoutRGB(const ProtoModel::s_RGB &color, QString &error);
    /// Replaces the group of the same ID, or adds it.
    void updateDeviceGroupInfo(const ProtoModel::Device::s_DeviceGroupInfoBody &group);
    /// Stores the state of the external genlock signal.
    void setGenlockOnStatus(const ProtoModel::Device::s_GenlockSignalBody &signal);
    /// Replaces all backup relations. Does not change whether they are enabled.
    void updateInterfaceRelation(const std::vector<ProtoModel::Device::s_Relation> &relations);
    /// Replaces all power supplies.
    void setPower(const std::vector<ProtoModel::Device::s_PowerBody> &powers);
    /// Replaces the genlock states of all screens. A screen that is not in \a genlocks gets the
    /// status 0. Each screen whose status changes emits Screen::screenChanged().
    void setScreenGenlocks(const std::vector<ProtoModel::Screen::s_ScreenGenlockBody> &genlocks);
    /// Replaces the cards in the same slots, or adds them.
    void updateSubCard(const std::vector<ProtoModel::Device::s_subcardBody> &subcards);
    /// @}

    /// \name For applications
    /// The control library itself does not call these. Records are copies.
    /// @{

    /// Model number of the device.
    unsigned short modelId() const;
    /// Whether the device had a channel at the last synchronisation; false for a device that was
    /// read from the store.
    bool isOnline() const;
    /// Returns true if the last synchronisation set the device's clock and all its reads succeeded;
    /// false before the first one. If the channel is removed before the contents of the files are
    /// read, the contents are empty and the result is still true.
    bool isSyncDataSuccess() const;
    /// The identity record of the last channel.
    ProtoModel::DeviceBaseInfo deviceBaseInfo() const;
    /// The data of the device as a whole: as read, and updated by reports.
    ProtoModel::Device::s_DeviceDetail deviceDetail() const;
    /// Progress of the device as a whole, as last reported.
    ProtoModel::Auxiliary::s_DeviceProcess deviceProcess() const;
    /// The cutout colour as last reported; the default one before the first report.
    ProtoModel::s_RGB cutoutRGB() const;
    /// Genlock states of the screens, as last reported; empty before the first report.
    std::vector<ProtoModel::Screen::s_ScreenGenlockBody> screenGenlocks() const;

    /// The card in this slot.
    std::optional<ProtoModel::Device::s_subcardBody> findSubcard(int slotId) const;
    /// The power supply with this number.
    std::optional<ProtoModel::Device::s_PowerBody> findPower(int powerId) const;
    /// The group of devices with this ID.
    std::optional<ProtoModel::Device::s_DeviceGroupInfoBody>
    findGroup(const std::string &groupId) const;
    /// The layer with this identity, or an empty pointer.
    std::weak_ptr<Layer> findLayer(const ProtoModel::Layer::s_LayerIdentity &identity) const;

    /// All interfaces, in the device's order.
    QList<std::weak_ptr<Interface>> interfaces() const;
    /// All layers, in the device's order.
    QList<std::weak_ptr<Layer>> layers() const;
    /// All files, in the device's order.
    QList<std::weak_ptr<File>> files() const;
    /// @}

Q_SIGNALS:
    /// For applications: data of the device as a whole changed, or the list of its objects did.
    /// Emitted on the thread that made the change. Connect with a context object to receive it on
    /// that object's thread.
    void deviceDataChanged(Tavoro::BizModel::Enum::Device::DataPart part);

private:
    friend class DevicePrivate;

    const std::unique_ptr<DevicePrivate> d;
};

} // namespace Tavoro::BizModel

Q_DECLARE_METATYPE(Tavoro::BizModel::Enum::Device::DataPart)
