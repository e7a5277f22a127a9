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
    /// Path of the SQLite file. Empty: \c devices.sqlite in QStandardPaths::AppDataLocation.
    QString fileName;
    /// Milliseconds until a failed save is retried, 0 or more.
    int retryDelay = 10000;
};

/// All devices that the application knows, and the signals by which the control library sends
/// messages to the application's windows.
///
/// The list never holds two devices with the same identity. The identity of a device is its serial
/// number and MAC address, or its network address if it has neither.
///
/// All members may be called from any thread, except openDeviceStore() and closeDeviceStore().
/// Signals are emitted on the caller's thread: connect with a context object that lives on the
/// thread where you want them.
class TAVOROBIZMODEL_EXPORT DeviceList : public QObject {
    Q_OBJECT

public:
    /// The list; created by the first call, never null.
    static DeviceList *instance();

    /// The device with this address, MAC and serial number, or an empty pointer. \a mac and \a sn
    /// are upper-case hexadecimal digits.
    std::weak_ptr<Device> findDevice(const QString &ip, const QString &mac,
                                     const QString &sn) const;
    /// Adds a device that was read, and returns it. If the list holds a device with the same
    /// identity, the new one replaces it and takes over its user settings, even if the network
    /// address differs. Ignores null.
    std::weak_ptr<Device> append(std::shared_ptr<Device> device);
    /// The object that saves devices in the background; null while no store is open.
    SaveDeviceDataThread *saveDeviceDataThread() const;

    /// \name For applications
    /// The control library itself does not call these.
    /// @{

    /// All devices, in the order in which they were added.
    QList<std::weak_ptr<Device>> devices() const;
    /// Removes a device from the list, and from the store if one is open. Returns false if it was
    /// not in the list.
    bool remove(const std::weak_ptr<Device> &device);

    /// Opens a store of devices, adds the stored devices to the list as offline devices, and starts
    /// to save in the background. Without this call nothing is stored and no file is accessed. A
    /// device that is already in the list stays there and takes over the stored user settings.
    ///
    /// If the file is damaged, it is renamed, a new one is created, and
    /// signalDeviceStoreQuarantined() is emitted. If a record is damaged, it is skipped, and
    /// signalStoredRecordQuarantined() is emitted. Returns false, with the reason in \a error, if
    /// no file can be used or a store is already open.
    ///
    /// Call it on the application's thread. It blocks until the file is read, and up to 10 s while
    /// another process uses the file. The store closes with the application.
    bool openDeviceStore(const s_DeviceStoreOptions &options, QString &error);
    /// Completes the requested saves and closes the file. Blocks until that is done. If saving is
    /// paused, the requested saves are dropped. Does nothing without an open store. Call it on the
    /// application's thread.
    void closeDeviceStore();
    /// @}

Q_SIGNALS:
    /// Requests that the application shows \a text in the status bar for \a ms milliseconds.
    void signalShowStatusBarMsg(Tavoro::BizModel::Enum::StatusBarMsgType type, QString text,
                                int ms);
    /// Requests that the application shows \a text in a modal message box. The result is ignored.
    int signalShowFramelessMessageBoxMsg(Tavoro::BizModel::Enum::FramelessMessageBoxMsgType type,
                                         QString text);
    /// Progress of a read in several packets. \a share is above 0 and at most 1.
    void signalReadDataFromHWProgressChanged(double share);
    /// Progress of a write in several packets. \a share is above 0 and at most 1.
    void signalSendData2HWProgressChanged(double share);
    /// A device reported the progress of its file transfers; \c percent is 0 to 100.
    void signalFilesTransferProgressChanged(
        std::weak_ptr<Tavoro::BizModel::Device> device,
        std::vector<Tavoro::ProtoModel::File::s_FileTransPercent> percents);

    /// \name For applications
    /// The control library itself does not emit these.
    /// @{

    /// A device was added to the list.
    void signalDeviceAppended(std::weak_ptr<Tavoro::BizModel::Device> device);
    /// A device was removed from the list, by remove() or by append(). In a slot on another thread
    /// the pointer may already have expired.
    void signalDeviceRemoved(std::weak_ptr<Tavoro::BizModel::Device> device);
    /// A device was saved. This signal and the next three are emitted on the thread that saves.
    void signalDeviceDataSaved(std::weak_ptr<Tavoro::BizModel::Device> device);
    /// A save failed, for example because the disk is full. \a text holds the reason. The save is
    /// retried after s_DeviceStoreOptions::retryDelay.
    void signalSaveDeviceDataFailed(QString text);
    /// The file of the store was damaged. It was renamed to \a quarantineFile.
    void signalDeviceStoreQuarantined(QString fileName, QString quarantineFile);
    /// A record in the store was damaged and was skipped when the store was opened. \a record names
    /// it and its device. The damaged row is kept in the table \c damaged of the file; the next
    /// save of the device writes the record again.
    void signalStoredRecordQuarantined(QString fileName, QString record);
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
