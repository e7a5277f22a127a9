#pragma once

#include <tavorocontrol/export.h>
#include <tavorocontrol/proto/interface.h>

#include <QObject>
#include <QString>

#include <memory>
#include <string>
#include <vector>

namespace Tavoro::BizModel {
class Device;
}

namespace Tavoro::Control {

class ControlHelper;

namespace Internal {
struct Link;
}

/// Commands the interfaces of one device: the connectors of its inputs and outputs.
///
/// Cheap to make; holds no state of the interfaces. Every list may name many interfaces: they
/// travel in one command and get one answer. An empty list is sent as it stands.
///
/// Every operation blocks its caller until the device has answered, at most for the time that the
/// device's timeout table has for the command, plus 10 s per packet where it takes several. It may
/// be called from any thread but the channels' own, where it fails with status 261. It returns true
/// for success. On failure it returns false, and \a error holds the sentence that was shown on the
/// status bar; for a packet of a split write that is refused, the reason alone; for an answer that
/// cannot be decoded, "Decode json failed: …". On success \a error is left alone. A device without
/// a channel takes every write as done, and answers every read with nothing, which then fails to
/// decode. Writes do not touch the model: it follows by the device's own reports.
class TAVOROCONTROL_EXPORT Interface : public QObject,
                                       public std::enable_shared_from_this<Interface> {
    Q_OBJECT

public:
    explicit Interface(std::weak_ptr<BizModel::Device> device, QObject *parent = nullptr);
    ~Interface() override;

    /// Reads interfaces (code 0x1200) and appends them to \a result. \a first restricts the kind of
    /// interface, 0 restricts nothing; the meaning of \a second belongs to the device: pass -1. Of
    /// each filter only the low byte travels. An answer that cannot be decoded gives "Decode json
    /// failed: …" in \a error.
    bool readDetails(int first, int second,
                     std::vector<ProtoModel::Interface::s_InterfaceDetail> &result, QString &error);

    /// Names interfaces and sets their kind (0x1201).
    bool writeInterfaceGeneral(const std::vector<ProtoModel::Interface::s_General> &interfaces,
                               QString &error);
    /// The same command as writeInterfaceGeneral(), under a second name (0x1201).
    bool writeInterfaceName(const std::vector<ProtoModel::Interface::s_General> &interfaces,
                            QString &error);
    /// Shows or hides a test pattern (0x1202).
    bool writeTestPattern(const std::vector<ProtoModel::Interface::s_TestPattern> &interfaces,
                          QString &error);
    /// Asks for a video timing (0x1203).
    bool
    writePresetTiming(const std::vector<ProtoModel::Interface::s_PresetTimingDetail> &interfaces,
                      QString &error);
    /// Sets contrast, brightness, hue, saturation and gamma (0x1205).
    bool writeImageQuality(const std::vector<ProtoModel::Interface::s_ImageQuality> &interfaces,
                           QString &error);
    /// Crops inputs, in hundred-thousandths of their size (0x1206).
    bool writeCrop(const std::vector<ProtoModel::Interface::s_CropDetail> &interfaces,
                   QString &error);
    /// Keys a colour or a brightness out of inputs (0x1207).
    bool writeCutoutGeneral(const std::vector<ProtoModel::Interface::s_CutoutGeneral> &interfaces,
                            QString &error);
    /// Switches copy protection (0x1208).
    bool writeHDCP(const std::vector<ProtoModel::Interface::s_HDCP> &interfaces, QString &error);
    /// Asks for a colour depth (0x1209).
    bool
    writeInterfaceColorDepth(const std::vector<ProtoModel::Interface::s_ColorDepth> &interfaces,
                             QString &error);
    /// Asks for a colour space (0x120A).
    bool
    writeInterfaceColorSpace(const std::vector<ProtoModel::Interface::s_ColorSpace> &interfaces,
                             QString &error);
    /// Asks for a colour range (0x120B).
    bool
    writeInterfaceColorRange(const std::vector<ProtoModel::Interface::s_ColorRange> &interfaces,
                             QString &error);
    /// Chooses the format mapping (0x120C).
    bool writeInterfaceFormatMapping(
        const std::vector<ProtoModel::Interface::s_FormatMapping> &interfaces, QString &error);
    /// Sets gamut and dynamic range (0x120D).
    bool writeInterfaceHDR(const std::vector<ProtoModel::Interface::s_DHR> &interfaces,
                           QString &error);
    /// Sends nothing and returns false, with \a error left alone: timings are measured by the
    /// device.
    bool
    writeActualTiming(const std::vector<ProtoModel::Interface::s_ActualTimingDetail> &interfaces,
                      QString &error);

    /// \name Reports
    /// Apply what the device told of its own accord to the model. \a body is the report's JSON. An
    /// interface that the model does not have is logged and passed over. False with "Decode json
    /// failed: …" for a body that cannot be decoded, false without a text if the model device is
    /// gone.
    /// @{
    /// Also brings the crops of the layers that show the interface up to date.
    bool updateActualTiming(const std::string &body, QString &error);
    bool updateInterfaceGeneralInfo(const std::string &body, QString &error);
    bool updateInterfaceBitDepthInfo(const std::string &body, QString &error);
    bool updateInterfaceColorSpacesInfo(const std::string &body, QString &error);
    bool updateInterfaceColorRangesInfo(const std::string &body, QString &error);
    bool updateInterfaceHDRInfo(const std::string &body, QString &error);
    /// @}

private:
    Internal::Link link() const;

    const std::weak_ptr<BizModel::Device> m_device;
    const std::shared_ptr<ControlHelper> m_helper;
};

} // namespace Tavoro::Control
