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

/// All devices that the application knows, and the signals of the control library to the
/// application's windows.
///
/// The list never holds two devices of one identity. The identity of a device is its serial number
/// and MAC address, or its network address if it has neither.
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
    /// Adds a device that was read, and returns it. A device of the same identity is removed: the
    /// new one takes its place and adopts the user's settings, wherever the device was before. Null
    /// is not added.
    std::weak_ptr<Device> append(std::shared_ptr<Device> device);
    /// The background saver; null while no store of devices is open.
    SaveDeviceDataThread *saveDeviceDataThread() const;

    /// \name For applications
    /// The control library itself does not call these.
    /// @{

    /// All devices, in the order in which they were added.
    QList<std::weak_ptr<Device>> devices() const;
    /// Removes a device from the list, and from an open store. False when it was not in the list.
    bool remove(const std::weak_ptr<Device> &device);

    /// Opens a store of devices, adds the devices of the last run to the list, as offline ones, and
    /// starts the background saver. Nothing is stored, and no file is touched, without this call. A
    /// device that is in the list already stays and adopts the stored settings of the user.
    ///
    /// A damaged file gets another name, which signalDeviceStoreSetAside() reports, and a new one
    /// is created. A damaged record is left out, which signalStoredRecordSetAside() reports. False
    /// with the reason in \a error when there is no usable file, or when a store is open already.
    ///
    /// Call it on the application's thread. It blocks until the file is read, and up to 10 s while
    /// another process uses the file. The store closes with the application.
    bool openDeviceStore(const s_DeviceStoreOptions &options, QString &error);
    /// Does the saves that were asked for and closes the file; blocks until they are done. While
    /// the saver is paused the saves are dropped. Does nothing without an open store. Call it on
    /// the application's thread.
    void closeDeviceStore();
    /// @}

Q_SIGNALS:
    /// Asks for \a text in the status bar for \a ms milliseconds.
    void signalShowStatusBarMsg(Tavoro::BizModel::Enum::StatusBarMsgType type, QString text,
                                int ms);
    /// Asks for a modal box. The result is not used.
    int signalShowFramelessMessageBoxMsg(Tavoro::BizModel::Enum::FramelessMessageBoxMsgType type,
                                         QString text);
    /// Progress of a read that takes several packets: the share done, above 0 up to 1.
    void signalReadDataFromHWProgressChanged(double share);
    /// Progress of a write that takes several packets: the share done, above 0 up to 1.
    void signalSendData2HWProgressChanged(double share);
    /// A device reported how far the transfers of its files are; \c percent is 0 to 100.
    void signalFilesTransferProgressChanged(
        std::weak_ptr<Tavoro::BizModel::Device> device,
        std::vector<Tavoro::ProtoModel::File::s_FileTransPercent> percents);

    /// \name For applications
    /// The control library itself does not emit these.
    /// @{

    /// A device was added to the list.
    void signalDeviceAppended(std::weak_ptr<Tavoro::BizModel::Device> device);
    /// A device was removed from the list, by remove() or by append(). A slot on another thread may
    /// find the pointer expired.
    void signalDeviceRemoved(std::weak_ptr<Tavoro::BizModel::Device> device);
    /// A save has ended. Emitted on the saver's thread, like the next three.
    void signalDeviceDataSaved(std::weak_ptr<Tavoro::BizModel::Device> device);
    /// A save failed with the reason in \a text; the disk may be full. The saver retries it after
    /// s_DeviceStoreOptions::retryDelay.
    void signalSaveDeviceDataFailed(QString text);
    /// The file of the store was damaged and is kept as \a keptAs.
    void signalDeviceStoreSetAside(QString fileName, QString keptAs);
    /// A record in the store was damaged and was left out when the store was opened. \a record
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
