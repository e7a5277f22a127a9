#include "autoreportmanager_p.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/bodylog_p.h>
#include <tavorocontrol/device.h>
#include <tavorocontrol/file.h>
#include <tavorocontrol/interface.h>
#include <tavorocontrol/logging_p.h>
#include <tavorocontrol/proto/hexdigits.h>
#include <tavorocontrol/request/commandlabels_p.h>
#include <tavorocontrol/screen.h>
#include <tavorossproxy/commandcodes.h>
#include <tavorossproxy/devicechannel.h>
#include <tavorossproxy/devicecommand.h>
#include <tavorossproxy/devicemanager.h>

namespace Tavoro::Control::Internal {

namespace {

using SSProxy::Command;
using SSProxy::DeviceManager;

/// The key of a handler: the base code in the low byte and the function code in the high byte, the
/// reverse of a command code.
constexpr quint16 reportKey(quint8 BC, quint8 FC)
{
    return static_cast<quint16>(FC << 8 | BC);
}

QString twoDigits(quint8 code)
{
    return QStringLiteral("%1").arg(code, 2, 16, QLatin1Char('0'));
}

std::shared_ptr<BizModel::Device> modelOf(const SSProxy::DeviceChannel &channel)
{
    const ProtoModel::DeviceBaseInfo info = channel.deviceBaseInfo();
    const QString ip = QString::fromStdString(info.ip);
    const QString mac = QString::fromStdString(ProtoModel::hexDigits(info.mac));
    const QString sn = QString::fromStdString(ProtoModel::hexDigits(info.sn));
    return BizModel::DeviceList::instance()->findDevice(ip, mac, sn).lock();
}

/// Applies a report with a control object on the stack. Logs \a failed if that fails.
template <class ControlClass>
bool applyReport(bool (ControlClass::*update)(const std::string &, QString &),
                 const std::weak_ptr<BizModel::Device> &device, const std::string &body,
                 const char *failed, bool resultOnFailure)
{
    ControlClass control(device, nullptr);
    QString error;
    if ((control.*update)(body, error))
        return true;
    qCWarning(controlLog) << failed << error;
    return resultOnFailure;
}

/// Makes the log lines about one report.
class ReportLog {
public:
    explicit ReportLog(SSProxy::IDeviceCommand &command)
        : m_base(twoDigits(command.head().BC)),
          m_function(twoDigits(command.head().FC)),
          m_label(commandLabel(command.head().BC, command.head().FC)),
          m_body(command.body())
    { }

    void logUnknownDevice() const
    {
        qCDebug(controlLog) << QStringLiteral(
                                   "TavoroCmd auto report BC(%1), FC(%2),device model is null, "
                                   "report cmd: %3, report info: ")
                                   .arg(m_base, m_function, m_label)
                            << QString::fromStdString(m_body);
    }

    void logStopped(const BizModel::Device &device) const
    {
        qCDebug(controlLog)
            << QStringLiteral("TavoroCmd auto report: %4 %5 BC(%1), FC(%2),auto report is closed "
                              "by spacial task, report cmd: %3, report info: ")
                   .arg(m_base, m_function, m_label, device.name(), device.ipMacSn())
            << LoggedBody{&device, m_body};
    }

    void logUnknownCode(const BizModel::Device &device) const
    {
        qCWarning(controlLog)
            << QStringLiteral("TavoroCmd auto report:%3 %4 Not support auto report cmd, base code "
                              "%1,functionCode %2.")
                   .arg(m_base, m_function, device.name(), device.ipMacSn());
    }

    void logHandled(const BizModel::Device &device, bool result) const
    {
        qCDebug(controlLog)
            << QStringLiteral("TavoroCmd auto report:%5 %6 BC(%1), FC(%2).Process result: %3, %4")
                   .arg(m_base, m_function, QString::number(result), m_label, device.name(),
                        device.ipMacSn())
            << LoggedBody{&device, m_body};
    }

private:
    const QString m_base;
    const QString m_function;
    const QString m_label;
    const std::string &m_body;
};

} // namespace

AutoReportManagerPrivate::AutoReportManagerPrivate(AutoReportManager *manager) : q(manager)
{
    fillReportHandlers();
    qRegisterMetaType<std::weak_ptr<SSProxy::DeviceChannel>>("std::weak_ptr<DeviceChannel>");
    qRegisterMetaType<std::shared_ptr<SSProxy::IDeviceCommand>>("std::shared_ptr<IDeviceCommand>");
    connect(DeviceManager::instance(), &DeviceManager::parseDeviceAutoReportFinished, this,
            &AutoReportManagerPrivate::slotReceiveDeviceAutoReportInfo, Qt::AutoConnection);
}

AutoReportManagerPrivate::~AutoReportManagerPrivate() = default;

using Reports = AutoReportManagerPrivate;

// clang-format off
// Each row names the operation that applies the report, the text that a failure logs, and the result that is logged then.
bool Reports::receiveAutoReportSubcards(WeakDevice device, const std::string &body)
{ return applyReport(&Device::updateSubcardsInfo, device, body, "Process subcard auto report info failed ", true); }
bool Reports::receiveAutoReportPowerInfo(WeakDevice device, const std::string &body)
{ return applyReport(&Device::updatePowerConfig, device, body, "Process power info auto report info failed ", true); }
bool Reports::receiveAutoReportGenlockStatus(WeakDevice device, const std::string &body)
{ return applyReport(&Device::updateGenlockStatus, device, body, "Process device genlock status auto report info failed ", true); }
bool Reports::receiveAutoReportDeviceGroupInfo(WeakDevice device, const std::string &body)
{ return applyReport(&Device::updateDeviceGroupInfo, device, body, "Process device group information auto report info failed ", false); }
bool Reports::receiveAutoReportInterfaceRelationInfo(WeakDevice device, const std::string &body)
{ return applyReport(&Device::updateInterfaceRelationInfo, device, body, "Process device interface relation auto report info failed ", false); }
bool Reports::receiveAutoReportInterfaceGeneralInfo(WeakDevice device, const std::string &body)
{ return applyReport(&Interface::updateInterfaceGeneralInfo, device, body, "Process interface general info auto report info failed ", true); }
bool Reports::receiveAutoReportInterfaceActualTiming(WeakDevice device, const std::string &body)
{ return applyReport(&Interface::updateActualTiming, device, body, "Process interface actual timing auto report info failed ", true); }
bool Reports::receiveAutoReportInterfaceBitDepthInfo(WeakDevice device, const std::string &body)
{ return applyReport(&Interface::updateInterfaceBitDepthInfo, device, body, "Process interface colorDepths info auto report info failed ", true); }
bool Reports::receiveAutoReportInterfaceColorSpacesInfo(WeakDevice device, const std::string &body)
{ return applyReport(&Interface::updateInterfaceColorSpacesInfo, device, body, "Process interface colorSpaces info auto report info failed ", true); }
bool Reports::receiveAutoReportInterfaceColorRangesInfo(WeakDevice device, const std::string &body)
{ return applyReport(&Interface::updateInterfaceColorRangesInfo, device, body, "Process interface colorRsnges info auto report info failed ", true); }
bool Reports::receiveAutoReportInterfaceHDRInfo(WeakDevice device, const std::string &body)
{ return applyReport(&Interface::updateInterfaceHDRInfo, device, body, "Process interface HDR info auto report info failed ", true); }
bool Reports::receiveAutoReportScreenGenlockInfo(WeakDevice device, const std::string &body)
{ return applyReport(&Device::updateScreenGenlockInfo, device, body, "Process screen Genlock info auto report info failed ", true); }
bool Reports::receiveAutoReportScreenZelkInfo(WeakDevice device, const std::string &body)
{ return applyReport(&Screen::updateScreenZelkInfo, device, body, "Process screen Zelk info auto report info failed ", true); }
bool Reports::receiveAutoReportCutoutRGB(WeakDevice device, const std::string &body)
{ return applyReport(&Device::updateCutoutRGB, device, body, "Process cutout RGB auto report info failed ", true); }
bool Reports::receiveAutoReportDeviceTransferProgress(WeakDevice device, const std::string &body)
{ return applyReport(&Device::updateTransferProgress, device, body, "Process device file transfer progress auto report info failed ", true); }
// clang-format on

bool Reports::receiveAutoReportFileTransferProgress(WeakDevice device, const std::string &body)
{
    std::vector<ProtoModel::File::s_FileTransPercent> percents;
    QString error;
    if (!File(device, nullptr).updateTransferProgress(body, percents, error))
        qCWarning(controlLog) << "Process file transfer progress auto report info failed " << error;
    if (percents.empty()) {
        qCWarning(controlLog) << "Process file transfer progress auto report info failed:receive "
                                 "json is empty array.";
        return false;
    }
    q->updateDeviceFileTransferProgressRecord(device, percents);
    return true;
}

void AutoReportManagerPrivate::fillReportHandlers()
{
    struct Row {
        Command command;
        bool (Reports::*handler)(WeakDevice, const std::string &);
    };
    // clang-format off
    constexpr Row rows[] = {
        {Command::DeviceCardMode,          &Reports::receiveAutoReportSubcards},
        {Command::DevicePower,             &Reports::receiveAutoReportPowerInfo},
        {Command::DeviceGenlockStatus,     &Reports::receiveAutoReportGenlockStatus},
        {Command::DeviceGroupInfo,         &Reports::receiveAutoReportDeviceGroupInfo},
        {Command::DeviceInterfaceRelation, &Reports::receiveAutoReportInterfaceRelationInfo},
        {Command::InterfaceGeneral,        &Reports::receiveAutoReportInterfaceGeneralInfo},
        {Command::InterfaceActualTiming,   &Reports::receiveAutoReportInterfaceActualTiming},
        {Command::InterfaceColorDepth,     &Reports::receiveAutoReportInterfaceBitDepthInfo},
        {Command::InterfaceColorSpace,     &Reports::receiveAutoReportInterfaceColorSpacesInfo},
        {Command::InterfaceColorRange,     &Reports::receiveAutoReportInterfaceColorRangesInfo},
        {Command::InterfaceHDR,            &Reports::receiveAutoReportInterfaceHDRInfo},
        {Command::ScreenGenlock,           &Reports::receiveAutoReportScreenGenlockInfo},
        {Command::ScreenZelk,              &Reports::receiveAutoReportScreenZelkInfo},
        {Command::FileTransferProgress,    &Reports::receiveAutoReportFileTransferProgress},
        {Command::AuxiliaryCutoutRGB,      &Reports::receiveAutoReportCutoutRGB},
        {Command::AuxiliaryLoadProgress,   &Reports::receiveAutoReportDeviceTransferProgress},
    };
    // clang-format on
    for (const Row &row : rows) {
        reportHandlers.insert(
            reportKey(baseCode(row.command), functionCode(row.command)),
            [this, handler = row.handler](WeakDevice device, const std::string &body) {
                return (this->*handler)(std::move(device), body);
            });
    }
}

void AutoReportManagerPrivate::slotReceiveDeviceAutoReportInfo(
    std::weak_ptr<SSProxy::DeviceChannel> weakChannel,
    std::shared_ptr<SSProxy::IDeviceCommand> command)
{
    const auto channel = weakChannel.lock();
    if (!channel || !command) {
        qCWarning(controlLog) << "TavoroCmd auto report: Invalid channel";
        return;
    }
    const ReportLog log(*command);
    const auto device = modelOf(*channel);
    if (!device)
        return log.logUnknownDevice();
    if (isStopAutoReport)
        return log.logStopped(*device);
    const auto handler =
        reportHandlers.constFind(reportKey(command->head().BC, command->head().FC));
    if (handler == reportHandlers.constEnd())
        return log.logUnknownCode(*device);
    const bool result = (*handler)(device, command->body());
    log.logHandled(*device, result);
}

} // namespace Tavoro::Control::Internal
