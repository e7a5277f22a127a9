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
struct Link;
}

/// Commands the layers on the screens of one device: adds, removes, stacks and shapes them.
///
/// Cheap to make; holds no state of the layers and never touches the model. Every list may name
/// many layers: they travel in one command and get one answer. An empty list is sent as it stands.
///
/// Every operation blocks its caller until the device has answered, at most for the time that the
/// device's timeout table has for the command, plus 10 s per packet where it takes several. It may
/// be called from any thread but the channels' own, where it fails with status 261. It returns true
/// for success. On failure it returns false, and \a error holds the sentence that was shown on the
/// status bar; for a packet of a split write that is refused, the reason alone; for an answer that
/// cannot be decoded, "Decode json failed: …". On success \a error is left alone. A device without
/// a channel takes every write as done, and answers every read with nothing, which then fails to
/// decode.
class TAVOROCONTROL_EXPORT Layer : public QObject {
    Q_OBJECT

public:
    explicit Layer(std::weak_ptr<BizModel::Device> device, QObject *parent = nullptr);
    ~Layer() override;

    /// Reads layers (code 0x1400) and appends them to \a result. -1 restricts nothing, and so does
    /// 0 as \a screenType; of each filter only the low byte travels. \a third is the scene (4
    /// programme, 2 preview), \a fourth the type of the layer. An answer that cannot be decoded
    /// gives "Decode json failed: …" in \a error.
    bool readDetails(int screenId, int screenType, int third, int fourth,
                     std::vector<ProtoModel::Layer::s_LayerFullDetail> &result, QString &error);

    /// Creates layers whole, or replaces them (0x1400).
    bool writeEnableAll(const std::vector<ProtoModel::Layer::s_LayerFullDetail> &layers,
                        QString &error);
    /// Creates layers, or switches them on, with source and window (0x1401).
    bool writeEnable(const std::vector<ProtoModel::Layer::s_LayerEnable> &layers, QString &error);
    /// Stacks layers (0x1402).
    bool writeZOrder(const std::vector<ProtoModel::Layer::s_LayerZorder> &layers, QString &error);
    /// Names, freezes, flips layers (0x1403).
    bool writeGeneral(const std::vector<ProtoModel::Layer::s_LayerGeneral> &layers, QString &error);
    /// Chooses what layers show, and which part of it (0x1404).
    bool writeSource(const std::vector<ProtoModel::Layer::s_LayerSource> &layers, QString &error);
    /// Moves and sizes layers on their screen, in pixels (0x1405).
    bool writeWindow(const std::vector<ProtoModel::Layer::s_LayerWindow> &layers, QString &error);
    /// Covers the edges of layers (0x1406).
    bool writeMask(const std::vector<ProtoModel::Layer::s_LayerMask> &layers, QString &error);
    /// Fills layers with a test colour (0x1407).
    bool writeColor(const std::vector<ProtoModel::Layer::s_LayerColor> &layers, QString &error);
    /// Makes layers transparent; 100 is opaque (0x1408).
    bool writeOpacity(const std::vector<ProtoModel::Layer::s_LayerOpacity> &layers, QString &error);
    /// Sets contrast, brightness, hue, saturation and gamma (0x1409).
    bool writeImageQuality(const std::vector<ProtoModel::Layer::s_LayerImageQuality> &layers,
                           QString &error);
    /// Gives layers a shadow (0x140A).
    bool writeShadow(const std::vector<ProtoModel::Layer::s_LayerShadow> &layers, QString &error);
    /// Gives layers a border (0x140B).
    bool writeBorder(const std::vector<ProtoModel::Layer::s_LayerBorder> &layers, QString &error);
    /// Selects layers for the device's own panel (0x140C).
    bool writeSelected(const std::vector<ProtoModel::Layer::s_LayerSelected> &layers,
                       QString &error);
    /// Sets the under-monitor displays of layers (0x140D).
    bool writeUMD(const std::vector<ProtoModel::Layer::s_LayerUMD> &layers, QString &error);
    /// Removes the listed layers (0x140E).
    bool writeRemoved(const std::vector<ProtoModel::Layer::s_LayerRemoved> &layers, QString &error);
    /// Binds layers as cut and fill (0x1410).
    bool writeCutAndFill(std::vector<ProtoModel::Layer::s_CutFill> layers, QString &error);

    /// Removes all layers of a screen (0x140E). The head alone names the screen; the body is an
    /// empty list.
    bool writeRemovedAll(unsigned char screenId, unsigned char screenType, QString &error);

private:
    Internal::Link link() const;

    const std::weak_ptr<BizModel::Device> m_device;
    const std::shared_ptr<ControlHelper> m_helper;
};

} // namespace Tavoro::Control
