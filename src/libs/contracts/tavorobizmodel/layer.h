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

/// One layer of a screen, for applications: the control library itself calls nothing here. Made by
/// its device. All members may be called from any thread.
class TAVOROBIZMODEL_EXPORT Layer : public QObject {
    Q_OBJECT

public:
    Layer(const ProtoModel::Layer::s_LayerFullDetail &detail, std::weak_ptr<Device> device);
    ~Layer() override;

    ProtoModel::Layer::s_LayerIdentity identity() const;
    /// What is known of the layer. The \c rect of each crop of its source follows the timing of the
    /// interface that it shows.
    ProtoModel::Layer::s_LayerFullDetail detail() const;

    std::weak_ptr<Device> device() const;
    std::weak_ptr<Screen> screen() const;
    /// The interface that the layer shows. Empty when it shows nothing or something else, and when
    /// the device has no such interface.
    std::weak_ptr<Interface> source() const;

Q_SIGNALS:
    /// Something of the layer changed. Emitted on the thread that changed it.
    void layerChanged();

private:
    friend class Interface;
    /// Works out the crops anew for a picture of this size.
    void fitInputCrop(const QSize &picture);

    const std::unique_ptr<LayerPrivate> d;
};

} // namespace Tavoro::BizModel
