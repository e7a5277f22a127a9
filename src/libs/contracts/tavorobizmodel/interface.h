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
class UserSettings;

/// One connector of a device, input or output. Created by its device. All members may be called
/// from any thread; none of them sends anything to the device.
class TAVOROBIZMODEL_EXPORT Interface : public QObject {
    Q_OBJECT

public:
    /// For Device, which creates its interfaces.
    Interface(const ProtoModel::Interface::s_InterfaceDetail &detail, std::weak_ptr<Device> device);
    ~Interface() override;

    /// Stores name and kind. Emits interfaceChanged(), as every setter does.
    void setGeneral(const ProtoModel::Interface::s_InterfaceGeneralBody &general);
    /// Stores the timing that the device measures, and recomputes the pixels of the interface's own
    /// crop. updateLayerInputCrop() does the same for the crops of the layers.
    void setActualTiming(ProtoModel::s_TimingDetailBody timing);
    /// Stores the colour depths, measured and requested.
    void setColorDepth(ProtoModel::s_ColorDepthBody depth);
    /// Stores the colour spaces, measured and requested.
    void setColorSpace(ProtoModel::s_ColorSpaceBody space);
    /// Stores the colour ranges, measured and requested.
    void setColorRange(ProtoModel::s_ColorRangeBody range);
    /// Stores colour gamut and dynamic range.
    void setHDR(ProtoModel::s_HDRBody hdr);
    /// Recomputes the crops in pixels (\c rect) of the layers that show this interface. Call it
    /// after the timing has changed. Without a video signal the crops keep their last pixels. Emits
    /// Layer::layerChanged() for each layer whose crops changed, and then layerInputCropOutdated().
    void updateLayerInputCrop();

    /// \name For applications
    /// The control library itself does not call these.
    /// @{

    /// Slot, connector and split connector; never changes.
    ProtoModel::s_InterfaceID interfaceId() const;
    /// A copy of the record of the interface.
    ProtoModel::Interface::s_InterfaceDetail detail() const;
    /// The device that has the interface; expired when the device is gone.
    std::weak_ptr<Device> device() const;
    /// The screen whose mosaic contains this output, or an empty pointer.
    std::weak_ptr<Screen> screen() const;
    /// The layers that show this input.
    QList<std::weak_ptr<Layer>> layers() const;
    /// @}

Q_SIGNALS:
    /// \name For applications
    /// @{

    /// The record of the interface changed. Emitted on the thread that changed it.
    void interfaceChanged();
    /// The timing changed, so that crops which an application shows in pixels may be out of date.
    /// The crops of the layers were updated before the signal. Emitted on the thread that called
    /// updateLayerInputCrop().
    void layerInputCropOutdated();
    /// @}

private:
    friend class DeviceBuilder;
    friend class DevicePrivate;
    friend class DeviceUpdater;
    /// Replaces the record by one that was read. Returns false if they are equal.
    bool assign(ProtoModel::Interface::s_InterfaceDetail read, const UserSettings &settings);
    /// Restores the kept pixels of the crop, and recomputes them if there is a video signal.
    void restoreCrop(const UserSettings &settings);

    const std::unique_ptr<InterfacePrivate> d;
};

} // namespace Tavoro::BizModel
