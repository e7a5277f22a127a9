#pragma once

#include <tavorocontrol/export.h>
#include <tavorocontrol/proto/layer.h>

#include <QObject>
#include <QString>

#include <memory>
#include <vector>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control {

class ControlHelper;

namespace Internal {
struct OperationTarget;
}

/// Controls the layers on the screens of one device: adds, removes, stacks and shapes them.
///
/// The device does not report changes of layers: the model has the new state after the next
/// synchronisation.
///
/// \ingroup operations
class TAVOROCONTROL_EXPORT Layer : public QObject {
    Q_OBJECT

public:
    /// Creates a control object for \a device, which may already be gone. Any thread.
    explicit Layer(std::weak_ptr<BizModel::Device> device, QObject *parent = nullptr);
    ~Layer() override;

    /// Reads layers and appends them to \a result (code 0x1400).
    ///
    /// The filters are the ID and type of the screen, the scene (\a third: 2 preview, 4 programme)
    /// and the type of the layer (\a fourth). -1 does not filter; 0 as \a screenType does not
    /// filter either. Only the low byte of each filter is sent. If the answer cannot be decoded,
    /// \a result holds the layers before the error.
    bool readDetails(int screenId, int screenType, int third, int fourth,
                     std::vector<ProtoModel::Layer::s_LayerFullDetail> &result, QString &error);

    /// Creates layers with all their properties, or replaces them (0x1400).
    bool writeEnableAll(const std::vector<ProtoModel::Layer::s_LayerFullDetail> &layers,
                        QString &error);
    /// Creates layers, or switches them on, with stacking order, source, window and border
    /// (0x1401).
    bool writeEnable(const std::vector<ProtoModel::Layer::s_LayerEnable> &layers, QString &error);
    /// Sets the stacking order of layers (0x1402).
    bool writeZOrder(const std::vector<ProtoModel::Layer::s_LayerZorder> &layers, QString &error);
    /// Sets name, freeze, monochrome, inversion and flip of layers (0x1403).
    bool writeGeneral(const std::vector<ProtoModel::Layer::s_LayerGeneral> &layers, QString &error);
    /// Selects what layers show, and which part of it (0x1404).
    bool writeSource(const std::vector<ProtoModel::Layer::s_LayerSource> &layers, QString &error);
    /// Moves and resizes layers on their screen, in pixels (0x1405).
    bool writeWindow(const std::vector<ProtoModel::Layer::s_LayerWindow> &layers, QString &error);
    /// Masks the edges of layers (0x1406).
    bool writeMask(const std::vector<ProtoModel::Layer::s_LayerMask> &layers, QString &error);
    /// Shows a test colour instead of the source of layers, or the source again (0x1407).
    bool writeColor(const std::vector<ProtoModel::Layer::s_LayerColor> &layers, QString &error);
    /// Sets the opacity of layers, from 0 (transparent) to 100 (opaque) (0x1408).
    bool writeOpacity(const std::vector<ProtoModel::Layer::s_LayerOpacity> &layers, QString &error);
    /// Sets contrast, brightness, hue, saturation and gamma of layers (0x1409).
    bool writeImageQuality(const std::vector<ProtoModel::Layer::s_LayerImageQuality> &layers,
                           QString &error);
    /// Sets the shadow of layers (0x140A).
    bool writeShadow(const std::vector<ProtoModel::Layer::s_LayerShadow> &layers, QString &error);
    /// Sets the border of layers (0x140B).
    bool writeBorder(const std::vector<ProtoModel::Layer::s_LayerBorder> &layers, QString &error);
    /// Selects layers on the device's own panel (0x140C).
    bool writeSelected(const std::vector<ProtoModel::Layer::s_LayerSelected> &layers,
                       QString &error);
    /// Sets the under-monitor displays of layers (0x140D).
    bool writeUMD(const std::vector<ProtoModel::Layer::s_LayerUMD> &layers, QString &error);
    /// Removes the listed layers (0x140E). An empty list removes none.
    bool writeRemoved(const std::vector<ProtoModel::Layer::s_LayerRemoved> &layers, QString &error);
    /// Binds layers to partners as cut and fill, or releases them (0x1410).
    bool writeCutAndFill(std::vector<ProtoModel::Layer::s_CutFill> layers, QString &error);

    /// Removes all layers of one screen (0x140E). The head of the request names the screen; the
    /// body is an empty list.
    bool writeRemovedAll(unsigned char screenId, unsigned char screenType, QString &error);

private:
    Internal::OperationTarget target() const;

    const std::weak_ptr<BizModel::Device> m_device;
    const std::shared_ptr<ControlHelper> m_helper;
};

} // namespace Tavoro::Control
