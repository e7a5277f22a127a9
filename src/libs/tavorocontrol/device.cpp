#include <tavorocontrol/device.h>

#include "logging_p.h"
#include "operation_p.h"
#include "request/requestpath_p.h"

#include <tavorobizmodel/device.h>
#include <tavorocontrol/controlhelper.h>
#include <tavorossproxy/devicemanager.h>

namespace Tavoro::Control {

namespace {

using namespace Internal;
using namespace ProtoModel::Device;
using ProtoModel::Auxiliary::s_DeviceProcess;
using ProtoModel::Screen::s_ScreenGenlockBody;
using SSProxy::Command;
using SSProxy::DeviceManager;

// clang-format off
// Each row applies one kind of report to the model.
void applyReport(BizModel::Device &d, const s_GenlockSignal &report)                  { d.setGenlockOnStatus(report.genlockSignal); }
void applyReport(BizModel::Device &d, const s_InterfaceRelation &report)              { d.updateInterfaceRelation(report.interfaceRelation.relation); }
void applyReport(BizModel::Device &d, const s_Powers &report)                         { d.setPower(report.powers); }
void applyReport(BizModel::Device &d, const std::vector<s_ScreenGenlockBody> &report) { d.setScreenGenlocks(report); }
void applyReport(BizModel::Device &d, const s_DeviceProcess &report)                  { d.setDeviceProcess(report); }
// clang-format on

void applyReport(BizModel::Device &device, const s_DeviceGroupInfos &report)
{
    for (const s_DeviceGroupInfoBody &group : report.groupInfos)
        device.updateDeviceGroupInfo(group);
}

template <class Report>
bool update(const std::weak_ptr<BizModel::Device> &weakDevice, const std::string &body,
            QString &error)
{
    Report report;
    if (!decode(body, report, error))
        return false;
    const auto device = weakDevice.lock();
    if (!device) {
        error = missingDevice();
        return false;
    }
    applyReport(*device, report);
    return true;
}

/// Kept: some operations lock the device themselves. If it is gone, the caller gets no text.
std::shared_ptr<BizModel::Device> lockOrWarn(const std::weak_ptr<BizModel::Device> &weakDevice)
{
    auto device = weakDevice.lock();
    if (!device)
        qCWarning(controlLog) << "The device object is empty.";
    return device;
}

template <class Record>
bool readIfDeviceExists(OperationTarget target, Command command, Record &record, QString &error)
{
    const auto device = lockOrWarn(target.device);
    if (!device)
        return false;
    std::string answer;
    if (!read(target, command, {}, answer, error)) {
        qCWarning(controlLog) << "Failed to SendSyncRequest";
        return false;
    }
    return decode(answer, record, error);
}

void removeChannel(const BizModel::Device &device)
{
    const auto channel = channelOf(device);
    if (!channel)
        return;
    channel->stopChannel();
    DeviceManager::instance()->removeDeviceChannel(channel);
}

} // namespace

Device::Device(std::weak_ptr<BizModel::Device> device, QObject *parent)
    : QObject(parent), m_device(std::move(device)), m_helper(std::make_shared<ControlHelper>())
{ }

Device::~Device() = default;

OperationTarget Device::target() const
{
    return {m_device, *m_helper};
}

// clang-format off
// Each row encodes the record and sends it as a write; the status bar shows a success.
bool Device::writeDeviceGeneral        (const s_General &r,         QString &error) { return write(target(), Command::DeviceGeneral,               r, error); }
bool Device::writeGenlockConfig        (const s_Genlock &r,         QString &error) { return write(target(), Command::DeviceGenlockConfig,         r, error); }
bool Device::writeSwap                 (const s_swap &r,            QString &error) { return write(target(), Command::DeviceSwap,                  r, error); }
bool Device::writeOutputMapping        (s_InterfaceMapping &r,      QString &error) { return write(target(), Command::DeviceOutputMapping,         r, error); }
bool Device::writeDynamicRangConversion(s_DynamicRangConversion &r, QString &error) { return write(target(), Command::DeviceDynamicRangConversion, r, error); }
bool Device::writeZelk                 (s_DeviceZelk &r,            QString &error) { return write(target(), Command::DeviceZelk,                  r, error); }

// Each row decodes a report and applies it to the model.
bool Device::updateDeviceGroupInfo      (const std::string &body, QString &error) { return update<s_DeviceGroupInfos>              (m_device, body, error); }
bool Device::updateGenlockStatus        (const std::string &body, QString &error) { return update<s_GenlockSignal>                 (m_device, body, error); }
bool Device::updateTransferProgress     (const std::string &body, QString &error) { return update<s_DeviceProcess>                 (m_device, body, error); }
bool Device::updateInterfaceRelationInfo(const std::string &body, QString &error) { return update<s_InterfaceRelation>             (m_device, body, error); }
bool Device::updatePowerConfig          (const std::string &body, QString &error) { return update<s_Powers>                        (m_device, body, error); }
bool Device::updateScreenGenlockInfo    (const std::string &body, QString &error) { return update<std::vector<s_ScreenGenlockBody>>(m_device, body, error); }
// clang-format on

bool Device::writeSubcardMode(const s_subcards &subcards, QString &error)
{
    return write(target(), Command::DeviceCardMode, subcards, error, Timeout{20000});
}

bool Device::readDetails(s_DeviceDetail &detail, QString &error)
{
    std::string answer;
    if (!sendReadDeviceDetailsCmd(answer, error))
        return false;
    const auto device = m_device.lock();
    if (!device)
        return false; // Kept: without a text.
    static_cast<void>(device->tcpProtocolVersion());
    return decode(answer, detail, error);
}

bool Device::readDeviceDetails(QString &error)
{
    s_DeviceDetail detail;
    if (!readRecord(target(), Command::DeviceDetail, detail, error))
        return false;
    const auto device = m_device.lock();
    return device && device->initModelData(detail, error);
}

bool Device::sendReadDeviceDetailsCmd(std::string &detail, QString &error)
{
    return read(target(), Command::DeviceDetail, {}, detail, error);
}

bool Device::readSubcardDetail(const s_subcards &reported, QString &error)
{
    s_DeviceDetail detail;
    if (!readRecord(target(), Command::DeviceDetail, detail, error))
        return false;
    const auto device = m_device.lock();
    return device && device->updateSlotModelData(reported, detail, error);
}

bool Device::readDeviceGroupInfo(s_DeviceGroupInfos &groups, QString &error)
{
    return readIfDeviceExists(target(), Command::DeviceGroupInfo, groups, error);
}

bool Device::readOutputMapping(s_InterfaceMapping &mapping, QString &error)
{
    return readIfDeviceExists(target(), Command::DeviceOutputMapping, mapping, error);
}

bool Device::writeNetConfig(const s_Networks &networks, QString &error)
{
    const bool sent = write(target(), Command::DeviceNetConfig, networks, error);
    const auto device = m_device.lock();
    if (!sent || !device)
        return sent;
    const std::string address = device->IPAddress().toStdString();
    for (const s_NetworkBody &network : networks.networks) {
        if (network.ip != address)
            removeChannel(*device);
    }
    return true;
}

bool Device::writeDeviceGroupInfo(const s_DeviceGroupInfos &groups, QString &error)
{
    const auto device = lockOrWarn(m_device);
    return device && write(target(), Command::DeviceGroupInfo, groups, error);
}

bool Device::writeInterfaceRelationInfo(const s_InterfaceRelation &relation, QString &error)
{
    const auto device = lockOrWarn(m_device);
    return device && write(target(), Command::DeviceInterfaceRelation, relation, error);
}

bool Device::writeLoadToPGM(const BizModel::Enum::Device::LoadToPGMStatus &status, QString &error)
{
    const s_PresetApplyType applyType{status};
    return write(target(), Command::DeviceLoadToPGM, applyType, error);
}

bool Device::writeDeviceControlRequest(const QString &ip, const QString &mac, const QString &sn,
                                       QString &error)
{
    return DeviceManager::instance()->sendTavoroControlRequest(ip, mac, sn, error);
}

void Device::refreshDeviceChannel()
{
    DeviceManager::instance()->refreshDeviceChannel();
}

void Device::disconnectCommunication()
{
    const auto device = m_device.lock();
    const auto channel = device ? channelOf(*device) : nullptr;
    if (channel)
        channel->stopChannel();
}

bool Device::updateSubcardsInfo(const std::string &body, QString &error)
{
    s_subcards report;
    if (!decode(body, report, error))
        return false;
    const auto device = m_device.lock();
    if (!device)
        return false; // Kept: without a text.
    device->updateSubCard(report.subcards);
    return true;
}

bool Device::updateCutoutRGB(const std::string &body, QString &error)
{
    ProtoModel::s_RGB report;
    if (!decode(body, report, error))
        return false;
    const auto device = m_device.lock();
    if (!device) {
        qCWarning(controlLog) << "Device is null"; // Kept: logged only; the caller gets no text.
        return false;
    }
    return device->updateCutoutRGB(report, error);
}

} // namespace Tavoro::Control
