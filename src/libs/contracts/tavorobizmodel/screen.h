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

/// One screen of a device. Made by its device. All members may be called from any thread.
class TAVOROBIZMODEL_EXPORT Screen : public QObject {
    Q_OBJECT

public:
    Screen(const ProtoModel::Screen::s_ScreenFullDetail &detail, std::weak_ptr<Device> device);
    ~Screen() override;

    unsigned char screenId() const;
    Enum::Screen::ScreenType screenType() const;
    void setScreenZelk(const ProtoModel::Screen::s_ScreenZeLK &zelk);

    /// \name For applications
    /// What the control library itself does not call.
    /// @{
    /// What is known of the screen.
    ProtoModel::Screen::s_ScreenFullDetail detail() const;
    std::weak_ptr<Device> device() const;
    /// The layers of all its scenes, in the device's order.
    QList<std::weak_ptr<Layer>> layers() const;
    /// The interfaces of its mosaic that the device has.
    QList<std::weak_ptr<Interface>> outputs() const;
    /// As last reported; 0 before the first report.
    int genlockStatus() const;
    /// @}

Q_SIGNALS:
    /// For applications: something of the screen changed. Emitted on the thread that changed it.
    void screenChanged();

protected:
    /// Emits screenChanged(), unless the signals of the device are blocked.
    void tellChange();

private:
    const std::unique_ptr<ScreenPrivate> d;
};

} // namespace Tavoro::BizModel
