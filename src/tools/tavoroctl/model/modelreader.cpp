#include "modelreader.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>
#include <tavorocontrol/controlhelper.h>
#include <tavorossproxy/commandcodes.h>
#include <tavorossproxy/devicemanager.h>

#include <QEventLoop>

#include <utility>

namespace Tavoro::Ctl {

namespace {

/// What texts call the only write of a synchronisation, in the language of the application.
QString clockLabel()
{
    constexpr SSProxy::Command clock = SSProxy::Command::AuxiliaryDeviceTime;
    return Control::ControlHelper::commandLabel(SSProxy::baseCode(clock),
                                                SSProxy::functionCode(clock));
}

} // namespace

ModelReader::ModelReader(Console &console, std::function<void(bool)> ended)
    : m_console(console), m_ended(std::move(ended)), m_list(nullptr)
{
    const auto *const model = BizModel::DeviceList::instance();
    connect(model, &BizModel::DeviceList::signalShowStatusBarMsg, this,
            [this](BizModel::Enum::StatusBarMsgType type, const QString &text) {
                follow(type == BizModel::Enum::StatusBarFailure, text);
            });
    connect(model, &BizModel::DeviceList::signalReadDataFromHWProgressChanged, this,
            [this](double share) {
                m_console.progress({static_cast<int>(share * 100), m_lastText});
            });
    connect(&m_list, &Control::DeviceList::signalReadDeviceDetailFinished, this,
            [this](bool success) { finish(success); });
}

bool ModelReader::start(const std::shared_ptr<BizModel::Device> &device)
{
    m_device = device;
    m_failures = 0;
    m_failedWrites = 0;
    QString error;
    return m_list.readDeviceDetail(device, error);
}

void ModelReader::follow(bool isFailure, const QString &text)
{
    m_lastText = text;
    m_failures += isFailure ? 1 : 0;
    m_failedWrites += isFailure && text.contains(clockLabel()) ? 1 : 0;
    m_console.progress({0, text});
}

void ModelReader::finish(bool success)
{
    QString ignored; // A device without control refuses, and has none to give up.
    SSProxy::DeviceManager::instance()->sendTavoroControlRequest(
        m_device->IPAddress(), m_device->MAC(), m_device->sn(), SSProxy::ControlAction::GiveUp,
        ignored);
    m_ended(success && isReadWhole());
}

/// The signal covers the model only; the model knows whether its requests succeeded.
bool ModelReader::isReadWhole() const
{
    const auto listed = listedDevice(*m_device);
    return listed
        && (listed->isSyncDataSuccess() || (m_failedWrites == 1 && m_failures == m_failedWrites));
}

std::shared_ptr<BizModel::Device> listedDevice(const BizModel::Device &device)
{
    return BizModel::DeviceList::instance()
        ->findDevice(device.IPAddress(), device.MAC(), device.sn())
        .lock();
}

bool readModel(Console &console, const std::shared_ptr<BizModel::Device> &device)
{
    QEventLoop loop;
    ModelReader reader(console, [&](bool success) { loop.exit(success ? 1 : 0); });
    return reader.start(device) && loop.exec() == 1;
}

} // namespace Tavoro::Ctl
