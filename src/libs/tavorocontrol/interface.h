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
struct OperationTarget;
}

/// Controls the interfaces of one device: the connectors of its inputs and outputs.
///
/// The device reports changes of name and kind, of the measured timing, and of colour depth, space,
/// range and HDR; these reports change the model. All other written values (test pattern, image
/// quality, crop, cutout, HDCP, format mapping) are in the model after the next synchronisation.
///
/// \ingroup operations
class TAVOROCONTROL_EXPORT Interface : public QObject,
                                       public std::enable_shared_from_this<Interface> {
    Q_OBJECT

public:
    /// Creates a control object for \a device, which may already be gone. Any thread.
    explicit Interface(std::weak_ptr<BizModel::Device> device, QObject *parent = nullptr);
    ~Interface() override;

    /// Reads interfaces and appends them to \a result (code 0x1200).
    ///
    /// \a first filters by the kind of interface; 0 does not filter. Pass -1 as \a second; its
    /// meaning is defined by the device. Only the low byte of each filter is sent. If the answer
    /// cannot be decoded, \a result holds the interfaces before the error. Blocks for at most 100
    /// s, unless the application changed the timeout table.
    bool readDetails(int first, int second,
                     std::vector<ProtoModel::Interface::s_InterfaceDetail> &result, QString &error);

    /// Sets the names of interfaces (0x1201).
    bool writeInterfaceGeneral(const std::vector<ProtoModel::Interface::s_General> &interfaces,
                               QString &error);
    /// Sends the same command as writeInterfaceGeneral() (0x1201).
    bool writeInterfaceName(const std::vector<ProtoModel::Interface::s_General> &interfaces,
                            QString &error);
    /// Shows or hides a test pattern (0x1202).
    bool writeTestPattern(const std::vector<ProtoModel::Interface::s_TestPattern> &interfaces,
                          QString &error);
    /// Requests a video timing (0x1203). The device reports the resulting timing (0x1204).
    bool
    writePresetTiming(const std::vector<ProtoModel::Interface::s_PresetTimingDetail> &interfaces,
                      QString &error);
    /// Sets contrast, brightness, hue, saturation and gamma (0x1205).
    bool writeImageQuality(const std::vector<ProtoModel::Interface::s_ImageQuality> &interfaces,
                           QString &error);
    /// Crops inputs, in units of 1/100000 of their size (0x1206).
    bool writeCrop(const std::vector<ProtoModel::Interface::s_CropDetail> &interfaces,
                   QString &error);
    /// Cuts a colour or a brightness out of inputs (0x1207).
    bool writeCutoutGeneral(const std::vector<ProtoModel::Interface::s_CutoutGeneral> &interfaces,
                            QString &error);
    /// Switches copy protection on or off (0x1208).
    bool writeHDCP(const std::vector<ProtoModel::Interface::s_HDCP> &interfaces, QString &error);
    /// Requests a colour depth (0x1209).
    bool
    writeInterfaceColorDepth(const std::vector<ProtoModel::Interface::s_ColorDepth> &interfaces,
                             QString &error);
    /// Requests a colour space (0x120A).
    bool
    writeInterfaceColorSpace(const std::vector<ProtoModel::Interface::s_ColorSpace> &interfaces,
                             QString &error);
    /// Requests a colour range (0x120B).
    bool
    writeInterfaceColorRange(const std::vector<ProtoModel::Interface::s_ColorRange> &interfaces,
                             QString &error);
    /// Selects the format mapping (0x120C).
    bool writeInterfaceFormatMapping(
        const std::vector<ProtoModel::Interface::s_FormatMapping> &interfaces, QString &error);
    /// Sets gamut and dynamic range (0x120D).
    bool writeInterfaceHDR(const std::vector<ProtoModel::Interface::s_DHR> &interfaces,
                           QString &error);
    /// Sends nothing and returns false, with \a error unchanged: the device measures timings.
    bool
    writeActualTiming(const std::vector<ProtoModel::Interface::s_ActualTimingDetail> &interfaces,
                      QString &error);

    /// \name Reports
    /// AutoReportManager calls these to apply the device's reports to the model. \a body is the
    /// JSON of the report.
    ///
    /// An interface that the model does not have is logged and skipped. Returns false with "Decode
    /// json failed: …" in \a error for a body that cannot be decoded, and false with \a error
    /// unchanged if the model device is gone. Any thread; none blocks.
    /// @{

    /// Applies measured timings, and updates the crops of the layers that show the interfaces
    /// (0x1204).
    bool updateActualTiming(const std::string &body, QString &error);
    /// Applies names and kinds (0x1201).
    bool updateInterfaceGeneralInfo(const std::string &body, QString &error);
    /// Applies colour depths (0x1209).
    bool updateInterfaceBitDepthInfo(const std::string &body, QString &error);
    /// Applies colour spaces (0x120A).
    bool updateInterfaceColorSpacesInfo(const std::string &body, QString &error);
    /// Applies colour ranges (0x120B).
    bool updateInterfaceColorRangesInfo(const std::string &body, QString &error);
    /// Applies gamuts and dynamic ranges (0x120D).
    bool updateInterfaceHDRInfo(const std::string &body, QString &error);

    /// @}

private:
    Internal::OperationTarget target() const;

    const std::weak_ptr<BizModel::Device> m_device;
    const std::shared_ptr<ControlHelper> m_helper;
};

} // namespace Tavoro::Control
