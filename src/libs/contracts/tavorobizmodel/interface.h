#pragma once

#include <tavorobizmodel/export.h>
#include <tavorocontrol/proto/interface.h>

#include <QList>
#include <QObject>

#include <memory>

namespace Tavoro::BizModel {

class Device;
class InterfacePrivate;
class Layer;
class Screen;

/// One connector of a device, input or output. Made by its device. All members may be called from
/// any thread.
class TAVOROBIZMODEL_EXPORT Interface : public QObject {
    Q_OBJECT

public:
    Interface(const ProtoModel::Interface::s_InterfaceDetail &detail, std::weak_ptr<Device> device);
    ~Interface() override;

    void setGeneral(const ProtoModel::Interface::s_InterfaceGeneralBody &general);
    /// Stores the timing that the device measured.
    void setActualTiming(ProtoModel::s_TimingDetailBody timing);
    void setColorDepth(ProtoModel::s_ColorDepthBody depth);
    void setColorSpace(ProtoModel::s_ColorSpaceBody space);
    void setColorRange(ProtoModel::s_ColorRangeBody range);
    void setHDR(ProtoModel::s_HDRBody hdr);
    /// After a change of timing: works out anew which pixels the layers that show this interface
    /// crop from it, the \c rect of each of their crops. Without a signal they keep the last ones.
    void updateLayerInputCrop();

    /// \name For applications
    /// What the control library itself does not call.
    /// @{
    ProtoModel::s_InterfaceID interfaceId() const;
    /// What is known of the interface.
    ProtoModel::Interface::s_InterfaceDetail detail() const;
    std::weak_ptr<Device> device() const;
    /// The screen that has this output in its mosaic, or an empty pointer.
    std::weak_ptr<Screen> screen() const;
    /// The layers that show this input.
    QList<std::weak_ptr<Layer>> layers() const;
    /// @}

Q_SIGNALS:
    /// \name For applications
    /// @{
    /// Something of the interface changed. Emitted on the thread that changed it.
    void interfaceChanged();
    /// The timing changed, so that crops shown in pixels may be out of date. Those of the layers
    /// have followed when this is emitted.
    void layerInputCropOutdated();
    /// @}

private:
    const std::unique_ptr<InterfacePrivate> d;
};

} // namespace Tavoro::BizModel
