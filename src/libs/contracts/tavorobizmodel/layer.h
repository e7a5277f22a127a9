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

/// One layer of a screen. Only applications use it; the control library itself calls no member.
/// Created by its device. All members may be called from any thread.
class TAVOROBIZMODEL_EXPORT Layer : public QObject {
    Q_OBJECT

public:
    /// For Device, which creates its layers.
    Layer(const ProtoModel::Layer::s_LayerFullDetail &detail, std::weak_ptr<Device> device);
    ~Layer() override;

    /// Screen, layer, kind and scene; never changes.
    ProtoModel::Layer::s_LayerIdentity identity() const;
    /// A copy of the record of the layer. The \c rect of each crop of its source follows the timing
    /// of the interface that the layer shows.
    ProtoModel::Layer::s_LayerFullDetail detail() const;

    /// The device that has the layer; expired when the device is gone.
    std::weak_ptr<Device> device() const;
    /// The screen that the layer is on; empty if the device no longer has it.
    std::weak_ptr<Screen> screen() const;
    /// The interface that the layer shows. Empty if the layer shows nothing or another kind of
    /// source, or if the device does not have the interface.
    std::weak_ptr<Interface> source() const;

Q_SIGNALS:
    /// The record of the layer changed. Emitted on the thread that changed it.
    void layerChanged();

private:
    friend class DeviceBuilder;
    friend class DevicePrivate;
    friend class DeviceUpdater;
    friend class Interface;
    /// Replaces the record by one that was read, whose crops show a picture of this size. Returns
    /// false if they are equal.
    bool assign(ProtoModel::Layer::s_LayerFullDetail read, const UserSettings &settings,
                const QSize &picture);
    /// Restores the kept pixels of the crops.
    void restoreCrops(const UserSettings &settings);
    /// Computes the pixels of the crops for a picture of this size. Returns true if they changed.
    bool fitCrops(const QSize &picture);
    /// Does the same, and emits layerChanged() if they changed.
    void fitInputCrop(const QSize &picture);

    const std::unique_ptr<LayerPrivate> d;
};

} // namespace Tavoro::BizModel
