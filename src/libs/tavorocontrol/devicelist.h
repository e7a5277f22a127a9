#pragma once

#include <tavorocontrol/export.h>

#include <QObject>
#include <QString>

#include <memory>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control {

namespace Internal {
class DeviceListPrivate;
}

/// Synchronises devices with the model: reads one whole device at a time.
///
/// Holds no devices: these are in BizModel::DeviceList. Belongs to the thread that created it,
/// which needs an event loop; both signals are emitted there. Each list runs one synchronisation at
/// a time; several lists may run theirs at the same time.
class TAVOROCONTROL_EXPORT DeviceList : public QObject {
    Q_OBJECT

public:
    /// Creates a list on the calling thread.
    explicit DeviceList(QObject *parent);
    /// Blocks until a running synchronisation has ended, however long that takes.
    ~DeviceList() override;

    /// Starts a synchronisation of the device with this address, MAC and serial number, and returns
    /// at once.
    ///
    /// Returns true if the synchronisation begins: signalReadDeviceDetailStarted() and then
    /// signalReadDeviceDetailFinished() follow. Also returns true while another synchronisation of
    /// this list runs: that one continues, and no signals follow for this call. Returns false, with
    /// \a error unchanged, if the device has no channel; the reason is logged.
    bool readDeviceDetail(const QString &ip, const QString &mac, const QString &sn, QString &error);
    /// Does the same for a device of the model. Returns false, with "Device model is nullptr",
    /// translated, in \a error if the device is gone.
    bool readDeviceDetail(std::weak_ptr<BizModel::Device> device, QString &error);

Q_SIGNALS:
    /// The synchronisation of the device at the address \a ip has started.
    void signalReadDeviceDetailStarted(QString ip);
    /// The synchronisation has ended; the model holds what could be read.
    ///
    /// If the device's details and interfaces were read and the device was ready, \a success says
    /// whether the model accepted the layers; it can be true although screens or files could not be
    /// read. Otherwise the synchronisation ended early, and \a success is false unless the device
    /// reported a status other than 0 (down) and 1 (ready). Use
    /// BizModel::Device::isSyncDataSuccess() to learn whether the clock was set and all reads
    /// succeeded. For a device without an address the three texts are empty and \a success is
    /// false.
    void signalReadDeviceDetailFinished(bool success, QString ip, QString mac, QString sn);

private:
    const std::unique_ptr<Internal::DeviceListPrivate> d;
};

} // namespace Tavoro::Control
