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

/// Synchronises devices: reads a whole device into the model, one at a time.
///
/// Belongs to the thread that made it, which needs an event loop; both signals are emitted there.
/// The devices themselves are in BizModel::DeviceList. Destroying the list waits, without limit,
/// for a synchronisation that runs.
class TAVOROCONTROL_EXPORT DeviceList : public QObject {
    Q_OBJECT

public:
    explicit DeviceList(QObject *parent);
    ~DeviceList() override;

    /// Starts to read the device with this identity. Returns at once.
    ///
    /// True: signalReadDeviceDetailStarted() and then signalReadDeviceDetailFinished() follow. Also
    /// true, but without signals of its own, while another synchronisation runs: that one goes on.
    /// False if the device has no channel; \a error is then left alone, the reason is logged.
    bool readDeviceDetail(const QString &ip, const QString &mac, const QString &sn, QString &error);
    /// The same for a device of the model. False with "Device model is nullptr" in \a error if it
    /// is gone.
    bool readDeviceDetail(std::weak_ptr<BizModel::Device> device, QString &error);

Q_SIGNALS:
    void signalReadDeviceDetailStarted(QString ip);
    /// The model holds what could be read. \a success tells how filling in the layers went, or,
    /// when the device's details, its status or its interfaces ended the reading, how the reads
    /// went: so it can be true although screens or files could not be read.
    /// BizModel::Device::isSyncDataSuccess() says whether the clock was set and all reads
    /// succeeded. The identity is empty, and \a success false, for a device without an address.
    void signalReadDeviceDetailFinished(bool success, QString ip, QString mac, QString sn);

private:
    const std::unique_ptr<Internal::DeviceListPrivate> d;
};

} // namespace Tavoro::Control
