#include "requestpath_p.h"

#include "exchangereporter_p.h"

#include <tavorobizmodel/device.h>
#include <tavorossproxy/devicemanager.h>

#include <algorithm>
#include <limits>
#include <string>

namespace Tavoro::Control::Internal {

namespace {

quint32 tableTimeout(const BizModel::s_DeviceConfig &config, const ExchangeReporter &reporter)
{
    const auto entry =
        std::find_if(config.timeouts.begin(), config.timeouts.end(), [&](const auto &candidate) {
            return candidate && candidate->BC == reporter.baseCode()
                && candidate->FC == reporter.functionCode();
        });
    return entry == config.timeouts.end() ? config.defaultTimeout : (*entry)->timeout;
}

void setTableTimeout(BizModel::Device &device, const ExchangeReporter &reporter,
                     SSProxy::DeviceRequestCommand &request)
{
    constexpr quint32 longest = std::numeric_limits<int>::max();
    request.setTimeout(
        static_cast<int>(std::min(tableTimeout(device.deviceConfig(), reporter), longest)));
}

/// Does the same as QString::toStdString(), but without a temporary object for the ASCII characters
/// of addresses and numbers, since it runs for every request.
std::string toStdString(const QString &text)
{
    std::string plain(static_cast<std::size_t>(text.size()), '\0');
    const QChar *next = text.constData();
    char16_t seen = 0;
    for (char &character : plain) {
        const char16_t unicode = (next++)->unicode();
        character = static_cast<char>(unicode);
        seen = static_cast<char16_t>(seen | unicode);
    }
    if (seen >= 0x80)
        plain = text.toStdString();
    return plain;
}

} // namespace

std::shared_ptr<SSProxy::DeviceChannel> channelOf(const BizModel::Device &device)
{
    return SSProxy::DeviceManager::instance()->findTavoroDeviceChannel(
        toStdString(device.IPAddress()), toStdString(device.MAC()), toStdString(device.sn()));
}

bool openRequestPath(ExchangeReporter &reporter, const std::weak_ptr<BizModel::Device> &device,
                     SSProxy::DeviceRequestCommand &request, QString &error, RequestPath &path)
{
    path.device = device.lock();
    if (!path.device)
        return reporter.fail({Failure::NoDevice, 0, nullptr}, error);
    reporter.setDevice(*path.device);
    reporter.logRequest();
    setTableTimeout(*path.device, reporter, request);
    path.channel = channelOf(*path.device);
    return true;
}

} // namespace Tavoro::Control::Internal
