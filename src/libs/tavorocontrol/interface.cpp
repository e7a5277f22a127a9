#include <tavorocontrol/interface.h>

#include "logging_p.h"
#include "operation_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/interface.h>
#include <tavorocontrol/controlhelper.h>

#include <QByteArray>

namespace Tavoro::Control {

namespace {

using namespace Internal;
using namespace ProtoModel::Interface;
using ProtoModel::s_InterfaceID;
using SSProxy::Command;

// clang-format off
// Each row applies one kind of report to the model.
void applyReport(BizModel::Interface &interface, const s_General &report)    { interface.setGeneral(report.general); }
void applyReport(BizModel::Interface &interface, const s_ColorDepth &report) { interface.setColorDepth(report.colorDepths); }
void applyReport(BizModel::Interface &interface, const s_ColorSpace &report) { interface.setColorSpace(report.colorSpaces); }
void applyReport(BizModel::Interface &interface, const s_ColorRange &report) { interface.setColorRange(report.colorRanges); }
void applyReport(BizModel::Interface &interface, const s_DHR &report)        { interface.setHDR(report.HDR); }
// clang-format on

void applyReport(BizModel::Interface &interface, const s_ActualTimingDetail &report)
{
    interface.setActualTiming(report.actualTiming);
    interface.updateLayerInputCrop();
}

/// Packs an identity into one number for the log.
quint32 packed(const s_InterfaceID &id)
{
    return (quint32(id.slotId) << 8 | quint32(id.connectorId)) << 8 | quint32(id.splitId);
}

/// Applies a report to each interface in it. \a what names the report in the log.
template <class Report>
bool update(const std::weak_ptr<BizModel::Device> &weakDevice, const std::string &body,
            QString &error, const char *what)
{
    std::vector<Report> reports;
    if (!decode(body, reports, error))
        return false;
    const auto failed = [what](const char *why) {
        return QByteArrayLiteral("Process auto report ") + what + " failed:" + why;
    };
    const auto device = weakDevice.lock();
    if (!device) {
        qCWarning(controlLog) << failed(" device is null.").constData();
        return false; // Kept: without a text.
    }
    for (const Report &report : reports) {
        const s_InterfaceID &id = report;
        if (const auto interface = device->findInterface(id).lock())
            applyReport(*interface, report);
        else
            qCWarning(controlLog) << failed("Can not find the interface:").constData()
                                  << packed(id);
    }
    return true;
}

} // namespace

template <class Record>
using List = const std::vector<Record> &;

using Json = std::string;

Interface::Interface(std::weak_ptr<BizModel::Device> device, QObject *parent)
    : QObject(parent), m_device(std::move(device)), m_helper(std::make_shared<ControlHelper>())
{ }

Interface::~Interface() = default;

OperationTarget Interface::target() const
{
    return {m_device, *m_helper};
}

// clang-format off
// Each row encodes the list and sends it as a write; the status bar shows a success.
// Kept: the first two send the same command.
bool Interface::writeInterfaceGeneral      (List<s_General> l,            QString &error) { return write(target(), Command::InterfaceGeneral,       l, error); }
bool Interface::writeInterfaceName         (List<s_General> l,            QString &error) { return write(target(), Command::InterfaceGeneral,       l, error); }
bool Interface::writeTestPattern           (List<s_TestPattern> l,        QString &error) { return write(target(), Command::InterfaceTestPattern,   l, error); }
bool Interface::writePresetTiming          (List<s_PresetTimingDetail> l, QString &error) { return write(target(), Command::InterfacePresetTiming,  l, error); }
bool Interface::writeImageQuality          (List<s_ImageQuality> l,       QString &error) { return write(target(), Command::InterfaceImageQuality,  l, error); }
bool Interface::writeCrop                  (List<s_CropDetail> l,         QString &error) { return write(target(), Command::InterfaceCrop,          l, error); }
bool Interface::writeCutoutGeneral         (List<s_CutoutGeneral> l,      QString &error) { return write(target(), Command::InterfaceCutoutGeneral, l, error); }
bool Interface::writeHDCP                  (List<s_HDCP> l,               QString &error) { return write(target(), Command::InterfaceHDCP,          l, error); }
bool Interface::writeInterfaceColorDepth   (List<s_ColorDepth> l,         QString &error) { return write(target(), Command::InterfaceColorDepth,    l, error); }
bool Interface::writeInterfaceColorSpace   (List<s_ColorSpace> l,         QString &error) { return write(target(), Command::InterfaceColorSpace,    l, error); }
bool Interface::writeInterfaceColorRange   (List<s_ColorRange> l,         QString &error) { return write(target(), Command::InterfaceColorRange,    l, error); }
bool Interface::writeInterfaceFormatMapping(List<s_FormatMapping> l,      QString &error) { return write(target(), Command::InterfaceFormatMapping, l, error); }
bool Interface::writeInterfaceHDR          (List<s_DHR> l,                QString &error) { return write(target(), Command::InterfaceHDR,           l, error); }

// Each row decodes a report and applies it to the interfaces in the model.
bool Interface::updateActualTiming            (const Json &b, QString &error) { return update<s_ActualTimingDetail>(m_device, b, error, "actual timing"); }
bool Interface::updateInterfaceGeneralInfo    (const Json &b, QString &error) { return update<s_General>(m_device, b, error, "interface general info"); }
bool Interface::updateInterfaceBitDepthInfo   (const Json &b, QString &error) { return update<s_ColorDepth>(m_device, b, error, "interface colorDepths info"); }
bool Interface::updateInterfaceColorSpacesInfo(const Json &b, QString &error) { return update<s_ColorSpace>(m_device, b, error, "interface colorSpaces info"); }
bool Interface::updateInterfaceColorRangesInfo(const Json &b, QString &error) { return update<s_ColorRange>(m_device, b, error, "interface colorRanges info"); }
bool Interface::updateInterfaceHDRInfo        (const Json &b, QString &error) { return update<s_DHR>(m_device, b, error, "interface HDR info"); }
// clang-format on

bool Interface::readDetails(int first, int second, std::vector<s_InterfaceDetail> &result,
                            QString &error)
{
    return readRecord(target(), Command::InterfaceDetail, result, error,
                      {{33, first}, {32, second}}, Timeout{100000});
}

// Kept: encodes the list, drops the body, sends nothing and fails without a text.
bool Interface::writeActualTiming(const std::vector<s_ActualTimingDetail> &interfaces, QString &)
{
    std::string body;
    ajson::encodeRecord(interfaces, body);
    return false;
}

} // namespace Tavoro::Control
