#include "packet_p.h"

#include <tavorobizmodel/device.h>
#include <tavorossproxy/devicemanager.h>

#include <algorithm>
#include <cstring>
#include <limits>

namespace Tavoro::Control::Internal {

namespace {

constexpr std::size_t repeatedFirst = 18;
constexpr std::size_t repeatedSize = 18; // positions 18 to 35

quint32 tableTimeout(const BizModel::s_DeviceConfig &config, const Exchange &exchange)
{
    const auto entry =
        std::find_if(config.timeouts.begin(), config.timeouts.end(), [&](const auto &candidate) {
            return candidate && candidate->BC == exchange.baseCode()
                && candidate->FC == exchange.functionCode();
        });
    return entry == config.timeouts.end() ? config.defaultTimeout : (*entry)->timeout;
}

void setTableTimeout(BizModel::Device &device, const Exchange &exchange,
                     SSProxy::DeviceRequestCommand &request)
{
    constexpr quint32 longest = std::numeric_limits<int>::max();
    request.setTimeout(
        static_cast<int>(std::min(tableTimeout(device.deviceConfig(), exchange), longest)));
}

/// As QString::toStdString(), but with nothing in between for the plain characters that addresses
/// and numbers are made of: this runs for every request.
std::string toText(const QString &text)
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
        toText(device.IPAddress()), toText(device.MAC()), toText(device.sn()));
}

bool openRoute(Exchange &exchange, const std::weak_ptr<BizModel::Device> &device,
               SSProxy::DeviceRequestCommand &request, QString &error, Route &route)
{
    route.device = device.lock();
    if (!route.device)
        return exchange.fail(Failure::NoDevice, 0, error);
    exchange.setDevice(*route.device);
    exchange.logRequest();
    setTableTimeout(*route.device, exchange, request);
    route.channel = channelOf(*route.device);
    return true;
}

std::shared_ptr<SSProxy::DeviceRequestCommand> packetRequest(const SSProxy::PacketHead &first,
                                                             quint32 totalCount, quint32 sendCount)
{
    auto request = std::make_shared<SSProxy::DeviceRequestCommand>();
    SSProxy::PacketHead &head = request->head();
    std::memcpy(reinterpret_cast<char *>(&head) + repeatedFirst,
                reinterpret_cast<const char *>(&first) + repeatedFirst, repeatedSize);
    head.totalCount = totalCount;
    head.sendCount = sendCount;
    return request;
}

std::string takeBody(const Reply &reply)
{
    std::string &body = reply.response->body();
    return reply.response.use_count() == 1 ? std::move(body) : body;
}

Reply judge(std::shared_ptr<SSProxy::DeviceResponseCommand> response)
{
    if (!response)
        return {Failure::NullResponse, 0, nullptr};
    const quint16 status = response->status;
    return {status == 0 ? Failure::None : Failure::Status, status, std::move(response)};
}

Reply exchangePacket(SSProxy::DeviceChannel &channel,
                     std::shared_ptr<SSProxy::DeviceRequestCommand> request)
{
    if (!channel.isHardwareReadFinished())
        return {Failure::Offline, 0, nullptr};
    return judge(channel.sendSyncRequest(std::move(request)));
}

} // namespace Tavoro::Control::Internal
