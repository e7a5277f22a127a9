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
/// Belongs to the thread that created it, which needs an event loop; both signals are emitted
/// there. The devices themselves are in BizModel::DeviceList. The destructor blocks, without limit,
/// until a running synchronisation has ended. Several lists may run synchronisations at the same
/// time.
class TAVOROCONTROL_EXPORT DeviceList : public QObject {
    Q_OBJECT

public:
    /// Creates a list on the calling thread.
    explicit DeviceList(QObject *parent);
    /// Waits, without a limit, for a synchronisation that is running.
    ~DeviceList() override;

    /// Starts a synchronisation of the device with this address, MAC and serial number, and returns
    /// at once.
    ///
    /// After true, signalReadDeviceDetailStarted() and then signalReadDeviceDetailFinished()
    /// follow. The result is also true while another synchronisation of this list runs; that one
    /// continues, and the call has no signals of its own. False if the device has no channel: \a
    /// error stays unchanged, the reason is logged.
    bool readDeviceDetail(const QString &ip, const QString &mac, const QString &sn, QString &error);
    /// The same for a device of the model. False with "Device model is nullptr", translated, in \a
    /// error if it is gone.
    bool readDeviceDetail(std::weak_ptr<BizModel::Device> device, QString &error);

Q_SIGNALS:
    /// The synchronisation of the device at the address \a ip has started.
    void signalReadDeviceDetailStarted(QString ip);
    /// The synchronisation has ended; the model holds what could be read.
    ///
    /// \a success says whether the layers could be added to the model or, if the details, the
    /// status or the interfaces of the device ended the synchronisation, whether the reads
    /// succeeded. So it can be true although screens or files could not be read.
    /// BizModel::Device::isSyncDataSuccess() says whether the clock was set and all reads
    /// succeeded. For a device without an address the identity is empty and \a success false.
    void signalReadDeviceDetailFinished(bool success, QString ip, QString mac, QString sn);

private:
    const std::unique_ptr<Internal::DeviceListPrivate> d;
};

} // namespace Tavoro::Control
