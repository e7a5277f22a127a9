#pragma once

#include <tavorobizmodel/enums.h>
#include <tavorobizmodel/export.h>
#include <tavorocontrol/proto/screen.h>

#include <QList>
#include <QObject>

#include <memory>

namespace Tavoro::BizModel {

class Device;
class Interface;
class Layer;
class ScreenPrivate;

/// One screen of a device. Created by its device. All members may be called from any thread; none
/// of them sends anything to the device.
class TAVOROBIZMODEL_EXPORT Screen : public QObject {
    Q_OBJECT

public:
    /// For Device, which creates its screens.
    Screen(const ProtoModel::Screen::s_ScreenFullDetail &detail, std::weak_ptr<Device> device);
    ~Screen() override;

    /// Number of the screen among those of its type; never changes.
    unsigned char screenId() const;
    /// Kind of the screen; never changes.
    Enum::Screen::ScreenType screenType() const;
    /// Stores the ZeLK switch and its status. Emits screenChanged().
    void setScreenZelk(const ProtoModel::Screen::s_ScreenZeLK &zelk);

    /// \name For applications
    /// The control library itself does not call these.
    /// @{

    /// A copy of the record of the screen.
    ProtoModel::Screen::s_ScreenFullDetail detail() const;
    /// The device that has the screen; expired when the device is gone.
    std::weak_ptr<Device> device() const;
    /// The layers of all scenes of the screen, in the device's order.
    QList<std::weak_ptr<Layer>> layers() const;
    /// The outputs of the screen's mosaic; outputs that the device does not have are left out.
    QList<std::weak_ptr<Interface>> outputs() const;
    /// Status of the genlock as last reported, a code that the device defines; 0 before the first
    /// report, and if the last report does not contain the screen.
    int genlockStatus() const;
    /// @}

Q_SIGNALS:
    /// For applications: the record, the layout or the genlock status of the screen changed.
    /// Emitted on the thread that changed it.
    void screenChanged();

protected:
    /// Emits screenChanged(), unless the signals of the device are blocked.
    void notifyChange();

private:
    friend class DeviceUpdater;
    /// Replaces the record by one that was read. Returns false if they are equal.
    bool assign(const ProtoModel::Screen::s_ScreenFullDetail &read);

    const std::unique_ptr<ScreenPrivate> d;
};

} // namespace Tavoro::BizModel
