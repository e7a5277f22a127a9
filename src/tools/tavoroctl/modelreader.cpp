#include "modelreader.h"

#include <tavorobizmodel/device.h>
#include <tavorobizmodel/devicelist.h>

#include <QEventLoop>

#include <utility>

namespace Tavoro::Ctl {

ModelReader::ModelReader(Console &console, std::function<void(bool)> ended)
    : m_console(console), m_list(nullptr)
{
    const auto *const model = BizModel::DeviceList::instance();
    connect(model, &BizModel::DeviceList::signalShowStatusBarMsg, this,
            [this](BizModel::Enum::StatusBarMsgType, const QString &text) {
                m_lastRead = text;
                m_console.progress(0, text);
            });
    connect(
        model, &BizModel::DeviceList::signalReadDataFromHWProgressChanged, this,
        [this](double share) { m_console.progress(static_cast<int>(share * 100), m_lastRead); });
    connect(&m_list, &Control::DeviceList::signalReadDeviceDetailFinished, this,
            [this, ended = std::move(ended)](bool success) { ended(success && isReadWhole()); });
}

bool ModelReader::start(const std::shared_ptr<BizModel::Device> &device)
{
    QString error;
    m_device = device;
    return m_list.readDeviceDetail(device, error);
}

/// The signal tells what became of the model; the model knows what became of the reads.
bool ModelReader::isReadWhole() const
{
    const auto listed = listedDevice(*m_device);
    return listed && listed->isSyncDataSuccess();
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
