#pragma once

#include <tavorobizmodel/enums.h>
#include <tavorobizmodel/export.h>
#include <tavorocontrol/proto/file.h>

#include <QList>
#include <QMetaType>
#include <QObject>
#include <QString>

#include <memory>
#include <vector>

namespace Tavoro::BizModel {

class Device;
class DeviceListPrivate;
class SaveDeviceDataThread;

/// Where and how devices are kept from one run of the application to the next.
struct s_DeviceStoreOptions {
    /// Empty: \c devices.sqlite in the application's data folder, as QStandardPaths tells it.
    QString fileName;
    /// Milliseconds until a save that failed is tried again.
    int retryDelay = 10000;
};

/// All devices that the application knows, and the signals by which the control library speaks to
/// its windows.
///
/// All members may be called from any thread. Signals are emitted on the caller's thread: connect
/// with a context object that lives on the thread where you want them.
class TAVOROBIZMODEL_EXPORT DeviceList : public QObject {
    Q_OBJECT

public:
    /// The list; made on the first call, never null.
    static DeviceList *instance();

    /// The device with this identity, or an empty pointer. \a mac and \a sn are upper-case
    /// hexadecimal digits.
    std::weak_ptr<Device> findDevice(const QString &ip, const QString &mac,
                                     const QString &sn) const;
    /// Takes a device into the list.
    std::weak_ptr<Device> append(std::shared_ptr<Device> device);
    /// The background saver; null as long as the application has opened no store of devices.
    SaveDeviceDataThread *saveDeviceDataThread() const;

    /// \name For applications
    /// What the control library itself does not call.
    /// @{
    QList<std::weak_ptr<Device>> devices() const;
    /// Takes a device out of the list. False when it was not in it.
    /// With an open store it is forgotten there too.
    bool remove(const std::weak_ptr<Device> &device);

    /// Opens a store of devices, takes the devices of the last run into the list, as offline ones,
    /// and starts the background saver. Nothing is stored, and no file touched, without this call.
    ///
    /// A damaged file is given another name, told by signalDeviceStoreSetAside(), and a new one is
    /// begun. False with the reason in \a error when there is no usable file, or when a store is
    /// open already. Call it on the application's thread; it ends by itself with the application.
    bool openDeviceStore(const s_DeviceStoreOptions &options, QString &error);
    /// Does the saves that were asked for and closes the file. Does nothing without an open store.
    void closeDeviceStore();
    /// @}

Q_SIGNALS:
    /// \a text stands in the status bar for \a ms milliseconds.
    void signalShowStatusBarMsg(Tavoro::BizModel::Enum::StatusBarMsgType type, QString text,
                                int ms);
    /// Asks for a modal box. The result is not used.
    int signalShowFramelessMessageBoxMsg(Tavoro::BizModel::Enum::FramelessMessageBoxMsgType type,
                                         QString text);
    /// Share done of a read or a write that takes several packets, from just above 0 to 1.
    void signalReadDataFromHWProgressChanged(double share);
    void signalSendData2HWProgressChanged(double share);
    /// A device told how far the transfers of its files are.
    void signalFilesTransferProgressChanged(
        std::weak_ptr<Tavoro::BizModel::Device> device,
        std::vector<Tavoro::ProtoModel::File::s_FileTransPercent> percents);

    /// \name For applications
    /// What the control library itself does not emit.
    /// @{
    void signalDeviceAppended(std::weak_ptr<Tavoro::BizModel::Device> device);
    void signalDeviceRemoved(std::weak_ptr<Tavoro::BizModel::Device> device);
    /// A save has ended. Emitted on the saver's thread, like the next three.
    void signalDeviceDataSaved(std::weak_ptr<Tavoro::BizModel::Device> device);
    /// A save could not be done: the disk may be full. It is tried again later by itself.
    void signalSaveDeviceDataFailed(QString text);
    /// The file of the store was damaged and is kept under another name.
    void signalDeviceStoreSetAside(QString fileName, QString keptAs);
    /// One record in the store was damaged, and was left out when the store was opened. \a record
    /// names it and its device. The row is kept in the table \c damaged of the file; the next save
    /// of the device writes the record again.
    void signalStoredRecordSetAside(QString fileName, QString record);
    /// @}

private:
    DeviceList();
    ~DeviceList() override;

    const std::unique_ptr<DeviceListPrivate> d;
};

} // namespace Tavoro::BizModel

Q_DECLARE_METATYPE(Tavoro::BizModel::Enum::StatusBarMsgType)
Q_DECLARE_METATYPE(Tavoro::BizModel::Enum::FramelessMessageBoxMsgType)
Q_DECLARE_METATYPE(std::weak_ptr<Tavoro::BizModel::Device>)
Q_DECLARE_METATYPE(std::vector<Tavoro::ProtoModel::File::s_FileTransPercent>)
