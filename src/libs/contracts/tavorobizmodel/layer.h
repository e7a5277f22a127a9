#pragma once

#include <tavorobizmodel/export.h>
#include <tavorocontrol/proto/layer.h>

#include <QObject>
#include <QSize>

#include <memory>

namespace Tavoro::BizModel {

class Device;
class Interface;
class LayerPrivate;
class Screen;
class UserSettings;

/// One layer of a screen, for applications: the control library itself calls nothing here. Created
/// by its device. All members may be called from any thread.
class TAVOROBIZMODEL_EXPORT Layer : public QObject {
    Q_OBJECT

public:
    /// For Device, which creates its layers.
    Layer(const ProtoModel::Layer::s_LayerFullDetail &detail, std::weak_ptr<Device> device);
    ~Layer() override;

    /// Screen, layer, kind and scene; never changes.
    ProtoModel::Layer::s_LayerIdentity identity() const;
    /// A copy of everything that is known of the layer. The \c rect of each crop of its source
    /// follows the timing of the interface that it shows.
    ProtoModel::Layer::s_LayerFullDetail detail() const;

    /// Expired when the device is gone.
    std::weak_ptr<Device> device() const;
    /// The screen that the layer is on; empty when the device does not have it any more.
    std::weak_ptr<Screen> screen() const;
    /// The interface that the layer shows. Empty when it shows nothing or something else, and when
    /// the device has no such interface.
    std::weak_ptr<Interface> source() const;

Q_SIGNALS:
    /// The record of the layer changed. Emitted on the thread that changed it.
    void layerChanged();

private:
    friend class DeviceBuilder;
    friend class DevicePrivate;
    friend class Interface;
    /// Gives the crops the pixels that were kept.
    void restoreCrops(const UserSettings &settings);
    /// Works out the pixels of the crops for a picture of this size. True when one changed.
    bool fitCrops(const QSize &picture);
    /// The same, and emits layerChanged() when one changed.
    void fitInputCrop(const QSize &picture);

    const std::unique_ptr<LayerPrivate> d;
};

} // namespace Tavoro::BizModel
